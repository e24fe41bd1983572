// The readable golden table (golden_values.txt): one line per case, the
// operation's name, its inputs, "->" and its results. The generator prints
// the results; the golden test reads the inputs back and checks every result
// bit for bit (not-a-number by kind only, its payload is not printed).
#pragma once

#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "calendar/day_numbers.h"
#include "calendar/hebrew.h"
#include "golden_sweeps.h"
#include "time/conversions.h"
#include "time/lunar_days.h"
#include "time/moon_phase.h"
#include "time/sun_times.h"

namespace golden {

using Values = std::vector<double>;

inline Values RecordDate(const tagDATETIME& d) { return {double(d.Day), double(d.Month), double(d.Year)}; }
inline Values RecordTime(const tagDATETIME& d) { return {double(d.Hour), double(d.Minute), double(d.Second)}; }
inline Values RecordAll(const tagDATETIME& d) {
    return {double(d.Day),    double(d.Month),  double(d.Year),   double(d.Hour),
            double(d.Minute), double(d.Second), double(d.WeekDay)};
}

struct Operation {
    const char* name;
    std::size_t inputs;
    Values (*run)(const Values& in);
};

inline tagDATETIME DateOfInputs(const Values& in, std::size_t first) {
    return Record(int(in[first]), int(in[first + 1]), int(in[first + 2]));
}

inline constexpr Operation kOperations[] = {
    {"gregorian_to_jdn", 6,
     [](const Values& in) {
         const tagDATETIME d = Record(int(in[0]), int(in[1]), int(in[2]), int(in[3]), int(in[4]), float(in[5]));
         return Values{GregorianToJDN(&d)};
     }},
    {"jdn_to_gregorian", 1,
     [](const Values& in) {
         tagDATETIME d = PresetRecord();
         JDNtoGregorian(in[0], &d);
         return RecordAll(d);
     }},
    {"julian_to_jdn", 3,
     [](const Values& in) {
         const tagDATETIME d = DateOfInputs(in, 0);
         return Values{JulianToJDN(&d)};
     }},
    {"jdn_to_julian", 1,
     [](const Values& in) {
         tagDATETIME d = PresetRecord();
         JDNtoJulian(in[0], &d);
         return RecordAll(d);
     }},
    {"western_to_jdn", 3,
     [](const Values& in) {
         const tagDATETIME d = DateOfInputs(in, 0);
         return Values{WesternToJDN(&d)};
     }},
    {"jdn_to_western", 1,
     [](const Values& in) {
         tagDATETIME d = PresetRecord();
         JDNtoWestern(in[0], &d);
         return RecordAll(d);
     }},
    {"time_to_jdn", 4,
     [](const Values& in) {
         const tagDATETIME d = Record(2024, 1, 1, int(in[0]), int(in[1]), float(in[2]));
         return Values{TimeToJDN(&d, int(in[3]))};
     }},
    {"jdn_to_time", 1,
     [](const Values& in) {
         tagDATETIME d = PresetRecord();
         JDNtoTime(in[0], &d);
         return RecordAll(d);
     }},
    {"hebrew_to_jdn", 4,
     [](const Values& in) {
         const tagDATETIME d = DateOfInputs(in, 1);
         return Values{HebrewToJDN(&d, short(in[0]))};
     }},
    {"jdn_to_hebrew", 2,
     [](const Values& in) {
         tagDATETIME d = PresetRecord();
         JDNtoHebrew(in[1], &d, short(in[0]));
         return RecordAll(d);
     }},
    {"hebrew_year", 2,
     [](const Values& in) {
         CHebrew h;
         h.flag = std::int16_t(in[0]);
         short postponement = -7;
         const short length = h.DaysInYear(short(in[1]), &postponement);
         return Values{double(length), double(postponement)};
     }},
    {"hebrew_month", 3,
     [](const Values& in) {
         CHebrew h;
         h.flag = std::int16_t(in[0]);
         h.Year = std::int16_t(in[1]);
         return Values{double(h.DaysInMonth(int(in[2]), 0))};
     }},
    {"lunar_days", 3,
     [](const Values& in) {
         return Values{LunarCalendarDays(std::int16_t(in[0]), std::int16_t(in[1]), in[2] != 0.0)};
     }},
    {"sun_times", 4,
     [](const Values& in) {
         const SolarEvents e = ComputeSolarEvents(in[0], in[1], in[2], in[3]);
         return Values{e.sunrise, e.sunset};
     }},
    {"moon_phase", 1, [](const Values& in) { return Values{MoonPhaseDegrees(in[0])}; }},
};

struct Case {
    const char* operation;
    Values inputs;
};

inline std::vector<Case> Cases() {
    std::vector<Case> cases;
    const auto add = [&](const char* op, Values in) { cases.push_back(Case{op, std::move(in)}); };
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    constexpr double kInf = std::numeric_limits<double>::infinity();
    // Worked values, BC dates, year 0, century years, month 13, far fields.
    const Values dates[] = {
        {2000, 1, 1},   {1, 1, 1},     {-1, 12, 31},   {-1, 12, 30},   {0, 1, 1},     {0, 12, 31},    {1582, 10, 15},
        {1582, 10, 4},  {1582, 10, 3}, {1582, 10, 10}, {1900, 12, 31}, {1900, 13, 1}, {2100, 12, 31}, {2000, 12, 31},
        {2000, 13, 1},  {1970, 1, 1},  {2024, 2, 29},  {2023, 2, 29},  {2024, 0, 10}, {2024, 14, 1},  {2024, -1, 5},
        {2024, 1, 0},   {2024, 1, -5}, {-5, 1, 1},     {-4, 2, 29},    {-4713, 1, 1}, {-3761, 10, 7}, {32767, 12, 31},
        {-32768, 1, 1}, {4, 12, 31},   {2024, 6, 21},  {1, 12, 31},    {-1, 1, 1},    {400, 12, 31},  {2024, 32767, 1}};
    for (const Values& d : dates) {
        add("gregorian_to_jdn", {d[0], d[1], d[2], 0, 0, 0});
        add("julian_to_jdn", d);
        add("western_to_jdn", d);
    }
    add("gregorian_to_jdn", {2000, 1, 1, 12, 0, 0});
    add("gregorian_to_jdn", {2024, 6, 21, 17, 54, 30.5});
    add("gregorian_to_jdn", {2024, 6, 21, 25, 99, 75});
    add("gregorian_to_jdn", {2024, 6, 21, -6, 0, 0});
    const double dayNumbers[] = {730122.75,   730122.0,     693962.0,     693961.0,      146099.0, 3.0,      2.0,
                                 1.0,         2.5,          0.5,          0.0,           -0.0,     -0.25,    -1.0,
                                 -365.0,      -366.0,       -367.0,       -730.0,        -731.0,   1461.0,   577736.0,
                                 577737.0,    577738.0,     577737.5,     719165.0,      739060.0, 766645.0, 12500000.0,
                                 -12500000.0, 2147483647.0, 2147483648.0, -2147483649.0, 1e300,    -1e300,   kInf,
                                 -kInf,       kNaN,         0.1};
    for (double x : dayNumbers) {
        add("jdn_to_gregorian", {x});
        add("jdn_to_julian", {x});
        add("jdn_to_western", {x});
        add("jdn_to_time", {x});
    }
    for (const Values& t : {Values{0, 0, 0, 0}, Values{12, 0, 0, 0}, Values{12, 0, 0, 5}, Values{23, 59, 59.999996, 0},
                            Values{25, 99, 75, 0}, Values{-1, -1, -1, 0}, Values{0, 0, 0, 24}}) {
        add("time_to_jdn", t);
    }
    // Hebrew: the epoch, year edges, the double-counted cycle, both flags
    // and flags other than 0 and 1.
    for (double flag : {0.0, 1.0, 2.0, -1.0}) {
        for (const Values& d : {Values{5785, 7, 1}, Values{5785, 1, 1}, Values{5785, 13, 1}, Values{5784, 13, 29},
                                Values{19, 1, 1}, Values{20, 1, 1}, Values{1, 7, 1}, Values{0, 7, 1}, Values{-1, 7, 1},
                                Values{-19, 7, 1}, Values{32767, 7, 1}, Values{-32768, 7, 1}}) {
            add("hebrew_to_jdn", {flag, d[0], d[1], d[2]});
        }
        for (double x : {739060.0, 739523.0, 739524.0, -1373427.0, -1373428.0, 0.0, 1.0, 2112591.0, 1e7, -1e7, kNaN,
                         kInf, -kInf}) {
            add("jdn_to_hebrew", {flag, x});
        }
        for (double y : {1.0, 0.0, -1.0, 3700.0, 3699.0, 7199.0, 7200.0, 5784.0, 5785.0, 5790.0, 32767.0, -32768.0}) {
            add("hebrew_year", {flag, y});
        }
        for (double y : {5784.0, 5785.0, 5786.0, 0.0, -19.0}) {
            for (double m : {-1.0, 0.0, 1.0, 8.0, 9.0, 12.0, 13.0, 14.0}) add("hebrew_month", {flag, y, m});
        }
    }
    for (double shifted : {0.0, 1.0}) {
        for (double y : {5785.0, 19.0, 20.0, 1.0, 0.0, -1.0, -18.0, -19.0, -20.0}) add("lunar_days", {17, y, shifted});
    }
    // Sun: the worked example, polar day and night, the year's first and
    // last days, non-finite input.
    add("sun_times", {739060.0, 738888.5, 83.045, 43.3});
    add("sun_times", {739060.0, 738888.5, 83.045, 89.0});
    add("sun_times", {738888.0, 738888.5, 83.045, 43.3});
    add("sun_times", {739253.0, 738888.5, 83.045, 43.3});
    add("sun_times", {739253.0, 738888.5, -151.2, -33.9});
    add("sun_times", {739060.0, 738888.5, kNaN, 43.3});
    add("sun_times", {kInf, 738888.5, 83.045, 43.3});
    // Moon: the worked values, the reference day and the days around it.
    for (double d :
         {8938.0, 0.0, -0.0, -1.0, 1.0, 8776.498, 8790.746, -9.27, 29.5305888531, -29.5305888531, kNaN, 1e12}) {
        add("moon_phase", {d});
    }
    return cases;
}

}  // namespace golden
