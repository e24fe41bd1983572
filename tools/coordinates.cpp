#include "coordinates.h"

#include <charconv>
#include <cmath>

namespace timetool {

namespace {

CoordinateParse ParseDegrees(std::string_view text, char positive, char negative, double limit) {
    double sign = 1.0;
    if (!text.empty()) {
        const char last = static_cast<char>(text.back() & ~0x20);  // upper-case an ASCII letter
        if (last == positive || last == negative) {
            sign = last == negative ? -1.0 : 1.0;
            text.remove_suffix(1);
            if (!text.empty() && text.front() == '-') return {std::nullopt, "not a number of degrees"};
        }
    }
    const char* outOfRange = limit == 90.0 ? "out of range (-90 to 90)" : "out of range (-180 to 180)";
    double value = 0.0;
    const char* first = text.data();
    const char* end = text.data() + text.size();
    const auto [stop, ec] = std::from_chars(first, end, value, std::chars_format::fixed);
    if (text.empty() || (ec != std::errc() && ec != std::errc::result_out_of_range) || stop != end ||
        !std::isfinite(value)) {
        return {std::nullopt, "not a number of degrees"};
    }
    if (ec == std::errc::result_out_of_range) {
        // Too many digits for a double: far past the range when a digit
        // before the point is not zero, else so small it is zero.
        const std::string_view whole = text.substr(0, text.find('.'));
        if (whole.find_first_of("123456789") != std::string_view::npos) return {std::nullopt, outOfRange};
        value = 0.0;
    }
    value *= sign;
    if (value < -limit || value > limit) return {std::nullopt, outOfRange};
    return {value, {}};
}

}  // namespace

CoordinateParse ParseLatitude(std::string_view text) { return ParseDegrees(text, 'N', 'S', 90.0); }

CoordinateParse ParseLongitude(std::string_view text) { return ParseDegrees(text, 'E', 'W', 180.0); }

}  // namespace timetool
