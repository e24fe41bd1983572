#include "sky/moon_phase.h"

#include <gtest/gtest.h>

#include <cmath>

#include "reference_table.h"
#include "sky/angles.h"
#include "sky/delta_t.h"
#include "sky/julian_date.h"
#include "sky/known_years.h"

namespace timetool::sky {
namespace {

using testing::JulianDateAt;
using testing::kSecondsPerDay;
using testing::NearThePresent;
using testing::ReferenceRows;

// Degrees. The series are fitted near the present; the two models part by
// up to 0.01 degrees (a minute and a quarter of the Moon's motion from the
// Sun) from 1500 to 2500 and by up to 0.045 at the ends of the known years.
constexpr double kNearTolerance = 0.012;
constexpr double kFarTolerance = 0.05;

bool Modern(double julianDate) {
    return julianDate >= JulianDateAt(1900, 1, 1, 0, 0) && julianDate < JulianDateAt(2100, 1, 1, 0, 0);
}

double AngleTolerance(double julianDate) { return NearThePresent(julianDate) ? kNearTolerance : kFarTolerance; }

// The same instant of TT for both Delta T models, which differ by minutes
// in the far past and future: the positions are what is compared.
TEST(MoonPhaseAngle, AgreesWithTheReferenceTableInTerrestrialTime) {
    const nlohmann::json& rows = ReferenceRows("moon_phase.json");
    ASSERT_EQ(rows.size(), 500u);
    for (const nlohmann::json& row : rows) {
        const double jd = row["julian_date"].get<double>();
        const double tt = jd + row["delta_t"].get<double>() / kSecondsPerDay;
        EXPECT_NEAR(HalfTurn(MoonPhaseAngleAtTerrestrial(JulianCenturies(tt)) - row["phase"].get<double>()), 0.0,
                    AngleTolerance(jd))
            << "JD " << jd;
    }
}

TEST(MoonPhaseAngle, AgreesWithTheReferenceTableInUniversalTime) {
    int modern = 0;
    for (const nlohmann::json& row : ReferenceRows("moon_phase.json")) {
        const double jd = row["julian_date"].get<double>();
        if (!Modern(jd)) continue;
        ++modern;
        EXPECT_NEAR(HalfTurn(MoonPhaseAngle(jd) - row["phase"].get<double>()), 0.0, kNearTolerance) << "JD " << jd;
    }
    EXPECT_GE(modern, 200);
}

TEST(MoonPhaseAt, AgreesWithTheReferenceTableOnTheLitFraction) {
    for (const nlohmann::json& row : ReferenceRows("moon_phase.json")) {
        const double jd = row["julian_date"].get<double>();
        const MoonPhase phase = MoonPhaseAt(jd);
        EXPECT_EQ(phase.angle, MoonPhaseAngle(jd)) << "JD " << jd;
        EXPECT_NEAR(phase.illuminated, row["illuminated"].get<double>(), 0.001) << "JD " << jd;
    }
}

TEST(MoonPhaseAt, IsNotANumberOutsideTheKnownYears) {
    const double first = JulianDateAtMidnight(kFirstKnownDay);
    const double end = JulianDateAtMidnight(kEndKnownDay);
    for (double jd : {std::nextafter(first, 0.0), end, 0.0, 1e7, std::nan("")}) {
        EXPECT_TRUE(std::isnan(MoonPhaseAngle(jd))) << jd;
        EXPECT_TRUE(std::isnan(MoonPhaseAt(jd).angle)) << jd;
        EXPECT_TRUE(std::isnan(MoonPhaseAt(jd).illuminated)) << jd;
    }
    EXPECT_FALSE(std::isnan(MoonPhaseAngle(first)));
    EXPECT_FALSE(std::isnan(MoonPhaseAngle(end - 1e-6)));
}

}  // namespace
}  // namespace timetool::sky
