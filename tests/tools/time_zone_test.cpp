// Zones against GNU date run with TZ set in its own process, and against
// published offsets.
#include "time_zone.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tool_error.h"

namespace timetool {
namespace {

// The lines a shell command prints; TZ is set for that command alone.
std::vector<std::string> CommandLines(const std::string& command) {
    std::vector<std::string> lines;
    std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    if (!pipe) return lines;
    std::array<char, 256> buffer{};
    std::string line;
    while (fgets(buffer.data(), buffer.size(), pipe.get()) != nullptr) {
        line += buffer.data();
        if (!line.empty() && line.back() == '\n') {
            line.pop_back();
            lines.push_back(line);
            line.clear();
        }
    }
    return lines;
}

// One GNU date process for a zone, reading one line per WHEN from its
// input and printing `format` for each it accepts.
std::vector<std::string> DateLines(const std::string& zone, const std::vector<std::string>& inputs,
                                   const std::string& format) {
    std::string command = "printf '%s\\n'";
    for (const std::string& input : inputs) command += " '" + input + "'";
    return CommandLines(command + " | TZ='" + zone + "' date -f - '" + format + "' 2>/dev/null");
}

// What GNU date makes of each reading in the zone: Linux seconds, or "gap"
// where it refuses the reading. One process per reading: within one
// process the C library lets an earlier reading steer the choice in a
// repeated hour, and timetool reads one WHEN per run.
std::vector<std::string> DateReadings(const std::string& zone, const std::vector<std::string>& readings) {
    std::string command;
    for (const std::string& reading : readings) {
        command += "TZ='" + zone + "' date -d '" + reading + "' +%s 2>/dev/null || echo gap; ";
    }
    return CommandLines(command);
}

// "%::z %Z" of each instant in the zone, as GNU date prints them.
std::vector<std::string> DateOffsets(const std::string& zone, const std::vector<LinuxSeconds>& instants) {
    std::vector<std::string> inputs;
    for (LinuxSeconds instant : instants) inputs.push_back("@" + std::to_string(instant));
    return DateLines(zone, inputs, "+%::z %Z");
}

TimeZone Zone(std::string_view name) {
    const std::optional<TimeZone> zone = TimeZone::Named(name);
    EXPECT_TRUE(zone.has_value()) << name;
    return zone.value_or(TimeZone{});
}

LinuxSeconds ReadingSeconds(int year, int month, int day, int hour, int minute) {
    const StarDay days = DayOfGregorian(CivilDate{year, month, day});
    return LinuxSecondsOf(ExactInstant{days, hour * 3600 + minute * 60});
}

std::string ResolutionText(const LocalResolution& resolution) {
    return resolution.instant ? std::to_string(*resolution.instant) : std::string("gap");
}

std::string OffsetText(const ZoneOffset& offset) {
    std::string text = FormatUtcOffset(offset.seconds);
    if (text.size() == 6) text += ":00";
    return text + " " + offset.abbreviation;
}

struct ChangeDay {
    const char* zone;
    int year;
    int month;
    int day;
    int firstHour;  // four hours from here hold the change
};

// Days the clocks change, both ways, in both hemispheres, with whole-hour,
// half-hour and half-hour-of-change zones.
constexpr std::array<ChangeDay, 13> kChangeDays{{
    {"America/New_York", 2024, 3, 10, 0},
    {"America/New_York", 2024, 11, 3, 0},
    {"Australia/Sydney", 2024, 4, 7, 0},
    {"Australia/Sydney", 2024, 10, 6, 0},
    {"Australia/Adelaide", 2024, 4, 7, 0},
    {"Australia/Adelaide", 2024, 10, 6, 0},
    {"Europe/London", 2024, 3, 31, 0},
    {"Europe/London", 2024, 10, 27, 0},
    {"America/Santiago", 2024, 4, 6, 20},
    {"America/Santiago", 2024, 9, 8, 0},
    {"Australia/Lord_Howe", 2024, 4, 7, 0},
    {"America/New_York", 2066, 3, 14, 0},
    {"America/New_York", 2066, 11, 7, 0},
}};

TEST(TimeZoneResolve, QuarterHoursAroundChangesMatchGnuDate) {
    for (const ChangeDay& change : kChangeDays) {
        std::vector<std::string> readings;
        std::vector<LinuxSeconds> seconds;
        for (int quarter = 0; quarter < 16; ++quarter) {
            const int hour = change.firstHour + quarter / 4;
            const int minute = quarter % 4 * 15;
            char text[32];
            std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d", change.year, change.month, change.day, hour,
                          minute);
            readings.emplace_back(text);
            seconds.push_back(ReadingSeconds(change.year, change.month, change.day, hour, minute));
        }
        const std::vector<std::string> expected = DateReadings(change.zone, readings);
        ASSERT_EQ(expected.size(), readings.size()) << change.zone;
        const TimeZone zone = Zone(change.zone);
        for (std::size_t i = 0; i < readings.size(); ++i) {
            EXPECT_EQ(ResolutionText(zone.Resolve(seconds[i])), expected[i]) << change.zone << " " << readings[i];
        }
    }
}

TEST(TimeZoneResolve, SkippedHourHasNoInstantAndNamesTheJump) {
    const LocalResolution resolution = Zone("America/New_York").Resolve(ReadingSeconds(2024, 3, 10, 2, 30));
    EXPECT_FALSE(resolution.instant.has_value());
    EXPECT_EQ(resolution.offsetBefore, -5 * 3600);
    EXPECT_EQ(resolution.offsetAfter, -4 * 3600);
}

TEST(TimeZoneResolve, RepeatedHourIsReadAsGnuDateReadsIt) {
    // New York gives the first, daylight-saving reading; Sydney the second.
    EXPECT_EQ(Zone("America/New_York").Resolve(ReadingSeconds(2024, 11, 3, 1, 30)).instant, 1730611800);
    EXPECT_EQ(Zone("Australia/Sydney").Resolve(ReadingSeconds(2024, 4, 7, 2, 30)).instant, 1712421000);
}

TEST(TimeZoneOffset, InstantsAcrossChangesMatchGnuDate) {
    constexpr std::array<const char*, 7> kZones{"America/New_York",   "Australia/Sydney", "Asia/Kathmandu",
                                                "Australia/Adelaide", "Europe/London",    "America/Santiago",
                                                "Australia/Lord_Howe"};
    std::vector<LinuxSeconds> instants;
    // Around every change of 2024, far back (local mean time) and after the
    // listed changes end (the zone's closing rule, 2038 onwards).
    for (int month = 1; month <= 12; ++month) {
        for (int day : {1, 6, 7, 10, 27, 31}) {
            if (day > GregorianMonthLength(2024, month)) continue;
            for (int hour : {0, 5, 10, 15, 20}) instants.push_back(ReadingSeconds(2024, month, day, hour, 30));
        }
    }
    for (int year : {1850, 1900, 1970, 2038, 2066, 2500}) {
        for (int month : {1, 4, 7, 10}) instants.push_back(ReadingSeconds(year, month, 15, 12, 0));
    }
    for (const char* name : kZones) {
        const std::vector<std::string> expected = DateOffsets(name, instants);
        ASSERT_EQ(expected.size(), instants.size()) << name;
        const TimeZone zone = Zone(name);
        for (std::size_t i = 0; i < instants.size(); ++i) {
            EXPECT_EQ(OffsetText(zone.OffsetAt(instants[i])), expected[i]) << name << " @" << instants[i];
        }
    }
}

TEST(TimeZoneOffset, PublishedOffsets) {
    constexpr LinuxSeconds kSolstice2024 = 1718985127;  // 2024-06-21 15:52:07 UTC
    EXPECT_EQ(Zone("America/New_York").OffsetAt(kSolstice2024).seconds, -4 * 3600);
    EXPECT_EQ(Zone("America/New_York").OffsetAt(kSolstice2024).abbreviation, "EDT");
    EXPECT_EQ(Zone("Australia/Sydney").OffsetAt(kSolstice2024).abbreviation, "AEST");
    EXPECT_EQ(Zone("Asia/Kathmandu").OffsetAt(kSolstice2024).seconds, 5 * 3600 + 45 * 60);
    EXPECT_EQ(Zone("Australia/Adelaide").OffsetAt(kSolstice2024).seconds, 9 * 3600 + 30 * 60);
    EXPECT_EQ(Zone("UTC").OffsetAt(kSolstice2024).seconds, 0);
}

TEST(TimeZoneFormat, ZonedTextAndIso) {
    const ZonedClock clock = Zone("America/New_York").Localise(InstantOfLinuxSeconds(1718985127));
    EXPECT_EQ(FormatZonedText(clock), "2024-06-21 11:52:07 EDT (-04:00)");
    EXPECT_EQ(FormatZonedIso(clock), "2024-06-21T11:52:07-04:00");
    const ZonedClock kathmandu = Zone("Asia/Kathmandu").Localise(InstantOfLinuxSeconds(1718985127));
    EXPECT_EQ(FormatZonedText(kathmandu), "2024-06-21 21:37:07 +0545 (+05:45)");
    EXPECT_EQ(FormatZonedText(TimeZone{}.Localise(InstantOfLinuxSeconds(1718985127))),
              "2024-06-21 15:52:07 UTC (+00:00)");
}

TEST(TimeZoneFormat, UtcOffsets) {
    EXPECT_EQ(FormatUtcOffset(0), "+00:00");
    EXPECT_EQ(FormatUtcOffset(-4 * 3600), "-04:00");
    EXPECT_EQ(FormatUtcOffset(5 * 3600 + 45 * 60), "+05:45");
    EXPECT_EQ(FormatUtcOffset(-(4 * 3600 + 56 * 60 + 2)), "-04:56:02");
    EXPECT_EQ(FormatUtcOffset(14 * 3600), "+14:00");
}

TEST(LinuxSecondsOf, RoundTripsBeforeAndAfter1970) {
    for (LinuxSeconds seconds : {LinuxSeconds{-1}, LinuxSeconds{0}, LinuxSeconds{86399}, LinuxSeconds{-86400},
                                 LinuxSeconds{-62135596800}, LinuxSeconds{1718985127}}) {
        EXPECT_EQ(LinuxSecondsOf(InstantOfLinuxSeconds(seconds)), seconds);
    }
    EXPECT_EQ(InstantOfLinuxSeconds(-1).second, 86399);
    EXPECT_EQ(InstantOfLinuxSeconds(-1).day, kUnixEpochStarDay - 1);
}

TEST(ResolveZone, OptionWinsOverVariable) {
    EXPECT_EQ(ResolveZone("Asia/Kathmandu", "America/New_York").name(), "Asia/Kathmandu");
    EXPECT_EQ(ResolveZone("", "America/New_York").name(), "America/New_York");
    EXPECT_EQ(ResolveZone("", ":Europe/Paris").name(), "Europe/Paris");
}

TEST(ResolveZone, UnsetOrEmptyVariableIsUtc) {
    EXPECT_TRUE(ResolveZone("", nullptr).IsUtc());
    EXPECT_TRUE(ResolveZone("", "").IsUtc());
}

TEST(ResolveZone, UnknownNamesAndPosixRulesAreRefusedWithStatus2) {
    struct Case {
        const char* option;
        const char* variable;
        const char* message;
    };
    constexpr std::array<Case, 4> kCases{{
        {"Nowhere/Land", nullptr,
         "timetool: bad --tz 'Nowhere/Land': not a zone of the tz database (a name such as Europe/Paris or UTC)"},
        {"", "Mars/Olympus",
         "timetool: bad TZ 'Mars/Olympus': not a zone of the tz database (a name such as Europe/Paris or UTC)"},
        {"", "CET-1CEST,M3.5.0,M10.5.0/3",
         "timetool: bad TZ 'CET-1CEST,M3.5.0,M10.5.0/3': not a zone of the tz database (a name such as "
         "Europe/Paris or UTC)"},
        // An echoed name shows its control characters escaped.
        {"\x1b]0;title\x07Zulu\n", nullptr,
         "timetool: bad --tz '\\x1b]0;title\\x07Zulu\\n': not a zone of the tz database (a name such as "
         "Europe/Paris or UTC)"},
    }};
    for (const Case& c : kCases) {
        try {
            ResolveZone(c.option, c.variable);
            ADD_FAILURE() << c.message;
        } catch (const ToolError& error) {
            EXPECT_EQ(error.status, 2);
            EXPECT_EQ(error.message, c.message);
        }
    }
}

}  // namespace
}  // namespace timetool
