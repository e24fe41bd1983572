#!/usr/bin/env bash
# Fails when a tracked C++ file differs from what clang-format makes of it.
# With --fix, reformats those files in place instead.
set -euo pipefail
cd "$(dirname "$0")/.."
mapfile -t files < <(git ls-files '*.h' '*.cpp')
if [ "${1:-}" = "--fix" ]; then
  clang-format -i "${files[@]}"
  exit 0
fi
clang-format --dry-run --Werror "${files[@]}"
echo "format: ${#files[@]} files formatted"
