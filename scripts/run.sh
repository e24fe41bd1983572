#!/usr/bin/env bash
# Builds the module and timetool (Release) and runs timetool; arguments are
# passed on, so with none it shows the default view of the current instant.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
cmake --preset release >/dev/null
cmake --build --preset release --target timetool Calendar CollectionsEx >/dev/null
exec ./build/release/timetool "$@"
