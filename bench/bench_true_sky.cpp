// The true sun and moon of timetool's sky library beside libnova and
// libhdate, on the same days as the module's sun and moon rows
// (bench_sky.cpp): sunrise and sunset at the module's default place, the
// whole solar day with civil twilight, the phase angle, and the phase angle
// with the lit fraction.
//
// Reference run: see bench/README.md (the table of the latest measured run).
#include <benchmark/benchmark.h>

#include "inputs.h"
#include "registration.h"
#include "sky/moon_phase.h"
#include "sky/sun_events.h"

namespace bench {
namespace {

constexpr timetool::sky::Place kDefaultPlace{43.3, -83.045};
constexpr double kJulianDateMinusStarDate = 1721422.5;

void TrueSunTimes_Sky(benchmark::State& state) {
    const auto& in = SkyDates().daysSince1970;
    std::size_t i = 0;
    for (auto _ : state) {
        const timetool::sky::SunPath path(timetool::sky::SolarDayStart(in[i++ & kInputMask], kDefaultPlace.longitude),
                                          kDefaultPlace);
        const timetool::sky::SunCrossings horizon = path.Crossings(timetool::sky::kSunriseAltitude);
        benchmark::DoNotOptimize(horizon);
    }
}

void TrueSunDay_Sky(benchmark::State& state) {
    const auto& in = SkyDates().daysSince1970;
    std::size_t i = 0;
    for (auto _ : state) {
        const timetool::sky::SunDay day = timetool::sky::SunDayAt(in[i++ & kInputMask], kDefaultPlace);
        benchmark::DoNotOptimize(day);
    }
}

void TrueMoonPhase_Sky(benchmark::State& state) {
    const auto& in = SkyDates().starDate;
    std::size_t i = 0;
    for (auto _ : state) {
        const double phase = timetool::sky::MoonPhaseAngle(in[i++ & kInputMask] + kJulianDateMinusStarDate);
        benchmark::DoNotOptimize(phase);
    }
}

void TrueMoonPhaseLit_Sky(benchmark::State& state) {
    const auto& in = SkyDates().starDate;
    std::size_t i = 0;
    for (auto _ : state) {
        const timetool::sky::MoonPhase phase =
            timetool::sky::MoonPhaseAt(in[i++ & kInputMask] + kJulianDateMinusStarDate);
        benchmark::DoNotOptimize(phase);
    }
}

}  // namespace

CAL_BENCHMARK(TrueSunTimes_Sky);
CAL_BENCHMARK(TrueSunDay_Sky);
CAL_BENCHMARK(TrueMoonPhase_Sky);
CAL_BENCHMARK(TrueMoonPhaseLit_Sky);

}  // namespace bench
