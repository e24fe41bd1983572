// timetool's sun and moon, in process with the module loaded as the tool
// loads it. The true events are held against tables made offline with
// PyEphem (tests/tools/sky/data, each with its generator) and against the
// published 2024 new, quarter and full moon times (to the minute, UTC); the
// module's figures beside them against its worked example for 21 June 2024.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "instant_output.h"
#include "sky/reference_table.h"
#include "tool_context.h"

namespace timetool {
namespace {

constexpr const char* kModuleFolder = CAL_BUILD_DIR "/_binlinux";

// Seconds from the start of star day 0 to an instant as printed.
double SecondsOf(const ExactInstant& instant) { return static_cast<double>(instant.day) * 86400.0 + instant.second; }

double SecondsOfJulianDate(double julianDate) { return (julianDate - 1721422.5) * 86400.0; }

// Star date of a UTC date and time to the minute.
double StarDateAt(int year, unsigned month, unsigned day, int hour, int minute) {
    return sky::testing::JulianDateAt(year, month, day, hour, minute) - 1721422.5;
}

class TimetoolSunMoon : public ::testing::Test {
protected:
    TimetoolSunMoon() : context_(kModuleFolder, "") {}

    SunReport Sun(double starDate, double latitude, double longitude) {
        return DescribeSun(context_.session(), starDate, Location{latitude, longitude});
    }
    MoonReport Moon(double starDate) { return DescribeMoon(context_.session(), starDate); }

    ToolContext context_;
};

bool IsGrazing(const nlohmann::json& row, const char* key) {
    if (!row.contains("grazing")) return false;
    for (const nlohmann::json& each : row["grazing"]) {
        if (each == key) return true;
    }
    return false;
}

// One event of a row against the table: the same polar name, or a clock time
// within a minute (ten beyond 65 degrees of latitude), printed to the second.
void ExpectEvent(const nlohmann::json& row, const char* key, const SunEventReport& event) {
    if (IsGrazing(row, key)) return;
    const nlohmann::json& expected = row[key];
    const std::string where = row["place"].get<std::string>() + " " + row["date"].get<std::string>() + " " + key;
    if (expected.is_string()) {
        EXPECT_FALSE(event.instant) << where;
        EXPECT_EQ(sky::DescribeAbsence(event.absence), expected.get<std::string>()) << where;
        return;
    }
    ASSERT_TRUE(event.instant) << where << ": " << sky::DescribeAbsence(event.absence);
    const double tolerance = std::fabs(row["latitude"].get<double>()) <= 65.0 ? 60.0 : 600.0;
    EXPECT_NEAR(SecondsOf(*event.instant), SecondsOfJulianDate(expected.get<double>()), tolerance) << where;
}

TEST_F(TimetoolSunMoon, SunEventsMatchThePyEphemTableAtEveryPlace) {
    const nlohmann::json& rows = sky::testing::ReferenceRows("sun_events.json");
    ASSERT_GT(rows.size(), 500u);
    for (const nlohmann::json& row : rows) {
        const double starDate = static_cast<double>(row["days"].get<std::int64_t>() + kUnixEpochStarDay);
        const SunReport sun = Sun(starDate + 0.5, row["latitude"].get<double>(), row["longitude"].get<double>());
        EXPECT_EQ(sun.day, static_cast<StarDay>(starDate));
        ExpectEvent(row, "sunrise", sun.sunrise);
        ExpectEvent(row, "sunset", sun.sunset);
        ExpectEvent(row, "civil_dawn", sun.civilDawn);
        ExpectEvent(row, "civil_dusk", sun.civilDusk);
    }
}

TEST_F(TimetoolSunMoon, LondonInDecemberSetsAfterItRises) {
    // PyEphem: 2024-12-21 sunrise 08:03:56, sunset 15:53:42 UTC.
    const SunReport sun = Sun(StarDateAt(2024, 12, 21, 0, 0), 51.5, -0.13);
    ASSERT_TRUE(sun.sunrise.instant && sun.sunset.instant);
    EXPECT_LT(SecondsOf(*sun.sunrise.instant), SecondsOf(*sun.sunset.instant));
    EXPECT_NEAR(SecondsOf(*sun.sunrise.instant), SecondsOfJulianDate(2460665.8360603), 60.0);
    EXPECT_NEAR(SecondsOf(*sun.sunset.instant), SecondsOfJulianDate(2460666.1622897), 60.0);
    const std::string text = SunText(sun, Location{51.5, -0.13}, TimeZone{});
    EXPECT_NE(text.find("Sunrise        2024-12-21 08:0"), std::string::npos) << text;
    EXPECT_NE(text.find("Sunset         2024-12-21 15:5"), std::string::npos) << text;
}

TEST_F(TimetoolSunMoon, ModuleFiguresStayBesideTheTrueOnes) {
    // The module's worked example: J0 738888.5, sunrise 171.59733151711325
    // and sunset 171.82995345218822 days; the true sun rises at 09:52 UTC and
    // sets at 01:16 UTC on the next day.
    const SunReport sun = Sun(739060.0, 43.3, -83.045);
    EXPECT_EQ(sun.module.j0, 738888.5);
    EXPECT_DOUBLE_EQ(sun.module.sunriseDays, 171.59733151711325);
    EXPECT_DOUBLE_EQ(sun.module.sunsetDays, 171.82995345218822);
    const Json json = SunJson(sun, TimeZone{});
    EXPECT_EQ(json.at("date"), "2024-06-21");
    EXPECT_EQ(json.at("sunrise").get<std::string>().substr(0, 16), "2024-06-21T09:52");
    EXPECT_EQ(json.at("sunset").get<std::string>().substr(0, 16), "2024-06-22T01:16");
    EXPECT_TRUE(json.at("polar").is_null());
    EXPECT_TRUE(json.at("reason").is_null());
    EXPECT_EQ(json.at("module").at("j0"), 738888.5);
    EXPECT_DOUBLE_EQ(json.at("module").at("sunset_star_date").get<double>(), 738888.5 + 171.82995345218822);
    EXPECT_NE(SunText(sun, Location{43.3, -83.045}, TimeZone{})
                  .find("Module sun     171.597332, 171.829953 days from J0 738888.5"),
              std::string::npos);
}

TEST_F(TimetoolSunMoon, PolarDayAndNightAreNamedForEveryEvent) {
    // Longyearbyen and McMurdo at the June solstice: PyEphem gives no event.
    const SunReport north = Sun(StarDateAt(2024, 6, 21, 0, 0), 78.22, 15.65);
    const SunReport south = Sun(StarDateAt(2024, 6, 21, 0, 0), -77.85, 166.67);
    for (const SunEventReport* event : {&north.sunrise, &north.sunset, &north.civilDawn, &north.civilDusk}) {
        EXPECT_EQ(event->absence, sky::SunAbsence::PolarDay);
    }
    for (const SunEventReport* event : {&south.sunrise, &south.sunset, &south.civilDawn, &south.civilDusk}) {
        EXPECT_EQ(event->absence, sky::SunAbsence::PolarNight);
    }
    const Json json = SunJson(south, TimeZone{});
    EXPECT_EQ(json.at("polar"), "polar night");
    EXPECT_EQ(json.at("civil_polar"), "polar night");
    EXPECT_TRUE(json.at("civil_dawn").is_null());
    // Tromso in December: no sunrise, but civil dawn and dusk happen.
    const Json tromso = SunJson(Sun(StarDateAt(2024, 12, 21, 0, 0), 69.65, 18.96), TimeZone{});
    EXPECT_EQ(tromso.at("polar"), "polar night");
    EXPECT_TRUE(tromso.at("civil_polar").is_null());
    EXPECT_EQ(tromso.at("civil_dawn").get<std::string>().substr(0, 16), "2024-12-21T08:31");
}

TEST_F(TimetoolSunMoon, OutsideTheKnownYearsTheReasonStandsForTheTimes) {
    const SunReport sun = Sun(StarDateAt(-1001, 6, 21, 0, 0), 43.3, -83.045);
    EXPECT_FALSE(sun.sunrise.instant);
    const Json json = SunJson(sun, TimeZone{});
    EXPECT_TRUE(json.at("sunrise").is_null());
    EXPECT_TRUE(json.at("civil_dusk").is_null());
    EXPECT_TRUE(json.at("polar").is_null());
    EXPECT_EQ(json.at("reason"), "Earth's rotation is not known well enough outside the years -1000 to 3000");
    EXPECT_TRUE(json.at("module").at("sunrise_days").is_number());
    const MoonReport moon = Moon(StarDateAt(3001, 1, 1, 0, 0));
    const Json moonJson = MoonJson(moon, TimeZone{});
    EXPECT_TRUE(moonJson.at("phase").is_null());
    EXPECT_TRUE(moonJson.at("name").is_null());
    EXPECT_EQ(moonJson.at("reason"), "Earth's rotation is not known well enough outside the years -1000 to 3000");
    EXPECT_TRUE(moonJson.at("module").at("phase").is_number());
}

// Published instants of 2024 (UTC, to the minute).
struct PublishedPhase {
    int month;
    unsigned day;
    int hour;
    int minute;
    int quarter;  // 0 new, 1 first quarter, 2 full, 3 last quarter
};
constexpr PublishedPhase kPhases2024[] = {
    {1, 11, 11, 57, 0}, {1, 25, 17, 54, 2}, {2, 9, 22, 59, 0},  {2, 24, 12, 30, 2}, {3, 10, 9, 0, 0},
    {3, 25, 7, 0, 2},   {4, 8, 18, 21, 0},  {4, 23, 23, 49, 2}, {6, 6, 12, 38, 0},  {6, 14, 5, 18, 1},
    {6, 22, 1, 8, 2},   {6, 28, 21, 53, 3}, {12, 1, 6, 21, 0},  {12, 15, 9, 2, 2},  {12, 30, 22, 27, 0},
};

TEST_F(TimetoolSunMoon, PublishedQuartersOf2024AreNamedAndAngled) {
    for (const PublishedPhase& p : kPhases2024) {
        const double starDate = StarDateAt(2024, static_cast<unsigned>(p.month), p.day, p.hour, p.minute);
        const MoonReport moon = Moon(starDate);
        EXPECT_EQ(moon.name.name, QuarterName(p.quarter).name) << p.month << "-" << p.day;
        // The moon gains about half a degree an hour: within a minute is within 0.01 degrees.
        const double off = std::remainder(moon.phase - 90.0 * p.quarter, 360.0);
        EXPECT_NEAR(off, 0.0, 0.01) << p.month << "-" << p.day;
        // Half a day and more away the name is the stretch's.
        EXPECT_EQ(Moon(starDate + 0.55).name.name, BetweenQuartersName(90.0 * p.quarter + 1.0).name);
        EXPECT_EQ(Moon(starDate - 0.55).name.name, BetweenQuartersName(90.0 * p.quarter - 1.0).name);
    }
}

TEST_F(TimetoolSunMoon, QuartersFallOnThePublishedDays) {
    const StarDay june1 = static_cast<StarDay>(StarDateAt(2024, 6, 1, 0, 0));
    const std::vector<std::optional<DayQuarter>> days = QuartersOfDays(june1, 30);
    int marked = 0;
    for (const PublishedPhase& p : kPhases2024) {
        if (p.month != 6) continue;
        const std::optional<DayQuarter>& day = days.at(p.day - 1);
        ASSERT_TRUE(day) << p.day;
        EXPECT_EQ(day->quarter, p.quarter);
        EXPECT_NEAR(day->instant.second, (p.hour * 60 + p.minute) * 60, 60) << p.day;
        ++marked;
    }
    EXPECT_EQ(marked, 4);
    EXPECT_EQ(std::count_if(days.begin(), days.end(), [](const auto& day) { return day.has_value(); }), 4);
}

TEST_F(TimetoolSunMoon, PhaseAndLitFractionMatchThePyEphemTable) {
    const nlohmann::json& rows = sky::testing::ReferenceRows("moon_phase.json");
    ASSERT_GT(rows.size(), 50u);
    for (const nlohmann::json& row : rows) {
        const double julianDate = row["julian_date"].get<double>();
        const MoonReport moon = Moon(julianDate - 1721422.5);
        // Far from the present the two models' Delta T part by minutes, and
        // the angle with them.
        const double tolerance = sky::testing::NearThePresent(julianDate) ? 0.012 : 0.5;
        EXPECT_NEAR(std::remainder(moon.phase - row["phase"].get<double>(), 360.0), 0.0, tolerance) << julianDate;
        EXPECT_NEAR(moon.illuminated, row["illuminated"].get<double>(), 0.001) << julianDate;
    }
}

TEST_F(TimetoolSunMoon, ModuleMoonIsItsMeanLunation) {
    // The module's worked examples: 172.67579 at 21 June 2024 00:00, 3.84 at
    // 11 January 2024 11:57; the true moon is new at the second.
    EXPECT_NEAR(Moon(739060.0).modulePhase, 172.67579, 0.00001);
    const MoonReport january = Moon(StarDateAt(2024, 1, 11, 11, 57));
    EXPECT_NEAR(january.modulePhase, 3.84, 0.005);
    EXPECT_EQ(january.name.name, "new");
    const Json json = MoonJson(january, TimeZone{});
    EXPECT_EQ(json.at("utc"), "2024-01-11T11:57:00Z");
    EXPECT_NEAR(json.at("module").at("phase").get<double>(), 3.84, 0.005);
    EXPECT_LT(json.at("illuminated").get<double>(), 0.01);
    EXPECT_NE(MoonText(january).find("Module moon    3.84\xC2\xB0 (its mean lunation)"), std::string::npos);
}

}  // namespace
}  // namespace timetool
