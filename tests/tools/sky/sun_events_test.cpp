#include "sky/sun_events.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "reference_table.h"
#include "sky/julian_date.h"
#include "sky/known_years.h"

namespace timetool::sky {
namespace {

using testing::JulianDateAt;
using testing::kSecondsPerDay;
using testing::ReferenceRows;

// How an event reads in the reference table: a Julian Date or the name of
// the absence.
std::string Describe(const SunEvent& event) {
    switch (event.absence) {
        case SunAbsence::None:
            return std::to_string(event.julianDate);
        case SunAbsence::PolarDay:
            return "polar day";
        case SunAbsence::PolarNight:
            return "polar night";
        case SunAbsence::UnknownYears:
            return "unknown years";
        case SunAbsence::InvalidPlace:
            return "invalid place";
    }
    return "?";
}

bool Grazing(const nlohmann::json& row, const char* key) {
    if (!row.contains("grazing")) return false;
    for (const nlohmann::json& k : row["grazing"]) {
        if (k == key) return true;
    }
    return false;
}

// Where the sun only grazes an event's altitude, whether it crosses is
// below what either model can tell, and the times of a crossing move by
// minutes for every second of arc; there the two only have to agree within
// a quarter of an hour when both give a time.
constexpr double kGrazingTolerance = 900.0;  // seconds

void ExpectEvent(const nlohmann::json& row, const char* key, const SunEvent& event) {
    const nlohmann::json& expected = row[key];
    const std::string where = row["place"].get<std::string>() + " " + row["date"].get<std::string>() + " " + key;
    if (Grazing(row, key)) {
        if (expected.is_number() && event.Happens()) {
            EXPECT_NEAR(event.julianDate, expected.get<double>(), kGrazingTolerance / kSecondsPerDay) << where;
        }
        return;
    }
    if (expected.is_string()) {
        EXPECT_EQ(Describe(event), expected.get<std::string>()) << where;
        return;
    }
    ASSERT_TRUE(event.Happens()) << where << ": " << Describe(event);
    const double tolerance = std::fabs(row["latitude"].get<double>()) <= 65.0 ? 60.0 : 600.0;  // seconds
    EXPECT_NEAR(event.julianDate, expected.get<double>(), tolerance / kSecondsPerDay)
        << where << ": off by " << (event.julianDate - expected.get<double>()) * kSecondsPerDay << " s";
}

SunDay DayOfRow(const nlohmann::json& row) {
    return SunDayAt(row["days"].get<std::int64_t>(), {row["latitude"].get<double>(), row["longitude"].get<double>()});
}

TEST(SunDayAt, AgreesWithTheReferenceTable) {
    const nlohmann::json& rows = ReferenceRows("sun_events.json");
    ASSERT_GT(rows.size(), 500u);
    int grazing = 0;
    for (const nlohmann::json& row : rows) {
        grazing += row.contains("grazing") ? 1 : 0;
        const SunDay day = DayOfRow(row);
        ExpectEvent(row, "sunrise", day.horizon.rise);
        ExpectEvent(row, "sunset", day.horizon.set);
        ExpectEvent(row, "civil_dawn", day.civil.rise);
        ExpectEvent(row, "civil_dusk", day.civil.set);
    }
    EXPECT_LT(grazing, 12);
}

// The days on which the sun starts or stops rising or setting, where one
// event of a pair can be missing while the other happens.
TEST(SunDayAt, AgreesOnTheDaysPolarDayAndNightBeginAndEnd) {
    int boundaries = 0;
    int halfPairs = 0;
    const nlohmann::json* previous = nullptr;
    for (const nlohmann::json& row : ReferenceRows("sun_events.json")) {
        const bool continues = previous != nullptr && (*previous)["place"] == row["place"] &&
                               (*previous)["days"].get<std::int64_t>() + 1 == row["days"].get<std::int64_t>();
        for (const char* key : {"sunrise", "sunset", "civil_dawn", "civil_dusk"}) {
            if (continues && (*previous)[key].is_string() != row[key].is_string()) {
                ++boundaries;
                const SunDay day = DayOfRow(row);
                const SunDay before = DayOfRow(*previous);
                ExpectEvent(row, "sunrise", day.horizon.rise);
                ExpectEvent(row, "sunset", day.horizon.set);
                ExpectEvent(row, "civil_dawn", day.civil.rise);
                ExpectEvent(row, "civil_dusk", day.civil.set);
                ExpectEvent(*previous, "sunrise", before.horizon.rise);
                ExpectEvent(*previous, "sunset", before.horizon.set);
                ExpectEvent(*previous, "civil_dawn", before.civil.rise);
                ExpectEvent(*previous, "civil_dusk", before.civil.set);
            }
        }
        if (row["sunrise"].is_string() != row["sunset"].is_string() ||
            row["civil_dawn"].is_string() != row["civil_dusk"].is_string()) {
            ++halfPairs;
        }
        previous = &row;
    }
    EXPECT_GE(boundaries, 12);  // four kinds of boundary at each of three polar places, at least
    EXPECT_GT(halfPairs, 0);
}

// A day a reader can check against any almanac: at the module's default
// place the sun rises at 09:52 UTC and sets at 01:16 UTC the next day.
TEST(SunDayAt, GivesTheDefaultPlaceItsMidsummerDay) {
    const SunDay day = SunDayAt(DaysFromCivil(2024, 6, 21), {43.3, -83.045});
    EXPECT_NEAR(day.horizon.rise.julianDate, JulianDateAt(2024, 6, 21, 9, 52), 60.0 / kSecondsPerDay);
    EXPECT_NEAR(day.horizon.set.julianDate, JulianDateAt(2024, 6, 22, 1, 16), 60.0 / kSecondsPerDay);
}

TEST(SunDayAt, PutsLondonsDecemberSunriseBeforeItsSunset) {
    for (unsigned d = 1; d <= 31; ++d) {
        const SunDay day = SunDayAt(DaysFromCivil(2024, 12, d), {51.5, -0.13});
        EXPECT_LT(day.civil.rise.julianDate, day.horizon.rise.julianDate) << d;
        EXPECT_LT(day.horizon.rise.julianDate, day.horizon.set.julianDate) << d;
        EXPECT_LT(day.horizon.set.julianDate, day.civil.set.julianDate) << d;
    }
}

TEST(SunDayAt, KeepsEveryEventInsideItsSolarDay) {
    const Place places[] = {{69.65, 18.96},   {-77.85, 166.67}, {1.35, 103.82}, {-36.85, 174.76},
                            {21.31, -157.86}, {0.0, 180.0},     {0.0, -180.0},  {66.0, -179.9}};
    for (const Place& place : places) {
        for (std::int64_t days = DaysFromCivil(2024, 1, 1); days < DaysFromCivil(2025, 1, 1); days += 3) {
            const double start = SolarDayStart(days, place.longitude);
            const SunDay day = SunDayAt(days, place);
            for (const SunEvent& e : {day.horizon.rise, day.horizon.set, day.civil.rise, day.civil.set}) {
                if (!e.Happens()) continue;
                EXPECT_GE(e.julianDate, start) << place.latitude << " " << place.longitude << " " << days;
                EXPECT_LT(e.julianDate, start + 1.0) << place.latitude << " " << place.longitude << " " << days;
            }
        }
    }
}

TEST(SunDayAt, NamesPolarDayAndNightAtThePoles) {
    const std::int64_t june = DaysFromCivil(2024, 6, 21);
    const std::int64_t december = DaysFromCivil(2024, 12, 21);
    EXPECT_EQ(SunDayAt(june, {90.0, 0.0}).horizon.rise.absence, SunAbsence::PolarDay);
    EXPECT_EQ(SunDayAt(june, {90.0, 0.0}).civil.set.absence, SunAbsence::PolarDay);
    EXPECT_EQ(SunDayAt(june, {-90.0, 0.0}).horizon.set.absence, SunAbsence::PolarNight);
    EXPECT_EQ(SunDayAt(june, {-90.0, 0.0}).civil.rise.absence, SunAbsence::PolarNight);
    EXPECT_EQ(SunDayAt(december, {90.0, 45.0}).horizon.rise.absence, SunAbsence::PolarNight);
    EXPECT_EQ(SunDayAt(december, {-90.0, -45.0}).horizon.rise.absence, SunAbsence::PolarDay);
}

TEST(SunDayAt, GivesNoTimesOutsideTheKnownYears) {
    const Place london{51.5, -0.13};
    for (std::int64_t days :
         {kFirstKnownDay - 1, kEndKnownDay, DaysFromCivil(-20000, 1, 1), DaysFromCivil(9999, 1, 1)}) {
        const SunDay day = SunDayAt(days, london);
        for (const SunEvent& e : {day.horizon.rise, day.horizon.set, day.civil.rise, day.civil.set}) {
            EXPECT_EQ(e.absence, SunAbsence::UnknownYears) << days;
            EXPECT_TRUE(std::isnan(e.julianDate)) << days;
        }
    }
    EXPECT_TRUE(SunDayAt(kFirstKnownDay, {51.5, 180.0}).horizon.rise.Happens());
    EXPECT_TRUE(SunDayAt(kEndKnownDay - 1, {51.5, -180.0}).horizon.set.Happens());
}

TEST(SunDayAt, RefusesAPlaceOutOfRange) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const Place places[] = {{90.5, 0.0}, {-91.0, 0.0}, {0.0, 180.5}, {0.0, -181.0}, {nan, 0.0}, {0.0, nan}};
    for (const Place& place : places) {
        const SunDay day = SunDayAt(DaysFromCivil(2024, 6, 21), place);
        for (const SunEvent& e : {day.horizon.rise, day.horizon.set, day.civil.rise, day.civil.set}) {
            EXPECT_EQ(e.absence, SunAbsence::InvalidPlace) << place.latitude << " " << place.longitude;
            EXPECT_TRUE(std::isnan(e.julianDate));
        }
    }
}

TEST(DescribeAbsence, NamesEachReason) {
    EXPECT_EQ(DescribeAbsence(SunAbsence::None), "");
    EXPECT_EQ(DescribeAbsence(SunAbsence::PolarDay), "polar day");
    EXPECT_EQ(DescribeAbsence(SunAbsence::PolarNight), "polar night");
    EXPECT_EQ(DescribeAbsence(SunAbsence::UnknownYears),
              "Earth's rotation is not known well enough outside the years -1000 to 3000");
    EXPECT_EQ(DescribeAbsence(SunAbsence::InvalidPlace), "no such place");
}

TEST(SunPath, CrossesAnyAltitude) {
    // The sun at Quito on an equinox climbs nearly straight up: it passes
    // 30 degrees about two hours after crossing the horizon.
    const SunPath path(SolarDayStart(DaysFromCivil(2024, 3, 20), -78.47), {-0.18, -78.47});
    const SunCrossings horizon = path.Crossings(kSunriseAltitude);
    const SunCrossings thirty = path.Crossings(30.0);
    ASSERT_TRUE(thirty.rise.Happens());
    EXPECT_NEAR((thirty.rise.julianDate - horizon.rise.julianDate) * 24.0, (30.0 - kSunriseAltitude) / 15.0, 0.02);

    // In London the sun culminates 15 degrees high in December and never
    // sinks more than 15 degrees below the horizon in June.
    const Place london{51.5, -0.13};
    const SunPath december(SolarDayStart(DaysFromCivil(2024, 12, 21), london.longitude), london);
    EXPECT_EQ(december.Crossings(20.0).rise.absence, SunAbsence::PolarNight);
    EXPECT_TRUE(december.Crossings(10.0).rise.Happens());
    const SunPath june(SolarDayStart(DaysFromCivil(2024, 6, 21), london.longitude), london);
    EXPECT_EQ(june.Crossings(-20.0).set.absence, SunAbsence::PolarDay);
    EXPECT_TRUE(june.Crossings(-10.0).set.Happens());
}

}  // namespace
}  // namespace timetool::sky
