// The exhaustive input ranges whose results are pinned by digest
// (golden_digests.txt): every whole day count in +-12.5 million, every 16-bit
// year, every sun case from 1900 to 2100, and the edge values around them.
// The generator and the golden test walk the same sweeps, so a digest
// mismatch means some result changed, bit for bit.
#pragma once

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

#include "calendar/day_numbers.h"
#include "calendar/hebrew.h"
#include "calendar/hebrew_year.h"
#include "calendar/month_rules.h"
#include "tests/calendar/date_fields.h"
#include "time/calendar_classes.h"
#include "time/conversions.h"
#include "time/generic_calendar.h"
#include "time/lunar_days.h"
#include "time/moon_phase.h"
#include "time/sun_anomaly_terms.h"
#include "time/sun_times.h"

namespace golden {

// 64-bit FNV-1a over the exact bytes of every result, in the order added.
class Digest {
public:
    // Every not-a-number counts as one value: which sign and payload an
    // operation on not-a-number carries follows the compiler's order of
    // operands (it differs between optimised and debug builds), not the
    // arithmetic.
    template <class T>
    void Add(const T& value) {
        static_assert(std::is_trivially_copyable_v<T>);
        if constexpr (std::is_floating_point_v<T>) {
            if (std::isnan(value)) {
                AddBytes(std::numeric_limits<T>::quiet_NaN());
                return;
            }
        }
        AddBytes(value);
    }
    // One case: the count of cases is kept beside the hash.
    void Case() { ++cases_; }

    std::uint64_t Hash() const { return hash_; }
    std::int64_t Cases() const { return cases_; }

private:
    template <class T>
    void AddBytes(const T& value) {
        unsigned char bytes[sizeof(T)];
        std::memcpy(bytes, &value, sizeof(T));
        for (unsigned char b : bytes) {
            hash_ ^= b;
            hash_ *= 0x100000001b3ULL;
        }
    }

    std::uint64_t hash_ = 0xcbf29ce484222325ULL;
    std::int64_t cases_ = 0;
};

// Every field of a date record, padding excluded.
inline void AddRecord(Digest& digest, const tagDATETIME& d) {
    digest.Add(d.Day);
    digest.Add(d.Month);
    digest.Add(d.Year);
    digest.Add(d.Hour);
    digest.Add(d.Minute);
    digest.Add(d.Second);
    digest.Add(d.WeekDay);
}

// A record whose every field is set, so that fields a conversion must leave
// alone are seen to stay.
inline tagDATETIME PresetRecord() {
    tagDATETIME d;
    d.Day = 7;
    d.Month = 7;
    d.Year = 7;
    d.Hour = 1;
    d.Minute = 2;
    d.Second = 3.0f;
    d.WeekDay = 4;
    return d;
}

inline tagDATETIME Record(int year, int month, int day, int hour = 0, int minute = 0, float second = 0.0f) {
    return MakeDate(year, month, day, hour, minute, second);
}

inline double QuietNaNWithPayload(std::uint64_t payload, bool negative) {
    const std::uint64_t sign = negative ? 0x8000000000000000U : 0U;
    return std::bit_cast<double>(sign | 0x7FF8000000000000U | payload);
}

// Values where rounding, saturation or a sign is decided.
inline std::vector<double> EdgeValues() {
    constexpr double kInf = std::numeric_limits<double>::infinity();
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    std::vector<double> v = {0.0,
                             -0.0,
                             0.5,
                             -0.5,
                             0.25,
                             -0.75,
                             1.0,
                             -1.0,
                             1e-300,
                             -1e-300,
                             std::numeric_limits<double>::denorm_min(),
                             -std::numeric_limits<double>::denorm_min(),
                             2147483646.5,
                             2147483647.0,
                             2147483647.5,
                             2147483648.0,
                             -2147483647.0,
                             -2147483647.5,
                             -2147483648.0,
                             -2147483649.0,
                             1099511627776.0,
                             -1099511627776.5,
                             4503599627370495.5,
                             4503599627370496.0,
                             -4503599627370495.5,
                             -4503599627370496.0,
                             9007199254740993.0,
                             8.9e18,
                             9.0e18,
                             9.5e18,
                             -9.0e18,
                             -9.5e18,
                             1e300,
                             -1e300,
                             std::numeric_limits<double>::max(),
                             std::numeric_limits<double>::lowest(),
                             kInf,
                             -kInf,
                             kNaN,
                             -kNaN};
    for (double x : {-366.0, -365.5, -365.0, -364.5, -1.5, 1.5, 365.5, 366.0, 146097.0, 146097.5}) v.push_back(x);
    return v;
}

// Gregorian and Julian date to day number for every 16-bit year, months -2 to
// 15 and a spread of days, plus far months.
inline void DateToDayNumber(Digest& digest) {
    constexpr std::int16_t kDays[] = {-32768, -1, 0, 1, 15, 28, 29, 30, 31, 32, 366, 32767};
    for (int y = -32768; y <= 32767; ++y) {
        for (int m = -2; m <= 15; ++m) {
            for (std::int16_t day : kDays) {
                const tagDATETIME date = Record(y, m, day);
                digest.Case();
                digest.Add(GregorianToJDN(&date));
                digest.Add(JulianToJDN(&date));
                digest.Add(WesternToJDN(&date));
            }
        }
    }
    for (int month : {16, 1000, 32767, -32768}) {
        for (int year : {-5, 0, 2024}) {
            const tagDATETIME date = Record(year, month, 1);
            digest.Case();
            digest.Add(GregorianToJDN(&date));
            digest.Add(JulianToJDN(&date));
        }
    }
}

inline void AddDayNumberToDates(Digest& digest, double x) {
    digest.Case();
    tagDATETIME d = PresetRecord();
    JDNtoGregorian(x, &d);
    AddRecord(digest, d);
    d = PresetRecord();
    JDNtoJulian(x, &d);
    AddRecord(digest, d);
    d = PresetRecord();
    JDNtoWestern(x, &d);
    AddRecord(digest, d);
}

// Day number to Gregorian, Julian and Western date for every whole day number
// in +-12.5 million (every 16-bit year and beyond), a half and a quarter day
// beside every seventh, and the edge values.
inline void DayNumberToDate(Digest& digest) {
    for (int n = -12'500'000; n <= 12'500'000; ++n) {
        AddDayNumberToDates(digest, n);
        if (n % 7 == 0) {
            AddDayNumberToDates(digest, n + 0.5);
            AddDayNumberToDates(digest, n - 0.25);
        }
    }
    for (double x : EdgeValues()) AddDayNumberToDates(digest, x);
}

// The year-day inverse over every day a 16-bit month can reach, both year kinds.
inline void YearDayInverse(Digest& digest) {
    for (bool leap : {false, true}) {
        std::vector<int> days;
        for (int n = -40'000; n <= 983'400; ++n) days.push_back(n);
        for (int n : {std::numeric_limits<int>::min(), 2'000'000, std::numeric_limits<int>::max()}) days.push_back(n);
        for (int n : days) {
            std::int16_t day = 0;
            std::int16_t month = 0;
            cal::SetYearDay(n, leap, &day, &month);
            digest.Case();
            digest.Add(day);
            digest.Add(month);
        }
    }
}

// Time of day to and from a fraction: the fraction of every hour and minute
// pair (usual and far) with a spread of seconds and zone offsets, and the
// split of edge values and a dense run of day numbers.
inline void TimeOfDay(Digest& digest) {
    const float seconds[] = {0.0f,
                             -0.0f,
                             0.5f,
                             59.999996f,
                             -1.0f,
                             3.25e7f,
                             std::numeric_limits<float>::quiet_NaN(),
                             std::numeric_limits<float>::infinity()};
    std::vector<int> hours;
    for (int h = -30; h <= 60; ++h) hours.push_back(h);
    hours.insert(hours.end(), {-32768, 32767, 1000});
    std::vector<int> minutes;
    for (int m = -70; m <= 130; ++m) minutes.push_back(m);
    minutes.insert(minutes.end(), {-32768, 32767, 1439, 1440});
    for (int h : hours) {
        for (int m : minutes) {
            for (float s : seconds) {
                const tagDATETIME date = Record(2024, 6, 21, h, m, s);
                digest.Case();
                digest.Add(GregorianToJDN(&date));
                digest.Add(TimeToJDN(&date, 0));
                digest.Add(TimeToJDN(&date, -5));
            }
        }
    }
    std::vector<double> values = EdgeValues();
    for (int i = -20000; i <= 20000; ++i) values.push_back(738000.0 + i / 7.3);
    for (double x : values) {
        tagDATETIME d = PresetRecord();
        JDNtoTime(x, &d);
        digest.Case();
        AddRecord(digest, d);
    }
}

// Calendar classes: year-day, month and year lengths and elapsed days of the
// Gregorian and Julian classes, every 16-bit year, months -1 to 14.
inline void CalendarClasses(Digest& digest) {
    for (int y = -32768; y <= 32767; ++y) {
        for (int m = -1; m <= 14; ++m) {
            CGregorian g;
            static_cast<tagDATETIME&>(g) = Record(y, m, 15);
            CJulian j;
            static_cast<tagDATETIME&>(j) = Record(y, m, 15);
            digest.Case();
            digest.Add(g.GetYearDay());
            digest.Add(g.DaysInMonth(m));
            digest.Add(g.DaysInYear());
            digest.Add(g.GetEllapsedDays());
            digest.Add(j.GetYearDay());
            digest.Add(j.DaysInMonth(m));
            digest.Add(j.DaysInYear());
            digest.Add(j.GetEllapsedDays());
            AddRecord(digest, j);  // year 0 is left at -1
        }
    }
    for (double x : EdgeValues()) {
        CGregorian g;
        static_cast<tagDATETIME&>(g) = PresetRecord();
        g.SetEllapsedDays(x);
        CJulian j;
        static_cast<tagDATETIME&>(j) = PresetRecord();
        j.SetEllapsedDays(x);
        digest.Case();
        AddRecord(digest, g);
        AddRecord(digest, j);
    }
}

inline constexpr std::int16_t kHebrewFlags[] = {0, 1, 2, -1};

// Hebrew year and month lengths for every 16-bit year under four flags, and
// the coarse date-to-day-number count for every year.
inline void HebrewYears(Digest& digest) {
    for (const std::int16_t flag : kHebrewFlags) {
        for (int y = -32768; y <= 32767; ++y) {
            CHebrew h;
            h.Year = static_cast<std::int16_t>(y);
            h.flag = flag;
            short postponement = -7;
            digest.Case();
            digest.Add(h.DaysInYear(static_cast<short>(y), &postponement));
            digest.Add(postponement);
            digest.Add(h.DaysInYear(static_cast<short>(y), nullptr));
            for (int month = -1; month <= 14; ++month) digest.Add(h.DaysInMonth(month, 0));
            const tagDATETIME date = Record(y, 5, 17);
            digest.Add(HebrewToJDN(&date, flag));
            digest.Add(LunarCalendarDays(17, static_cast<std::int16_t>(y), flag != 0));
        }
    }
}

inline void AddHebrewDate(Digest& digest, std::int16_t flag, double days) {
    CHebrew h;
    static_cast<tagDATETIME&>(h) = PresetRecord();
    h.flag = flag;
    h.SetEllapsedDays(days, 0);
    digest.Case();
    AddRecord(digest, h);
    digest.Add(h.flag);
}

// Day count to Hebrew date: every day of the tabulated years and 1500 beyond
// each end, 1600 days around the years where the 16-bit year wraps, a stride
// through +-40 million, fractions and values outside the day range, and the
// conversion through the epoch offset.
inline void HebrewDates(Digest& digest) {
    for (const std::int16_t flag : {std::int16_t{0}, std::int16_t{1}}) {
        const std::int64_t first = cal::StartOfHebrewYear(3700, flag).Day() - 1500;
        const std::int64_t last = cal::StartOfHebrewYear(7200, flag).Day() + 1500;
        for (std::int64_t day = first; day <= last; ++day) AddHebrewDate(digest, flag, static_cast<double>(day));
    }
    const std::int64_t years[] = {3700 + 65536, 7199 + 65536, 3700 - 65536, 7199 - 65536, 32767, -32768, 0, 1};
    for (const std::int16_t flag : kHebrewFlags) {
        for (const std::int64_t year : years) {
            const std::int64_t start = cal::StartOfHebrewYear(year, flag).Day();
            for (std::int64_t day = start - 800; day <= start + 800; ++day)
                AddHebrewDate(digest, flag, static_cast<double>(day));
        }
        for (std::int64_t day = -40000000; day <= 40000000; day += 997)
            AddHebrewDate(digest, flag, static_cast<double>(day));
        for (double days : EdgeValues()) AddHebrewDate(digest, flag, days);
        for (double days = 1351000.0; days < 1352000.0; days += 0.375) AddHebrewDate(digest, flag, days);
    }
    for (const short flag : {short{0}, short{1}, short{5}, short{-3}}) {
        for (double jdn = -100000.0; jdn < 2000000.0; jdn += 3.7) {
            tagDATETIME d = PresetRecord();
            JDNtoHebrew(jdn, &d, flag);
            digest.Case();
            AddRecord(digest, d);
        }
    }
}

// Star date of 1 January of a Gregorian year, from a count independent of
// the module's.
inline double NewYearStarDate(std::int64_t year) {
    const std::int64_t y = year - 1;
    const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
    const std::int64_t yoe = y - era * 400;                          // [0, 399]
    const std::int64_t doe = yoe * 365 + yoe / 4 - yoe / 100 + 306;  // [0, 146096]: 1 March of y to 1 January of year
    return static_cast<double>(era * 146097 + doe - 719468 + 719165);
}

inline void AddSolarEvents(Digest& digest, double starDate, double newYearNoon, double longitude, double latitude) {
    const SolarEvents e = ComputeSolarEvents(starDate, newYearNoon, longitude, latitude);
    digest.Case();
    digest.Add(e.dayCount);
    digest.Add(e.dayIndex);
    digest.Add(e.transit);
    digest.Add(e.meanAnomaly);
    digest.Add(e.equationOfCentre);
    digest.Add(e.eclipticLongitude);
    digest.Add(e.declination);
    digest.Add(e.hourAngle);
    digest.Add(e.sunrise);
    digest.Add(e.sunset);
}

// Sunrise and sunset with every intermediate step: every day from 1900 to
// 2100 at five longitudes and eleven latitudes (polar ones included), every
// mean anomaly reached around 2024, and non-finite and huge inputs.
inline void SunTimes(Digest& digest) {
    constexpr std::array kLongitudes = {83.045, 0.0, -0.0, -179.99, 151.2};
    constexpr std::array kLatitudes = {43.3, 0.0, -0.0, 66.56, -66.56, 78.2, -78.2, 89.0, -89.0, 90.0, -90.0};
    constexpr std::array kDayFractions = {0.0, 0.25, 0.5, 0.999};
    for (std::int64_t year = 1900; year <= 2100; ++year) {
        const double newYear = NewYearStarDate(year);
        const auto days = static_cast<std::size_t>(NewYearStarDate(year + 1) - newYear);
        for (std::size_t day = 0; day < days; ++day) {
            const double starDate = newYear + static_cast<double>(day) + kDayFractions[day % kDayFractions.size()];
            for (const double longitude : kLongitudes)
                for (const double latitude : kLatitudes)
                    AddSolarEvents(digest, starDate, newYear + 0.5, longitude, latitude);
        }
    }
    const double newYear2024 = NewYearStarDate(2024);
    for (int offset = -1300; offset <= 1000; ++offset)
        for (const double longitude : kLongitudes)
            for (const double latitude : kLatitudes)
                AddSolarEvents(digest, newYear2024 + offset, newYear2024 + 0.5, longitude, latitude);
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    const std::array inputs = {
        std::numeric_limits<double>::quiet_NaN(),
        QuietNaNWithPayload(0x12345, false),
        QuietNaNWithPayload(0x54321, true),
        kInfinity,
        -kInfinity,
        std::numeric_limits<double>::max(),
        std::numeric_limits<double>::lowest(),
        std::numeric_limits<double>::denorm_min(),
        1e300,
        -1e300,
        2147483647.5,
        2147483648.0,
        -2147483648.5,
        -2147483649.0,
        0.0,
        -0.0,
        newYear2024 + 172.0,
        newYear2024 + 0.5,
        43.3,
        -83.045,
    };
    for (const double starDate : inputs)
        for (const double newYearNoon : inputs)
            for (const double longitude : inputs)
                for (const double latitude : inputs) AddSolarEvents(digest, starDate, newYearNoon, longitude, latitude);
    for (std::int32_t m = -(kMeanAnomalyLimit - 1); m < kMeanAnomalyLimit; ++m) {
        const AnomalyTerms t = TabulatedAnomalyTerms(m);
        digest.Case();
        digest.Add(t.equationOfCentre);
        digest.Add(t.eclipticLongitude);
        digest.Add(t.declination);
        digest.Add(t.sinDeclination);
        digest.Add(t.cosDeclination);
        digest.Add(t.transitSinM);
        digest.Add(t.transitSin2Lambda);
    }
}

// Moon phase over 2 million days around 2000 at a tenth of a day, and the
// edge values.
inline void MoonPhases(Digest& digest) {
    for (int i = -10'000'000; i <= 10'000'000; i += 7) {
        digest.Case();
        digest.Add(MoonPhaseDegrees(i / 10.0));
    }
    for (double x : EdgeValues()) {
        digest.Case();
        digest.Add(MoonPhaseDegrees(x));
    }
}

struct Sweep {
    const char* name;
    void (*run)(Digest&);
};

inline constexpr Sweep kSweeps[] = {
    {"date_to_day_number", DateToDayNumber},
    {"day_number_to_date", DayNumberToDate},
    {"year_day_inverse", YearDayInverse},
    {"time_of_day", TimeOfDay},
    {"calendar_classes", CalendarClasses},
    {"hebrew_years", HebrewYears},
    {"hebrew_dates", HebrewDates},
    {"sun_times", SunTimes},
    {"moon_phases", MoonPhases},
};

}  // namespace golden
