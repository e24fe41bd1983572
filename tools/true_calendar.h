// The calendars as people use them, over the star day: the whole star date
// of a day (1 = 1 January AD 1 of the Julian calendar). Years are
// astronomical (0 = 1 BC, -1 = 2 BC). Gregorian and Julian come from the
// date library; the Hebrew year start is the arithmetic calendar's own rule
// (molad of Tishri with its four postponements), so month lengths and the
// first day of a Hebrew month need no search.
#pragma once

#include <cstdint>
#include <optional>

namespace timetool {

using StarDay = std::int64_t;

struct CivilDate {
    int year = 0;   // astronomical
    int month = 0;  // [1, 12]; Hebrew [1, 13], 1 = Nisan, 7 = Tishri
    int day = 0;    // [1, 31]

    friend bool operator==(const CivilDate&, const CivilDate&) = default;
};

// Years every calendar line can hold: the date library's year type and the
// Time component's 16-bit year field share this range.
inline constexpr int kMinYear = -32767;
inline constexpr int kMaxYear = 32767;

// 1970-01-01 (Gregorian), the date library's day 0.
inline constexpr StarDay kUnixEpochStarDay = 719165;
// 15 October 1582, the first Gregorian day of the Western calendar.
inline constexpr StarDay kWesternReformStarDay = 577738;
// 1 Tishri AM 1 (7 October 3761 BC, Julian).
inline constexpr StarDay kHebrewEpochStarDay = -1373425;

// Proleptic Gregorian and proleptic Julian calendars, years kMinYear to
// kMaxYear. The date-to-day functions expect a valid date.
CivilDate GregorianOfDay(StarDay day);
StarDay DayOfGregorian(const CivilDate& date);
CivilDate JulianOfDay(StarDay day);
StarDay DayOfJulian(const CivilDate& date);
int GregorianMonthLength(int year, int month);
int JulianMonthLength(int year, int month);

// Julian up to 4 October 1582, Gregorian from 15 October 1582.
CivilDate WesternOfDay(StarDay day);
StarDay DayOfWestern(const CivilDate& date);
// True for 5 to 14 October 1582, the days the reform skipped.
bool InWesternReformGap(const CivilDate& date);

// The arithmetic Hebrew calendar, years from 1.
bool HebrewLeapYear(int year);
int HebrewMonthsInYear(int year);
StarDay HebrewNewYearDay(int year);  // 1 Tishri
int HebrewYearLength(int year);      // 353 to 355 or 383 to 385
int HebrewMonthLength(int year, int month);
StarDay DayOfHebrew(const CivilDate& date);
// The Hebrew date of a day from 1 Tishri 1 on; nothing before it.
std::optional<CivilDate> HebrewOfDay(StarDay day);

// 0 = Sunday.
int WeekdayOfDay(StarDay day);

// The days timetool shows: proleptic Gregorian years kMinYear to kMaxYear.
StarDay FirstShownDay();  // 1 January -32767
StarDay LastShownDay();   // 31 December 32767
bool IsShownDay(StarDay day);

// The kinds with an outside truth: Gregorian (0), Julian (1), Western (2)
// and Hebrew (4). Kinds 3, 5 and 6 are the module's own calendars.
bool HasTrueCalendar(int kind);
// The date of a shown day in a kind with an outside truth; nothing for a
// Hebrew day before the epoch or a year beyond kMaxYear.
std::optional<CivilDate> TrueDateOfDay(int kind, StarDay day);
// The day of a valid date of such a kind.
StarDay DayOfTrueDate(int kind, const CivilDate& date);

// Month and year lengths of a valid date of such a kind (the Western
// October 1582 has 21 days, its year 355).
struct CalendarLengths {
    int daysInMonth = 0;
    int monthsInYear = 0;
    int daysInYear = 0;
};
CalendarLengths TrueLengths(int kind, const CivilDate& date);

}  // namespace timetool
