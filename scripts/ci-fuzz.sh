#!/usr/bin/env bash
# Builds the libFuzzer targets (the "fuzz" preset) and runs each for a short
# time from its committed corpus with a fixed seed. New inputs go to a scratch
# folder; the committed corpus is not changed. FUZZ_SECONDS sets the time per
# target (default 4).
set -euo pipefail
cd "$(dirname "$0")/.."
seconds="${FUZZ_SECONDS:-4}"
cmake --preset fuzz
cmake --build --preset fuzz -j2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd build/fuzz
mkdir -p artifacts
for corpus in ../../fuzz/corpus/*/; do
  target=$(basename "$corpus")
  mkdir -p "$scratch/$target"
  log="$scratch/$target.log"
  if ! ./fuzz/"fuzz_$target" "$scratch/$target" "$corpus" -seed=1 -max_total_time="$seconds" \
        -rss_limit_mb=2048 -max_len=4096 -print_final_stats=1 -artifact_prefix=artifacts/ >"$log" 2>&1; then
    cat "$log"
    echo "fuzz: fuzz_$target failed"
    exit 1
  fi
  runs=$(grep -o 'stat::number_of_executed_units: *[0-9]*' "$log" | grep -o '[0-9]*$' || echo "?")
  echo "fuzz: fuzz_$target $runs executions in ${seconds}s"
done
