#include "number_text.h"

#include <charconv>
#include <cmath>

namespace timetool {

void AppendNumber(std::string& out, double value) {
    if (std::isnan(value)) {
        out += "nan";
        return;
    }
    char buffer[32];  // the longest shortest form, "-2.2250738585072014e-308", is 24
    const auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value);
    out.append(buffer, ec == std::errc() ? end : buffer);
}

}  // namespace timetool
