// A month laid out like `cal`: weekdays as columns, a moon glyph on each day.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace timetool {

struct MonthGridDay {
    int weekday = 0;          // [0, 6], 0 = Sunday
    std::string_view glyph;   // one terminal glyph, two columns wide (a one-byte glyph is padded)
};

// Title centred over the grid, the weekday header "Su Mo ..." and one line
// per week. Day d of the month is days[d - 1]; a day whose weekday does not
// follow its predecessor's starts a new line at its own column. Lines carry
// no trailing blanks and each ends in a newline.
std::string RenderMonthGrid(std::string_view title, const std::vector<MonthGridDay>& days);

}  // namespace timetool
