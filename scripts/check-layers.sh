#!/usr/bin/env bash
# Fails when the module's folders include each other in a circle (a folder
# that includes a folder that, directly or through others, includes it back),
# or when the pure calendar arithmetic includes anything but itself and the
# standard library.
set -euo pipefail
cd "$(dirname "$0")/.."
python3 - <<'PY'
import pathlib, re, sys

folders = ["base", "module", "framework", "calendar", "time", "persist", "vector"]
include = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.M)
edges = {f: set() for f in folders}
problems = []
for folder in folders:
    for path in sorted(pathlib.Path(folder).glob("*")):
        if path.suffix not in (".h", ".cpp", ".inc"):
            continue
        for target in include.findall(path.read_text()):
            top = target.split("/")[0] if "/" in target else None
            if folder == "calendar" and top != "calendar":
                problems.append(f"{path}: the calendar arithmetic includes \"{target}\"")
            if top in edges and top != folder:
                edges[folder].add(top)

# Depth-first search for a cycle in the folder graph.
state = {}
def visit(node, trail):
    state[node] = "open"
    for nxt in sorted(edges[node]):
        if state.get(nxt) == "open":
            cycle = trail[trail.index(nxt):] + [nxt]
            problems.append("include cycle: " + " -> ".join(cycle))
        elif nxt not in state:
            visit(nxt, trail + [nxt])
    state[node] = "done"
for folder in folders:
    if folder not in state:
        visit(folder, [folder])

for p in problems:
    print(p)
if problems:
    sys.exit(1)
print("layers: " + ", ".join(f"{f} -> {' '.join(sorted(edges[f])) or '(none)'}" for f in folders))
PY
