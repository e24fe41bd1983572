#include "month_grid.h"

#include <algorithm>
#include <cstdio>

#include "text_format.h"

namespace timetool {

namespace {

// A cell is the day number in two columns and, with glyphs, the glyph in
// two; cells are separated by one blank.
std::size_t CellWidth(const MonthGridLayout& layout) { return layout.glyphs ? 4 : 2; }

void TrimRight(std::string* line) {
    while (!line->empty() && line->back() == ' ') line->pop_back();
}

std::string Cell(int day, std::string_view glyph, const MonthGridLayout& layout) {
    char number[16];
    std::snprintf(number, sizeof number, "%2d", day);
    std::string cell(number);
    if (!layout.glyphs) return cell;
    cell += glyph;
    if (glyph.size() < 2) cell.append(2 - glyph.size(), ' ');
    return cell;
}

int ColumnOf(int weekday, const MonthGridLayout& layout) {
    const int safe = weekday >= 0 && weekday <= 6 ? weekday : 0;
    const int first = layout.firstWeekday >= 0 && layout.firstWeekday <= 6 ? layout.firstWeekday : 0;
    return (safe - first + 7) % 7;
}

std::vector<std::string> LinesOf(const std::string& block) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    while (start < block.size()) {
        std::size_t end = block.find('\n', start);
        if (end == std::string::npos) end = block.size();
        lines.push_back(block.substr(start, end - start));
        start = end + 1;
    }
    return lines;
}

}  // namespace

std::size_t MonthGridWidth(const MonthGridLayout& layout) { return 7 * CellWidth(layout) + 6; }

std::string RenderMonthGrid(std::string_view title, const std::vector<MonthGridDay>& days,
                            const MonthGridLayout& layout) {
    const std::size_t cellWidth = CellWidth(layout);
    const std::size_t gridWidth = MonthGridWidth(layout);
    std::string out;
    const std::size_t titleWidth = DisplayWidth(title);
    const std::size_t indent = titleWidth < gridWidth ? (gridWidth - titleWidth) / 2 : 0;
    std::string titleLine(indent, ' ');
    titleLine += title;
    TrimRight(&titleLine);
    out += titleLine + '\n';
    std::string header;
    for (int column = 0; column < 7; ++column) {
        if (column > 0) header += ' ';
        header += WeekdayShortName((column + layout.firstWeekday) % 7);
        header.append(cellWidth - 2, ' ');
    }
    TrimRight(&header);
    out += header + '\n';

    std::string line;
    int next = 0;  // next free column, [0, 7]
    for (const MonthGridDay& day : days) {
        const int column = ColumnOf(day.weekday, layout);
        if (column < next || next == 7) {
            TrimRight(&line);
            out += line + '\n';
            line.clear();
            next = 0;
        }
        for (; next < column; ++next) line.append(cellWidth + 1, ' ');
        line += Cell(day.day, day.glyph, layout);
        line += ' ';
        ++next;
    }
    if (!days.empty()) {
        TrimRight(&line);
        out += line + '\n';
    }
    return out;
}

std::size_t DisplayWidth(std::string_view line) {
    std::size_t width = 0;
    for (std::size_t i = 0; i < line.size();) {
        const auto lead = static_cast<unsigned char>(line[i]);
        std::size_t length = 1;
        if (lead >= 0xF0) {
            length = 4;
        } else if (lead >= 0xE0) {
            length = 3;
        } else if (lead >= 0xC0) {
            length = 2;
        }
        // Four-byte characters here are the emoji planes, two columns wide.
        width += length == 4 ? 2 : 1;
        i += std::min(length, line.size() - i);
    }
    return width;
}

std::string SideBySide(const std::vector<std::string>& blocks, std::size_t width, std::size_t gap) {
    std::vector<std::vector<std::string>> columns;
    std::size_t rows = 0;
    for (const std::string& block : blocks) {
        columns.push_back(LinesOf(block));
        rows = std::max(rows, columns.back().size());
    }
    std::string out;
    for (std::size_t row = 0; row < rows; ++row) {
        std::string line;
        for (std::size_t column = 0; column < columns.size(); ++column) {
            if (column > 0) line.append(gap, ' ');
            const std::string cell = row < columns[column].size() ? columns[column][row] : std::string();
            line += cell;
            const std::size_t cellWidth = DisplayWidth(cell);
            if (cellWidth < width) line.append(width - cellWidth, ' ');
        }
        TrimRight(&line);
        out += line + '\n';
    }
    return out;
}

}  // namespace timetool
