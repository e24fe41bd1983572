#!/usr/bin/env bash
# The host-level test binaries of build/dev under valgrind memcheck: any
# memory error or definitely lost block fails. Run after scripts/test.sh.
set -euo pipefail
cd "$(dirname "$0")/.."
build=build/dev
# valgrind 3.19 misreads glibc's AVX2 wmemcmp (reads of 32 bytes past a wide
# string); the baseline string functions it understands are selected instead.
export GLIBC_TUNABLES=glibc.cpu.hwcaps=-AVX2
mapfile -t tests < <(grep -ho 'cal_host_test([A-Za-z0-9_]*' tests/*/CMakeLists.txt | sed 's/cal_host_test(//' | sort)
# alloc_host_test counts allocations through its own operator new, which
# valgrind replaces with its own; it runs under the sanitizers instead.
skip=" alloc_host_test "
failed=()
for name in "${tests[@]}"; do
  if [[ "$skip" == *" $name "* ]]; then
    echo "valgrind: $name skipped"
    continue
  fi
  binary=$(find "$build/tests" -type f -name "$name" -perm -u+x | head -n 1)
  if [ -z "$binary" ]; then
    echo "valgrind: $name not built"
    failed+=("$name")
    continue
  fi
  echo "valgrind: $name"
  if ! (cd "$build" && valgrind --quiet --error-exitcode=1 --leak-check=full --errors-for-leak-kinds=definite \
          --show-leak-kinds=definite --track-origins=no --num-callers=30 "../../$binary" --gtest_brief=1); then
    failed+=("$name")
  fi
done
if ((${#failed[@]})); then
  echo "valgrind: failures in ${failed[*]}"
  exit 1
fi
echo "valgrind: ${#tests[@]} host test binaries clean"
