// Date conversions: the module through ITime beside date.h, ICU and libhdate.
#include <benchmark/benchmark.h>
#include <hdate.h>
#include <unicode/calendar.h>
#include <unicode/gregocal.h>
#include <unicode/timezone.h>

#include <date/date.h>
#include <date/julian.h>

#include <memory>

#include "inputs.h"
#include "module_loader.h"
#include "registration.h"

namespace bench {
namespace {

constexpr double kMillisecondsPerDay = 86400000.0;

SmartPtr<ITime> TimeOfKind(std::int32_t kind) {
    SmartPtr<ITime> time = Module().CreateTime();
    time->put_Calendar(kind);
    return time;
}

// Module: date → day number, through SetDate and get_StarDate.
void ToDayNumber(benchmark::State& state, std::int32_t kind, const CivilDate* dates) {
    SmartPtr<ITime> time = TimeOfKind(kind);
    ITime* t = time.get();
    std::size_t i = 0;
    for (auto _ : state) {
        const CivilDate& d = dates[i++ & kInputMask];
        double day = 0.0;
        t->SetDate(d.day, d.month, d.year);
        t->get_StarDate(0, &day);
        benchmark::DoNotOptimize(day);
    }
}

// Module: day number → date, through put_StarDate and GetDate.
void FromDayNumber(benchmark::State& state, std::int32_t kind) {
    SmartPtr<ITime> time = TimeOfKind(kind);
    ITime* t = time.get();
    const auto& in = Dates().starDate;
    std::size_t i = 0;
    for (auto _ : state) {
        short day = 0, month = 0, year = 0;
        t->put_StarDate(0, in[i++ & kInputMask]);
        t->GetDate(&day, &month, &year);
        benchmark::DoNotOptimize(day);
        benchmark::DoNotOptimize(month);
        benchmark::DoNotOptimize(year);
    }
}

void GregorianToDay_Module(benchmark::State& state) { ToDayNumber(state, 0, Dates().gregorian.data()); }

void GregorianToDay_DateH(benchmark::State& state) {
    const auto& in = Dates().gregorian;
    std::size_t i = 0;
    for (auto _ : state) {
        const CivilDate& d = in[i++ & kInputMask];
        const date::sys_days day{date::year{d.year} / d.month / d.day};
        benchmark::DoNotOptimize(day);
    }
}

// ICU calendars work in milliseconds of UTC; the zone is GMT so no offset
// lookup enters, and the Gregorian one is proleptic like the module's.
std::unique_ptr<icu::GregorianCalendar> IcuGregorian() {
    UErrorCode status = U_ZERO_ERROR;
    auto calendar = std::make_unique<icu::GregorianCalendar>(icu::TimeZone::getGMT()->clone(), status);
    calendar->setGregorianChange(-1.0e300, status);
    return calendar;
}

void GregorianToDay_Icu(benchmark::State& state) {
    auto calendar = IcuGregorian();
    const auto& in = Dates().gregorian;
    std::size_t i = 0;
    for (auto _ : state) {
        const CivilDate& d = in[i++ & kInputMask];
        UErrorCode status = U_ZERO_ERROR;
        calendar->clear();
        calendar->set(d.year, d.month - 1, d.day);
        const double day = calendar->getTime(status) / kMillisecondsPerDay;
        benchmark::DoNotOptimize(day);
    }
}

void DayToGregorian_Module(benchmark::State& state) { FromDayNumber(state, 0); }

void DayToGregorian_DateH(benchmark::State& state) {
    const auto& in = Dates().daysSince1970;
    std::size_t i = 0;
    for (auto _ : state) {
        const date::year_month_day ymd{date::sys_days{date::days{in[i++ & kInputMask]}}};
        benchmark::DoNotOptimize(ymd);
    }
}

// ICU: day number → date of the calendar's own kind, read field by field.
void IcuFromDayNumber(benchmark::State& state, icu::Calendar& calendar) {
    const auto& in = Dates().daysSince1970;
    std::size_t i = 0;
    for (auto _ : state) {
        UErrorCode status = U_ZERO_ERROR;
        calendar.setTime(in[i++ & kInputMask] * kMillisecondsPerDay, status);
        const int32_t day = calendar.get(UCAL_DATE, status);
        const int32_t month = calendar.get(UCAL_MONTH, status);
        const int32_t year = calendar.get(UCAL_EXTENDED_YEAR, status);
        benchmark::DoNotOptimize(day);
        benchmark::DoNotOptimize(month);
        benchmark::DoNotOptimize(year);
    }
}

void DayToGregorian_Icu(benchmark::State& state) { IcuFromDayNumber(state, *IcuGregorian()); }

// Julian, both directions per iteration.
void JulianBoth_Module(benchmark::State& state) {
    SmartPtr<ITime> time = TimeOfKind(1);
    ITime* t = time.get();
    const auto& dates = Dates().julian;
    const auto& days = Dates().starDate;
    std::size_t i = 0;
    for (auto _ : state) {
        const std::size_t k = i++ & kInputMask;
        const CivilDate& d = dates[k];
        double day = 0.0;
        t->SetDate(d.day, d.month, d.year);
        t->get_StarDate(0, &day);
        benchmark::DoNotOptimize(day);
        short dd = 0, mm = 0, yy = 0;
        t->put_StarDate(0, days[(k + 1) & kInputMask]);
        t->GetDate(&dd, &mm, &yy);
        benchmark::DoNotOptimize(dd);
        benchmark::DoNotOptimize(mm);
        benchmark::DoNotOptimize(yy);
    }
}

void JulianBoth_DateH(benchmark::State& state) {
    const auto& dates = Dates().julian;
    const auto& days = Dates().daysSince1970;
    std::size_t i = 0;
    for (auto _ : state) {
        const std::size_t k = i++ & kInputMask;
        const CivilDate& d = dates[k];
        const date::sys_days day{julian::year{d.year} / d.month / d.day};
        benchmark::DoNotOptimize(day);
        const julian::year_month_day ymd{date::sys_days{date::days{days[(k + 1) & kInputMask]}}};
        benchmark::DoNotOptimize(ymd);
    }
}

void DayToHebrew_Module(benchmark::State& state) { FromDayNumber(state, 4); }

void DayToHebrew_Hdate(benchmark::State& state) {
    const auto& in = Dates().julianDayNumber;
    std::size_t i = 0;
    for (auto _ : state) {
        int day = 0, month = 0, year = 0, tishrey1 = 0, nextTishrey1 = 0;
        hdate_jd_to_hdate(in[i++ & kInputMask], &day, &month, &year, &tishrey1, &nextTishrey1);
        benchmark::DoNotOptimize(day);
        benchmark::DoNotOptimize(month);
        benchmark::DoNotOptimize(year);
    }
}

void DayToHebrew_Icu(benchmark::State& state) {
    // ICU's HebrewCalendar class is reached through the locale's calendar key.
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Calendar> calendar(
        icu::Calendar::createInstance(icu::TimeZone::getGMT()->clone(), icu::Locale("und@calendar=hebrew"), status));
    if (U_FAILURE(status) || !calendar) {
        state.SkipWithError("ICU has no Hebrew calendar");
        return;
    }
    IcuFromDayNumber(state, *calendar);
}

void HebrewToDay_Module(benchmark::State& state) { ToDayNumber(state, 4, Dates().hebrewModule.data()); }

void HebrewToDay_Hdate(benchmark::State& state) {
    const auto& in = Dates().hebrewHdate;
    std::size_t i = 0;
    for (auto _ : state) {
        const CivilDate& d = in[i++ & kInputMask];
        int tishrey1 = 0, nextTishrey1 = 0;
        const int day = hdate_hdate_to_jd(d.day, d.month, d.year, &tishrey1, &nextTishrey1);
        benchmark::DoNotOptimize(day);
    }
}

}  // namespace

CAL_BENCHMARK(GregorianToDay_Module);
CAL_BENCHMARK(GregorianToDay_DateH);
CAL_BENCHMARK(GregorianToDay_Icu);
CAL_BENCHMARK(DayToGregorian_Module);
CAL_BENCHMARK(DayToGregorian_DateH);
CAL_BENCHMARK(DayToGregorian_Icu);
CAL_BENCHMARK(JulianBoth_Module);
CAL_BENCHMARK(JulianBoth_DateH);
CAL_BENCHMARK(DayToHebrew_Module);
CAL_BENCHMARK(DayToHebrew_Hdate);
CAL_BENCHMARK(DayToHebrew_Icu);
CAL_BENCHMARK(HebrewToDay_Module);
CAL_BENCHMARK(HebrewToDay_Hdate);

}  // namespace bench
