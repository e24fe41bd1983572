#include "month_grid.h"

#include <cstdio>

#include "text_format.h"

namespace timetool {

namespace {

// A cell is the day number in two columns and the glyph in two; cells are
// separated by one blank.
constexpr std::size_t kCellWidth = 4;
constexpr std::size_t kGridWidth = 7 * kCellWidth + 6;

void TrimRight(std::string* line) {
    while (!line->empty() && line->back() == ' ') line->pop_back();
}

std::string Cell(int day, std::string_view glyph) {
    char number[16];
    std::snprintf(number, sizeof number, "%2d", day);
    std::string cell(number);
    cell += glyph;
    if (glyph.size() < 2) cell.append(2 - glyph.size(), ' ');
    return cell;
}

}  // namespace

std::string RenderMonthGrid(std::string_view title, const std::vector<MonthGridDay>& days) {
    std::string out;
    const std::size_t indent = title.size() < kGridWidth ? (kGridWidth - title.size()) / 2 : 0;
    std::string titleLine(indent, ' ');
    titleLine += title;
    TrimRight(&titleLine);
    out += titleLine + '\n';
    std::string header;
    for (int weekday = 0; weekday < 7; ++weekday) {
        if (weekday > 0) header += ' ';
        header += WeekdayShortName(weekday);
        header.append(kCellWidth - 2, ' ');
    }
    TrimRight(&header);
    out += header + '\n';

    std::string line;
    int column = 0;  // next free column, [0, 7]
    for (std::size_t i = 0; i < days.size(); ++i) {
        const int weekday = days[i].weekday >= 0 && days[i].weekday <= 6 ? days[i].weekday : 0;
        if (weekday < column || column == 7) {
            TrimRight(&line);
            out += line + '\n';
            line.clear();
            column = 0;
        }
        for (; column < weekday; ++column) line.append(kCellWidth + 1, ' ');
        line += Cell(days[i].day, days[i].glyph);
        line += ' ';
        ++column;
    }
    if (!days.empty()) {
        TrimRight(&line);
        out += line + '\n';
    }
    return out;
}

}  // namespace timetool
