#include "time_zone.h"

#include <date/tz.h>

#include <algorithm>
#include <chrono>
#include <fstream>

#include "quoted_text.h"
#include "tool_error.h"

// The rule reader names hh_mm_ss unqualified beside both std::chrono and
// date; this alias is found first and settles which one it means.
namespace Posix {
template <class Duration>
using hh_mm_ss = date::hh_mm_ss<Duration>;
}
#include <date/ptz.h>

namespace timetool {

namespace {

constexpr LinuxSeconds kSecondsPerDay = 86400;

// Where the tz database's compiled zones live; the date library reads the
// same folder.
constexpr const char* kZoneFolder = "/usr/share/zoneinfo/";
// A compiled zone is a few kilobytes; anything far larger is not one.
constexpr std::streamsize kLargestZoneFile = 1 << 20;

// Entries listed to the end of the database's range run on the zone's
// closing rule instead.
constexpr date::sys_days kOpenEnded = date::sys_days{date::year{30000} / 1 / 1};

// The closing line of a compiled zone: the POSIX rule for every instant
// after its last listed change ("EST5EDT,M3.2.0,M11.1.0"); empty when the
// file has none.
std::string ClosingRuleText(const std::string& name) {
    std::ifstream file(kZoneFolder + name, std::ios::binary);
    if (!file) return {};
    std::string content;
    content.resize(static_cast<std::size_t>(kLargestZoneFile) + 1);
    file.read(content.data(), kLargestZoneFile + 1);
    const std::streamsize size = file.gcount();
    if (size > kLargestZoneFile || size < 6) return {};
    content.resize(static_cast<std::size_t>(size));
    if (!content.starts_with("TZif") || content.back() != '\n') return {};
    const std::size_t start = content.rfind('\n', content.size() - 2);
    if (start == std::string::npos) return {};
    return content.substr(start + 1, content.size() - start - 2);
}

std::string TwoDigits(LinuxSeconds value) {
    return std::string{static_cast<char>('0' + value / 10), static_cast<char>('0' + value % 10)};
}

}  // namespace

struct TimeZone::LastRule {
    Posix::time_zone rule;
};

LinuxSeconds LinuxSecondsOf(const ExactInstant& instant) {
    return (instant.day - kUnixEpochStarDay) * kSecondsPerDay + instant.second;
}

ExactInstant InstantOfLinuxSeconds(LinuxSeconds seconds) {
    LinuxSeconds days = seconds / kSecondsPerDay;
    LinuxSeconds second = seconds % kSecondsPerDay;
    if (second < 0) {
        second += kSecondsPerDay;
        --days;
    }
    return ExactInstant{days + kUnixEpochStarDay, static_cast<int>(second)};
}

TimeZone::TimeZone() = default;

std::optional<TimeZone> TimeZone::Named(std::string_view name) {
    TimeZone zone;
    try {
        zone.zone_ = date::locate_zone(name);
    } catch (const std::exception&) {
        return std::nullopt;
    }
    zone.name_ = zone.zone_->name();
    const std::string rule = ClosingRuleText(zone.name_);
    if (!rule.empty()) {
        try {
            zone.lastRule_ = std::make_shared<const LastRule>(LastRule{Posix::time_zone(rule)});
        } catch (const std::exception&) {
            // Without a readable closing rule the last listed offset holds on.
        }
    }
    return zone;
}

ZoneOffset TimeZone::OffsetAt(LinuxSeconds instant) const {
    if (zone_ == nullptr) return ZoneOffset{};
    const date::sys_seconds at{std::chrono::seconds{instant}};
    date::sys_info info = zone_->get_info(at);
    if (lastRule_ && info.end >= kOpenEnded) info = lastRule_->rule.get_info(at);
    return ZoneOffset{static_cast<int>(info.offset.count()), info.abbrev};
}

ZonedClock TimeZone::Localise(const ExactInstant& utc) const {
    ZoneOffset offset = OffsetAt(LinuxSecondsOf(utc));
    const ExactInstant local = InstantOfLinuxSeconds(LinuxSecondsOf(utc) + offset.seconds);
    return ZonedClock{utc, local, std::move(offset)};
}

LocalResolution TimeZone::Resolve(LinuxSeconds localReading) const {
    // At most two changes of offset lie near any reading; a few rounds settle it.
    constexpr int kRounds = 6;
    int offset = OffsetAt(localReading).seconds;
    int previous = offset;
    for (int round = 0; round < kRounds; ++round) {
        const int next = OffsetAt(localReading - offset).seconds;
        if (next == offset) return LocalResolution{localReading - offset, offset, offset};
        previous = offset;
        offset = next;
    }
    return LocalResolution{std::nullopt, std::min(previous, offset), std::max(previous, offset)};
}

TimeZone ResolveZone(const std::string& option, const char* variable) {
    std::string source = "--tz";
    std::string name = option;
    if (name.empty()) {
        if (variable == nullptr || *variable == '\0') return TimeZone{};
        source = "TZ";
        name = variable;
        if (name.starts_with(':')) name.erase(0, 1);
    }
    std::optional<TimeZone> zone = TimeZone::Named(name);
    if (!zone) {
        throw ToolError{kExitBadInput, "timetool: bad " + source + " " + QuoteArgument(name) +
                                           ": not a zone of the tz database (a name such as Europe/Paris or UTC)"};
    }
    return *std::move(zone);
}

std::string FormatUtcOffset(int seconds) {
    const LinuxSeconds magnitude = seconds < 0 ? -static_cast<LinuxSeconds>(seconds) : seconds;
    std::string text = seconds < 0 ? "-" : "+";
    text += TwoDigits(magnitude / 3600) + ":" + TwoDigits(magnitude / 60 % 60);
    if (magnitude % 60 != 0) text += ":" + TwoDigits(magnitude % 60);
    return text;
}

std::string FormatZonedText(const ZonedClock& clock) {
    return FormatUtcText(clock.local) + " " + clock.offset.abbreviation + " (" + FormatUtcOffset(clock.offset.seconds) +
           ")";
}

std::string FormatZonedIso(const ZonedClock& clock) {
    std::string text = FormatUtcIso(clock.local);
    text.pop_back();
    return text + FormatUtcOffset(clock.offset.seconds);
}

std::string FormatShownInstant(const ExactInstant& utc, const TimeZone& zone) {
    return zone.IsUtc() ? FormatUtcText(utc) + " UTC" : FormatZonedText(zone.Localise(utc));
}

std::string FormatClockColumn(const ExactInstant& utc, const TimeZone& zone) {
    return zone.IsUtc() ? FormatUtcText(utc) : FormatZonedText(zone.Localise(utc));
}

}  // namespace timetool
