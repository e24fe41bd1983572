#include "calendar_kind.h"

#include <array>
#include <cctype>

namespace timetool {

namespace {

// Kind 3 is the Hebrew variant built on mean-year lengths (variant flag 1);
// kind 4 is the one with the full year-start postponements (variant flag 0).
constexpr std::array<CalendarKind, 7> kKinds{{
    {0, "gregorian", "Gregorian", ""},
    {1, "julian", "Julian", ""},
    {2, "western", "Western", ""},
    {3, "hebrew1", "Hebrew (mean)", "hebrew-mean"},
    {4, "hebrew", "Hebrew", "hebrew0"},
    {5, "adam", "Adam", ""},
    {6, "generic", "Generic", ""},
}};

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size() || a.empty()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (std::tolower(static_cast<unsigned char>(a[i])) != std::tolower(static_cast<unsigned char>(b[i]))) {
            return false;
        }
    }
    return true;
}

}  // namespace

std::span<const CalendarKind> CalendarKinds() { return kKinds; }

std::optional<int> ParseCalendarKind(std::string_view text) {
    if (text.size() == 1 && text[0] >= '0' && text[0] <= '6') return text[0] - '0';
    for (const CalendarKind& kind : kKinds) {
        if (EqualsIgnoringCase(text, kind.key) || EqualsIgnoringCase(text, kind.alias)) return kind.number;
    }
    return std::nullopt;
}

const CalendarKind& CalendarKindInfo(int number) {
    return kKinds[static_cast<std::size_t>(number >= 0 && number < 7 ? number : 0)];
}

}  // namespace timetool
