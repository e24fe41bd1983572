// Registers a benchmark. With CAL_BENCH_ITERATIONS set (bench/profile.sh sets
// it), each benchmark runs exactly that many iterations in one round, so an
// instruction count of the whole run divides into a count per iteration.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdlib>

namespace bench {

inline void FixedIterationsWhenProfiling(benchmark::internal::Benchmark* b) {
    const char* text = std::getenv("CAL_BENCH_ITERATIONS");
    if (text == nullptr) return;
    const long long n = std::atoll(text);
    if (n > 0) b->Iterations(static_cast<benchmark::IterationCount>(n));
}

}  // namespace bench

#define CAL_BENCHMARK(fn) BENCHMARK(fn)->Apply(bench::FixedIterationsWhenProfiling)
