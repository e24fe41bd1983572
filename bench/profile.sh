#!/usr/bin/env bash
# Instruction counts per iteration of chosen benchmarks, under callgrind
# (repeatable where timings on a shared machine are not). Only the timed
# loop is collected: collection is switched on inside the function that
# holds it, and each benchmark runs a fixed number of iterations in a single
# round (CAL_BENCH_ITERATIONS) so the total divides exactly. Usage: bench/profile.sh <build dir> [benchmark ...]
set -euo pipefail
build="$(cd "$1" && pwd)"
shift
out="$build/bench-results/callgrind"
mkdir -p "$out"

# The function holding each benchmark's timed loop.
loop_of() {
  case "$1" in
    GregorianToDay_Module | HebrewToDay_Module) echo '*ToDayNumber*' ;;
    DayToGregorian_Module | DayToHebrew_Module) echo '*FromDayNumber*' ;;
    *) echo "*$1*" ;;
  esac
}

names=("$@")
if ((${#names[@]} == 0)); then
  names=(GregorianToDay_Module GregorianToDay_DateH DayToGregorian_Module DayToGregorian_DateH
         JulianBoth_Module JulianBoth_DateH DayToHebrew_Module DayToHebrew_Hdate
         HebrewToDay_Module HebrewToDay_Hdate SunTimes_Module SunTimes_Hdate
         RefCount_Module RefCount_VirtualAtomic)
fi
iterations=20000
cd "$build"
for name in "${names[@]}"; do
  CAL_BENCH_ITERATIONS=$iterations valgrind --tool=callgrind --callgrind-out-file="$out/$name.out" --toggle-collect="$(loop_of "$name")" \
    ./bench/cal_bench --benchmark_filter="^$name(/|\$)" >"$out/$name.txt" 2>&1
  total=$(callgrind_annotate "$out/$name.out" | awk '/PROGRAM TOTALS/ { gsub(",", "", $1); print $1 }')
  echo "== $name: $iterations iterations, $((total / iterations)) instructions per iteration"
  callgrind_annotate "$out/$name.out" | awk -v it="$iterations" '
    /file:function/ { on = 1; getline; next }
    on && NF > 0 && n < 8 {
      ir = $1; gsub(",", "", ir)
      if (ir / it < 1) exit
      fn = $0; sub(/^ *[0-9,]+ +\([ 0-9.%]+\) +/, "", fn); sub(/ \[.*/, "", fn); sub(/^\?\?\?:/, "", fn)
      printf "   %7.1f  %s\n", ir / it, fn; n++ }'
done
