#!/usr/bin/env bash
# Runs clang-tidy (.clang-tidy) over the module, the host kit and timetool,
# using the dev build's compile commands; any finding fails the check.
set -euo pipefail
cd "$(dirname "$0")/.."
if [ ! -f build/dev/compile_commands.json ]; then
  cmake --preset dev >/dev/null
fi
mapfile -t files < <(git ls-files 'base/*.cpp' 'module/*.cpp' 'framework/*.cpp' 'calendar/*.cpp' 'time/*.cpp' 'persist/*.cpp' \
  'vector/*.cpp' 'hostkit/*.cpp' 'hostkit/streams/*.cpp' 'tools/*.cpp')
log=$(mktemp)
printf '%s\n' "${files[@]}" | xargs -P2 -n4 clang-tidy -p build/dev --quiet --warnings-as-errors='*' >"$log" 2>/dev/null || {
  grep -E "warning:|error:" "$log" || cat "$log"
  rm -f "$log"
  echo "tidy: findings above"
  exit 1
}
rm -f "$log"
echo "tidy: ${#files[@]} files clean"
