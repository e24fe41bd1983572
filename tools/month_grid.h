// A month laid out like `cal`: weekdays as columns, a moon glyph on each day.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace timetool {

struct MonthGridDay {
    int day = 0;             // the number printed, [1, 99]
    int weekday = 0;         // [0, 6], 0 = Sunday
    std::string_view glyph;  // one terminal glyph, two columns wide (a one-byte glyph is padded)
};

// Title centred over the grid, the weekday header "Su Mo ..." and one line
// per week, days in the order given (a month may skip day numbers, as at a
// calendar reform). A day whose weekday is not after its predecessor's
// starts a new line at its own column. Lines carry no trailing blanks and
// each ends in a newline.
std::string RenderMonthGrid(std::string_view title, const std::vector<MonthGridDay>& days);

}  // namespace timetool
