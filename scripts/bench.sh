#!/usr/bin/env bash
# Builds the release preset, runs the benchmarks with repetitions and prints
# the table of medians and ratios (module / peer) against each row's target,
# then the whole-process and memory figures. Profiles of single rows:
# bench/profile.sh build/release <benchmark name>. Usage: scripts/bench.sh [repetitions]
# Extra Google Benchmark options can be given in BENCH_ARGS.
set -euo pipefail
cd "$(dirname "$0")/.."
repetitions="${1:-5}"
bash scripts/setup.sh
cmake --preset release -DCAL_BUILD_TESTS=ON >/dev/null
cmake --build --preset release --target cal_bench alloc_host_test timetool Calendar CollectionsEx -j2 >/dev/null

out=build/release/bench-results
mkdir -p "$out"
(cd build/release && ./bench/cal_bench --benchmark_repetitions="$repetitions" \
  --benchmark_report_aggregates_only=true --benchmark_out="bench-results/bench.json" \
  --benchmark_out_format=json ${BENCH_ARGS:-} >"bench-results/console.txt")
python3 bench/ratio_table.py "$out/bench.json"
echo
echo "Machine: $(nproc) cores, $(grep -m1 'model name' /proc/cpuinfo | cut -d: -f2 | sed 's/^ //'),"\
  "load average $(cut -d' ' -f1-3 /proc/loadavg); $(date -u '+%Y-%m-%d %H:%M UTC')"
echo "Full benchmark output: $out/console.txt and $out/bench.json"
echo
bash bench/process_times.sh build/release
echo
echo "Memory (requested bytes held, counted by the allocation test's operator new):"
(cd build/release && ./tests/alloc/alloc_host_test --gtest_filter='MemoryFigures.*' | sed -n 's/^memory: /  /p')
