#!/usr/bin/env bash
# Builds the module and timetool (Release) and runs timetool; arguments are
# passed on, so with none it shows the default view of the current instant.
# Progress goes to standard error, so timetool's output stays clean.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
if [ ! -f build/release/CMakeCache.txt ]; then
  echo "run: configuring the release build in build/release" >&2
fi
cmake --preset release >/dev/null
if [ ! -x build/release/timetool ]; then
  echo "run: first build of the module, the host kit and timetool (a minute or two on 2 cores)" >&2
fi
# Ninja's "[done/total]" lines become a progress line every 20 files; any
# other line (a compiler message) is shown as it is.
cmake --build --preset release --target timetool Calendar CollectionsEx |
  awk -F'[][/]' '
    /^\[[0-9]+\/[0-9]+\]/ { if ($2 % 20 == 0) printf "run: %d of %d build steps done\n", $2, $3 > "/dev/stderr"; next }
    /^ninja: no work to do/ { next }
    { print > "/dev/stderr" }'
exec ./build/release/timetool "$@"
