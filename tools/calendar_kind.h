// KIND: the calendar systems of the Time component, by name and number.
#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace timetool {

struct CalendarKind {
    int number;              // the Time component's calendar kind
    std::string_view key;    // command-line and JSON name
    std::string_view title;  // label in tables
    std::string_view alias;  // a second accepted name, or empty
};

// The seven kinds in number order.
std::span<const CalendarKind> CalendarKinds();

// A name (case-insensitive) or a number 0 to 6; nothing for anything else.
std::optional<int> ParseCalendarKind(std::string_view text);

// The row of a kind number in [0, 6].
const CalendarKind& CalendarKindInfo(int number);

}  // namespace timetool
