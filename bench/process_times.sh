#!/usr/bin/env bash
# Whole-process figures: median wall time of repeated runs of timetool
# (default view; convert to Hebrew; ten years of true sunrise, sunset and
# twilight) beside Debian's hdate for the same date.
# Usage: bench/process_times.sh <build dir> [runs]
set -euo pipefail
build="$1"
runs="${2:-30}"
cd "$build"

# Median in milliseconds of $runs runs of the command; output discarded.
median_ms() {
  local samples=() start end
  for ((i = 0; i < runs; ++i)); do
    start=$(date +%s%N)
    "$@" >/dev/null 2>&1 || true
    end=$(date +%s%N)
    samples+=($(((end - start) / 1000)))
  done
  printf '%s\n' "${samples[@]}" | sort -n | awk '{ a[NR] = $1 } END { printf "%.2f", a[int((NR + 1) / 2)] / 1000 }'
}

echo "| Whole process (median of $runs runs) | ms |"
echo "|---|---|"
if [ -x ./timetool ]; then
  echo "| timetool (default view) | $(median_ms ./timetool) |"
  if ./timetool convert 2024-06-21 --to hebrew >/dev/null 2>&1; then
    echo "| timetool convert 2024-06-21 --to hebrew | $(median_ms ./timetool convert 2024-06-21 --to hebrew) |"
  else
    echo "| timetool convert 2024-06-21 --to hebrew | not available |"
  fi
  echo "| timetool sun 2024-01-01 --days 3660 | $(median_ms ./timetool sun 2024-01-01 --days 3660) |"
else
  echo "| timetool | not built |"
fi
if command -v hdate >/dev/null; then
  echo "| hdate 21 6 2024 | $(median_ms hdate 21 6 2024) |"
fi
