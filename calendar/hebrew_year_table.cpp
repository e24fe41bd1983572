#include "calendar/hebrew_year_table.h"

#include "calendar/hebrew_months.h"
#include "calendar/hebrew_year.h"

namespace cal {
namespace {

constexpr HebrewYearTable MakeHebrewYearTable() {
    HebrewYearTable table;
    for (int flag = 0; flag < 2; ++flag) {
        for (int i = 0; i < kHebrewTableYears; ++i) {
            const std::int64_t year = kHebrewTableFirstYear + i;
            const HebrewYearStart start = StartOfHebrewYear(year, flag);
            const int length = HebrewYearLength(year, flag);
            HebrewYearEntry& entry = table.entry[flag][i];
            entry.start = static_cast<std::int32_t>(start.Day());
            entry.length = static_cast<std::int16_t>(length);
            entry.postponement = static_cast<std::uint8_t>(start.postponement);
            entry.monthShape = static_cast<std::uint8_t>(HebrewMonthShape(length, HebrewLeapYear(year, flag)));
        }
    }
    return table;
}

}  // namespace

constexpr HebrewYearTable kHebrewYearTable = MakeHebrewYearTable();

// The day-to-date search reads several starts at once and relies on this.
constexpr bool StartsIncrease() {
    for (const auto& row : kHebrewYearTable.entry)
        for (int i = 1; i < kHebrewTableYears; ++i)
            if (row[i].start <= row[i - 1].start) return false;
    return true;
}
static_assert(StartsIncrease(), "year starts must increase through the table");

}  // namespace cal
