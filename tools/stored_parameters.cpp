#include "stored_parameters.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>

namespace timetool {

namespace {

// The Time object's parameters, in the order it stores them; the last one
// is its 32-bit float second, the others are 16-bit fields.
constexpr std::array<std::string_view, 6> kTimeParameters{"Day", "Month", "Year", "Hour", "Minute", "Second"};

const StoredParameter* Find(const std::vector<StoredParameter>& parameters, std::string_view name) {
    for (const StoredParameter& parameter : parameters) {
        if (parameter.name == name) return &parameter;
    }
    return nullptr;
}

std::string KindText(StoredKind kind) {
    switch (kind) {
        case StoredKind::Empty:
            return "empty";
        case StoredKind::Text:
            return "text";
        default:
            return "not a plain value";
    }
}

std::string CheckValue(const StoredParameter& parameter, bool isSecond) {
    const std::string shown = parameter.name + " " + StoredNumberText(parameter.number);
    if (parameter.kind != StoredKind::Integer && parameter.kind != StoredKind::Double) {
        return parameter.name + " is " + KindText(parameter.kind) + ", not a number";
    }
    if (!std::isfinite(parameter.number)) return shown + " is not a finite number";
    if (isSecond) {
        if (std::fabs(parameter.number) > std::numeric_limits<float>::max()) {
            return shown + " does not fit the Time object's second (a 32-bit float)";
        }
        return {};
    }
    if (parameter.number != std::trunc(parameter.number)) return shown + " is not a whole number";
    if (parameter.number < -32768.0 || parameter.number > 32767.0) {
        return shown + " does not fit the Time object's 16-bit field (-32768 to 32767)";
    }
    return {};
}

}  // namespace

std::string CheckStoredTime(const std::vector<StoredParameter>& parameters) {
    std::vector<std::string_view> missing;
    for (std::string_view name : kTimeParameters) {
        if (!Find(parameters, name)) missing.push_back(name);
    }
    if (missing.size() == kTimeParameters.size()) return "it holds no Time parameter set";
    if (!missing.empty()) {
        std::string list(missing[0]);
        for (std::size_t i = 1; i < missing.size(); ++i) {
            list += i + 1 == missing.size() ? " and " : ", ";
            list += missing[i];
        }
        return "its Time parameter set lacks " + list;
    }
    for (std::size_t i = 0; i < kTimeParameters.size(); ++i) {
        std::string why = CheckValue(*Find(parameters, kTimeParameters[i]), i + 1 == kTimeParameters.size());
        if (!why.empty()) return why;
    }
    return {};
}

std::string StoredNumberText(double value) {
    if (std::isnan(value)) return "nan";
    char text[32];
    const auto result = std::to_chars(text, text + sizeof text, value);
    return std::string(text, result.ptr);
}

}  // namespace timetool
