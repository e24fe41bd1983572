#!/usr/bin/env bash
# The whole test suite built with AddressSanitizer and UndefinedBehaviourSanitizer
# (no recovery: the first report fails the test).
set -euo pipefail
cd "$(dirname "$0")/.."
export ASAN_OPTIONS="${ASAN_OPTIONS:-detect_leaks=1:abort_on_error=1:strict_string_checks=1:detect_stack_use_after_return=1}"
export UBSAN_OPTIONS="${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}"
# timetool's day-by-day sweeps visit every 50th day here (every day in the dev build).
export TIMETOOL_SWEEP_STRIDE="${TIMETOOL_SWEEP_STRIDE:-50}"
cmake --preset asan
cmake --build --preset asan -j2
ctest --preset asan
