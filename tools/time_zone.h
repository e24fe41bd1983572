// Time zones of the system's tz database: the offset in force at an
// instant, and the instant a local clock reading names.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "text_format.h"

namespace date {
class time_zone;
}

namespace timetool {

// Seconds since 1970-01-01 00:00:00 UTC, leap seconds not counted.
using LinuxSeconds = std::int64_t;

LinuxSeconds LinuxSecondsOf(const ExactInstant& instant);
ExactInstant InstantOfLinuxSeconds(LinuxSeconds seconds);

// The offset from UTC in force at an instant and the zone's abbreviation
// for it ("EDT", "+0545", "LMT").
struct ZoneOffset {
    int seconds = 0;  // east positive, [-86399, 86399]
    std::string abbreviation = "UTC";
};

// A clock reading of a zone, the instant it stands for and the offset that
// relates them.
struct ZonedClock {
    ExactInstant utc;
    ExactInstant local;  // the reading: the local day and second of that day
    ZoneOffset offset;
};

// What a local clock reading names in a zone.
struct LocalResolution {
    std::optional<LinuxSeconds> instant;  // empty when the clocks skipped the reading
    int offsetBefore = 0;                 // for a skipped reading: the offsets either side
    int offsetAfter = 0;                  // of the jump, in seconds east
};

class TimeZone {
public:
    // UTC.
    TimeZone();

    // A zone of the tz database by its name ("America/New_York", "UTC");
    // empty for a name the database does not hold.
    static std::optional<TimeZone> Named(std::string_view name);

    const std::string& name() const { return name_; }
    bool IsUtc() const { return zone_ == nullptr; }

    ZoneOffset OffsetAt(LinuxSeconds instant) const;
    ZonedClock Localise(const ExactInstant& utc) const;

    // The instant a local reading (seconds since 1970-01-01 00:00:00 on the
    // zone's clock) names. A reading that occurs twice, when the clocks go
    // back, is the one GNU date gives: the offset in force at the reading
    // taken as UTC is tried first and the offsets it leads to are followed
    // until one fits. A reading skipped when the clocks go forward has no
    // instant, as in GNU date.
    LocalResolution Resolve(LinuxSeconds localReading) const;

private:
    struct LastRule;

    const date::time_zone* zone_ = nullptr;     // owned by the database; null for UTC
    std::shared_ptr<const LastRule> lastRule_;  // the zone's rule after its last listed change
    std::string name_ = "UTC";
};

// The zone `--tz` names, else the one in the variable TZ, else UTC (TZ unset
// or empty). A TZ of the form ":Name" names a zone too. Throws ToolError
// (status 2) for a name the tz database does not hold, naming the option or
// the variable; a TZ holding a POSIX rule ("EST5EDT,M3.2.0,M11.1.0") is
// refused the same way: timetool reads zones from the database only.
TimeZone ResolveZone(const std::string& option, const char* variable);

// "-04:00", "+05:45", "+00:00"; seconds appear when the offset has them
// ("-04:56:02", a local mean time).
std::string FormatUtcOffset(int seconds);
// "2024-06-21 11:52:07 EDT (-04:00)".
std::string FormatZonedText(const ZonedClock& clock);
// "2024-06-21T11:52:07-04:00".
std::string FormatZonedIso(const ZonedClock& clock);

// The two text forms every shown clock time takes. An instant on its own:
// "2024-06-21 15:52:07 UTC", or on a zone's clock "2024-06-21 11:52:07 EDT
// (-04:00)". In a column whose heading names UTC: "2024-06-21 15:52:07",
// or the zone's form as above.
std::string FormatShownInstant(const ExactInstant& utc, const TimeZone& zone);
std::string FormatClockColumn(const ExactInstant& utc, const TimeZone& zone);

}  // namespace timetool
