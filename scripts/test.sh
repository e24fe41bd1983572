#!/usr/bin/env bash
# Builds everything (warnings are errors) and runs every test with CTest.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
cmake --preset dev
cmake --build --preset dev
ctest --preset dev
