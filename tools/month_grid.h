// A month laid out like `cal`: weekdays as columns, optionally a moon glyph
// on each day; and grids set side by side, as a year or three months.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace timetool {

struct MonthGridDay {
    int day = 0;             // the number printed, [1, 99]
    int weekday = 0;         // [0, 6], 0 = Sunday
    std::string_view glyph;  // one terminal glyph, two columns wide (a one-byte glyph is padded)
};

struct MonthGridLayout {
    int firstWeekday = 0;  // the weekday of the first column: 0 = Sunday, 1 = Monday
    bool glyphs = true;    // false: day numbers only, two columns each, as in a year view
};

// Display columns of every grid line at most: 34 with glyphs, 20 without.
std::size_t MonthGridWidth(const MonthGridLayout& layout);

// Title centred over the grid, the weekday header "Su Mo ..." (from the
// layout's first weekday) and one line per week, days in the order given
// (a month may skip day numbers, as at a calendar reform). A day whose
// column is not after its predecessor's starts a new line at its own
// column. Lines carry no trailing blanks and each ends in a newline.
std::string RenderMonthGrid(std::string_view title, const std::vector<MonthGridDay>& days,
                            const MonthGridLayout& layout = {});

// Display columns of one line of UTF-8 text: one per character, two for the
// emoji planes (the moon glyphs).
std::size_t DisplayWidth(std::string_view line);

// Blocks of lines set side by side, each padded to `width` display columns
// and separated by `gap` blanks; shorter blocks are padded with blank lines.
// Lines carry no trailing blanks and each ends in a newline.
std::string SideBySide(const std::vector<std::string>& blocks, std::size_t width, std::size_t gap);

}  // namespace timetool
