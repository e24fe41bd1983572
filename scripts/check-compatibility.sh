#!/usr/bin/env bash
# Fails when COMPATIBILITY.md names a test (`Suite.Name`) that no test source
# defines, or when a row names no test at all.
set -euo pipefail
cd "$(dirname "$0")/.."
python3 - <<'PY'
import pathlib, re, sys

defined = set()
pattern = re.compile(r'^\s*(?:TEST|TEST_F|TEST_P|TYPED_TEST|TYPED_TEST_P)\(\s*(\w+)\s*,\s*(\w+)\s*\)', re.M)
for path in pathlib.Path("tests").rglob("*.cpp"):
    for suite, name in pattern.findall(path.read_text(errors="replace")):
        defined.add(f"{suite}.{name}")

missing, rows, bare = [], 0, []
for number, line in enumerate(pathlib.Path("COMPATIBILITY.md").read_text().splitlines(), 1):
    cells = [c.strip() for c in line.strip().strip("|").split("|")]
    if not line.startswith("|") or len(cells) < 2 or set(cells[-1]) <= set("-: ") or cells[-1] == "Pinned by":
        continue
    rows += 1
    named = re.findall(r"`(\w+\.\w+)`", cells[-1])
    if not named:
        bare.append(f"COMPATIBILITY.md:{number}: the row names no test")
    missing += [f"COMPATIBILITY.md:{number}: no test {t}" for t in named if t not in defined]

for problem in bare + missing:
    print(problem)
if bare or missing or rows == 0:
    sys.exit(1)
print(f"compatibility: {rows} behaviours, every named test exists")
PY
