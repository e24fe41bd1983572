#!/usr/bin/env bash
# The concurrency tests under ThreadSanitizer: the stress tests, the vector's
# host tests (listeners that call back) and the object base and lock tests.
set -euo pipefail
cd "$(dirname "$0")/.."
export TSAN_OPTIONS="${TSAN_OPTIONS:-halt_on_error=1:second_deadlock_stack=1}"
cmake --preset tsan
cmake --build --preset tsan -j2 --target stress_host_test dbl_vector_host_test module_unit_test
cd build/tsan
./tests/stress/stress_host_test
./tests/vector/dbl_vector_host_test
./tests/module/module_unit_test --gtest_filter='ObjectBase.*:CResourceLock.*'
