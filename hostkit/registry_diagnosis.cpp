#include "hostkit/registry_diagnosis.h"

#include <cstring>
#include <string_view>

#include "hostkit/file_read.h"
#include "hostkit/registry_format.h"
#include "hostkit/utf8.h"

namespace kit {

namespace {

constexpr std::string_view kCalendarSection = "Calendar";
constexpr std::string_view kEpochKeys[] = {"SDAdam", "SDGeneric"};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsHexDigit(char c) { return IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }

// Quotes a value for a message, its control characters escaped and its
// length cut, so that a hostile file cannot steer the terminal.
std::string Quoted(std::string_view value) {
    constexpr std::size_t kShown = 40;
    std::string out = "\"";
    for (std::size_t i = 0; i < value.size() && i < kShown; ++i) {
        const auto c = static_cast<unsigned char>(value[i]);
        if (c < 0x20 || c == 0x7F) {
            static constexpr char kDigits[] = "0123456789abcdef";
            out += "\\x";
            out.push_back(kDigits[c >> 4]);
            out.push_back(kDigits[c & 15u]);
        } else {
            out.push_back(static_cast<char>(c));
        }
    }
    if (value.size() > kShown) out += "...";
    return out + "\"";
}

// Why an epoch value is not wholly read as a number, or empty when it is.
// The grammar is what the calendars read: "#" and hexadecimal digits that fit
// 32 bits, or an optional sign, decimal digits and at most one "." with
// digits, the whole part within a signed 64-bit integer.
std::string EpochValueProblem(std::string_view value) {
    if (value.empty()) return "is empty, so 1 January of year 1 of that calendar is day 0";
    if (value.front() == '#') {
        std::size_t digits = 1;
        while (digits < value.size() && IsHexDigit(value[digits])) ++digits;
        if (digits == 1 || digits != value.size()) {
            return "is not a number: after \"#\" only hexadecimal digits may follow";
        }
        if (digits - 1 > 8) return "has more hexadecimal digits than 32 bits hold, so it wraps around";
        return {};
    }
    std::size_t at = 0;
    if (value[at] == '-' || value[at] == '+') ++at;
    const std::size_t whole_begin = at;
    while (at < value.size() && IsDigit(value[at])) ++at;
    const std::size_t whole_digits = at - whole_begin;
    std::size_t fraction_digits = 0;
    if (at < value.size() && value[at] == '.') {
        ++at;
        const std::size_t fraction_begin = at;
        while (at < value.size() && IsDigit(value[at])) ++at;
        fraction_digits = at - fraction_begin;
    }
    if (whole_digits + fraction_digits == 0) {
        return "is not a number, so 1 January of year 1 of that calendar is day 0";
    }
    if (at != value.size()) {
        return "is not wholly a number: only " + Quoted(value.substr(0, at)) + " is read, the rest is ignored";
    }
    // 9223372036854775807 has 19 digits; any whole part of 19 digits or more
    // is compared digit by digit.
    std::string_view whole = value.substr(whole_begin, whole_digits);
    while (whole.size() > 1 && whole.front() == '0') whole.remove_prefix(1);
    constexpr std::string_view kLargest = "9223372036854775807";
    if (whole.size() > kLargest.size() || (whole.size() == kLargest.size() && whole > kLargest)) {
        return "is too large a number to be read";
    }
    return {};
}

RegistryProblem Problem(const std::string& path, int line, std::string what) { return {path, line, std::move(what)}; }

}  // namespace

std::optional<RegistryProblem> DiagnoseRegistryText(const std::string& path, std::string_view file) {
    if (file.size() > kMaxRegistryBytes)
        return Problem(path, 0, "the file is larger than the registry's limit of 1 MiB");
    if (file.starts_with("\xEF\xBB\xBF")) file.remove_prefix(3);
    struct EpochEntry {
        int line = 0;  // 0 when absent
        std::string value;
    };
    EpochEntry epochs[std::size(kEpochKeys)];
    std::string_view section;
    int number = 0;
    while (!file.empty()) {
        ++number;
        const std::size_t newline = file.find('\n');
        const std::string_view text = file.substr(0, newline);
        file.remove_prefix(newline == std::string_view::npos ? file.size() : newline + 1);
        if (text.find('\0') != std::string_view::npos) return Problem(path, number, "the line holds a NUL byte");
        if (!IsValidUtf8(text)) return Problem(path, number, "the line is not valid UTF-8 text");
        const RegistryLine line = ParseRegistryLine(text);
        switch (line.kind) {
            case RegistryLineKind::kBlank:
            case RegistryLineKind::kComment:
                break;
            case RegistryLineKind::kMalformed:
                return Problem(path, number, "the line is not a [section] header, a key=value entry or a comment");
            case RegistryLineKind::kSection:
                section = line.name;
                break;
            case RegistryLineKind::kEntry: {
                std::string value;
                if (!UnescapeRegistryValue(line.value, &value)) {
                    return Problem(path, number,
                                   "the line's value has an unknown escape (known: \\\\ \\n \\r \\t \\s \\0)");
                }
                if (section != kCalendarSection) break;
                for (std::size_t key = 0; key < std::size(kEpochKeys); ++key) {
                    if (line.name == kEpochKeys[key]) epochs[key] = {number, value};
                }
                break;
            }
        }
    }
    // A key given twice counts with its last entry, as every query reads it.
    for (std::size_t key = 0; key < std::size(kEpochKeys); ++key) {
        if (epochs[key].line == 0) continue;
        const std::string problem = EpochValueProblem(epochs[key].value);
        if (!problem.empty()) {
            return Problem(path, epochs[key].line,
                           "the value " + Quoted(epochs[key].value) + " of " + std::string(kEpochKeys[key]) +
                               " in [Calendar] " + problem);
        }
    }
    return std::nullopt;
}

std::optional<RegistryProblem> DiagnoseRegistry(const std::string& path) {
    if (path.empty()) return std::nullopt;
    std::string file;
    const FileOutcome read = ReadRegularFile(path, kMaxRegistryBytes, &file);
    switch (read.failure) {
        case FileFailure::kNone:
            return DiagnoseRegistryText(path, file);
        case FileFailure::kMissing:
            return std::nullopt;
        case FileFailure::kTooLarge:
            return Problem(path, 0, "the file is larger than the registry's limit of 1 MiB");
        case FileFailure::kFolder:
            return Problem(path, 0, "a folder stands in the file's place");
        case FileFailure::kNotRegular:
            return Problem(path, 0, "a device, FIFO or socket stands in the file's place");
        default:
            break;
    }
    return Problem(path, 0, std::string("the file cannot be read: ") + ::strerrordesc_np(read.error));
}

}  // namespace kit
