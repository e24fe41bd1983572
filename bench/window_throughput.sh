#!/usr/bin/env bash
# Whole-process throughput of `timetool window`: values per second with
# --stat mean,min,max at capacities 1,000 and 100,000 over a million numbers,
# and numbers per second printed by the plain window (capacity 1,000 over
# 100,000 numbers: 100 million numbers out). Median of several runs, output
# discarded. Usage: bench/window_throughput.sh <build dir> [runs]
set -euo pipefail
build="$1"
runs="${2:-5}"
timetool="$(cd "$build" && pwd)/timetool"
scratch="$(mktemp -d)"
trap 'rm -rf "$scratch"' EXIT

# Random decimals as a stream source would give them, fixed by the seed.
python3 - "$scratch" <<'PY'
import random, sys
random.seed(17)
folder = sys.argv[1]
for name, count in (("million", 1_000_000), ("hundred_thousand", 100_000)):
    with open(f"{folder}/{name}.txt", "w") as out:
        out.write("\n".join(f"{random.uniform(-1000, 1000):.6f}" for _ in range(count)))
        out.write("\n")
PY

# Medians of $runs runs of timetool with the arguments, reading the file
# named first: "wall cpu" in seconds, cpu being user plus system time, which
# a loaded machine disturbs less than wall time.
median_seconds() {
  local input="$1" walls=() cpus=() times
  shift
  for ((i = 0; i < runs; ++i)); do
    times=$( { TIMEFORMAT='%R %U %S'; time "$timetool" "$@" <"$input" >/dev/null; } 2>&1)
    walls+=("$(echo "$times" | awk '{ print $1 }')")
    cpus+=("$(echo "$times" | awk '{ print $2 + $3 }')")
  done
  local wall cpu
  wall=$(printf '%s\n' "${walls[@]}" | sort -g | awk '{ a[NR] = $1 } END { print a[int((NR + 1) / 2)] }')
  cpu=$(printf '%s\n' "${cpus[@]}" | sort -g | awk '{ a[NR] = $1 } END { print a[int((NR + 1) / 2)] }')
  echo "$wall $cpu"
}

row() {
  local label="$1" count="$2" unit="$3" input="$4"
  shift 4
  local wall cpu
  read -r wall cpu < <(median_seconds "$input" "$@")
  awk -v l="$label" -v w="$wall" -v c="$cpu" -v n="$count" -v u="$unit" \
    'BEGIN { printf "| %s | %.3f | %.3f | %.2f million %s/s | %.2f million %s/s |\n", l, w, c, n / w / 1e6, u, n / c / 1e6, u }'
}

echo "| timetool window (median of $runs runs) | wall s | CPU s | per wall second | per CPU second |"
echo "|---|---|---|---|---|"
row "window 1000 --stat mean,min,max, 1,000,000 values" 1000000 values "$scratch/million.txt" \
  window 1000 --stat mean,min,max
row "window 100000 --stat mean,min,max, 1,000,000 values" 1000000 values "$scratch/million.txt" \
  window 100000 --stat mean,min,max
row "window 1000, 100,000 values (100,000,000 numbers out)" 100000000 numbers "$scratch/hundred_thousand.txt" \
  window 1000
echo
echo "Machine: $(nproc) cores, load average $(cut -d' ' -f1-3 /proc/loadavg); $(date -u '+%Y-%m-%d %H:%M UTC')"
