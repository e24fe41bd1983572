// Sunrise, sunset and moon phase: the module through ITime beside libhdate,
// libnova and a plain mean-lunation formula.
#include <benchmark/benchmark.h>
#include <hdate.h>
#include <libnova/lunar.h>
#include <libnova/solar.h>

#include <cmath>
#include <vector>

#include "inputs.h"
#include "module_loader.h"
#include "registration.h"
#include "sky_objects.h"

namespace bench {
namespace {

constexpr double kLatitude = 43.3;
constexpr double kLongitudeWest = 83.045;  // the module's default location
constexpr double kJulianDateMinusStarDate = 1721422.5;

void SunTimes_Module(benchmark::State& state) {
    const auto& objects = SkyTimeObjects();
    std::size_t i = 0;
    for (auto _ : state) {
        double rise = 0.0, set = 0.0;
        objects[i++ & kInputMask]->get_SunTimes(&rise, &set);
        benchmark::DoNotOptimize(rise);
        benchmark::DoNotOptimize(set);
    }
}

void SunTimes_Hdate(benchmark::State& state) {
    const auto& in = SkyDates().gregorian;
    std::size_t i = 0;
    for (auto _ : state) {
        const CivilDate& d = in[i++ & kInputMask];
        int rise = 0, set = 0;
        hdate_get_utc_sun_time(d.day, d.month, d.year, kLatitude, kLongitudeWest, &rise, &set);
        benchmark::DoNotOptimize(rise);
        benchmark::DoNotOptimize(set);
    }
}

void SunTimes_Nova(benchmark::State& state) {
    const auto& in = SkyDates().starDate;
    ln_lnlat_posn observer{-kLongitudeWest, kLatitude};  // libnova counts east positive
    std::size_t i = 0;
    for (auto _ : state) {
        ln_rst_time rst{};
        const int circumpolar = ln_get_solar_rst(in[i++ & kInputMask] + kJulianDateMinusStarDate, &observer, &rst);
        benchmark::DoNotOptimize(circumpolar);
        benchmark::DoNotOptimize(rst);
    }
}

void MoonPhase_Module(benchmark::State& state) {
    const auto& objects = SkyTimeObjects();
    std::size_t i = 0;
    for (auto _ : state) {
        float phase = 0.0f;
        objects[i++ & kInputMask]->get_MoonPhase(&phase);
        benchmark::DoNotOptimize(phase);
    }
}

// Age of the moon in degrees from one mean lunation and a known new moon
// (2000-01-06 18:14 UT): the simplest formula a host could write itself.
void MoonPhase_MeanLunation(benchmark::State& state) {
    const auto& in = SkyDates().starDate;
    std::size_t i = 0;
    for (auto _ : state) {
        const double lunations = (in[i++ & kInputMask] + kJulianDateMinusStarDate - 2451550.26) / 29.530588853;
        const double phase = (lunations - std::floor(lunations)) * 360.0;
        benchmark::DoNotOptimize(phase);
    }
}

void MoonPhase_Nova(benchmark::State& state) {
    const auto& in = SkyDates().starDate;
    std::size_t i = 0;
    for (auto _ : state) {
        const double phase = ln_get_lunar_phase(in[i++ & kInputMask] + kJulianDateMinusStarDate);
        benchmark::DoNotOptimize(phase);
    }
}

}  // namespace

// The module never caches a sun or moon result, so every call on these
// objects computes afresh.
const std::vector<SmartPtr<ITime>>& SkyTimeObjects() {
    static const std::vector<SmartPtr<ITime>> objects = [] {
        std::vector<SmartPtr<ITime>> made;
        made.reserve(kInputCount);
        for (double day : SkyDates().starDate) {
            made.push_back(Module().CreateTime());
            made.back()->put_StarDate(0, day);
        }
        return made;
    }();
    return objects;
}

CAL_BENCHMARK(SunTimes_Module);
CAL_BENCHMARK(SunTimes_Hdate);
CAL_BENCHMARK(SunTimes_Nova);
CAL_BENCHMARK(MoonPhase_Module);
CAL_BENCHMARK(MoonPhase_MeanLunation);
CAL_BENCHMARK(MoonPhase_Nova);

}  // namespace bench
