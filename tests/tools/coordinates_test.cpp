#include "coordinates.h"

#include <gtest/gtest.h>

#include <string>

namespace timetool {
namespace {

TEST(ParseLatitude, AcceptsSignedDegreesAndHemisphereLetters) {
    EXPECT_EQ(*ParseLatitude("43.3").degrees, 43.3);
    EXPECT_EQ(*ParseLatitude("43.3N").degrees, 43.3);
    EXPECT_EQ(*ParseLatitude("43.3n").degrees, 43.3);
    EXPECT_EQ(*ParseLatitude("33.9S").degrees, -33.9);
    EXPECT_EQ(*ParseLatitude("-33.9").degrees, -33.9);
    EXPECT_EQ(*ParseLatitude("90").degrees, 90.0);
    EXPECT_EQ(*ParseLatitude("-90").degrees, -90.0);
}

TEST(ParseLatitude, RefusesOutOfRangeAndMalformedValues) {
    EXPECT_EQ(ParseLatitude("91").error, "out of range (-90 to 90)");
    EXPECT_EQ(ParseLatitude("90.5S").error, "out of range (-90 to 90)");
    EXPECT_EQ(ParseLatitude("").error, "not a number of degrees");
    EXPECT_EQ(ParseLatitude("N").error, "not a number of degrees");
    EXPECT_EQ(ParseLatitude("-4N").error, "not a number of degrees");
    EXPECT_EQ(ParseLatitude("43.3E").error, "not a number of degrees");
    EXPECT_EQ(ParseLatitude("north").error, "not a number of degrees");
    EXPECT_EQ(ParseLatitude("1e2").error, "not a number of degrees");
}

TEST(ParseLongitude, TakesEastAsPositive) {
    EXPECT_EQ(*ParseLongitude("83.045W").degrees, -83.045);
    EXPECT_EQ(*ParseLongitude("-83.045").degrees, -83.045);
    EXPECT_EQ(*ParseLongitude("2.35E").degrees, 2.35);
    EXPECT_EQ(*ParseLongitude("180").degrees, 180.0);
    EXPECT_EQ(ParseLongitude("181").error, "out of range (-180 to 180)");
    EXPECT_EQ(ParseLongitude("10N").error, "not a number of degrees");
}

TEST(ParseLatitude, DecimalOnly) {
    EXPECT_EQ(*ParseLatitude("010").degrees, 10.0);
    EXPECT_EQ(*ParseLatitude("-010.50").degrees, -10.5);
    for (const char* text :
         {"0x10", "0X1p4", " 43", "43 ", "4 3", "\t43", "43\n", "nan", "inf", "-inf", "43,3", "43..3", "+-4", "--4"}) {
        EXPECT_EQ(ParseLatitude(text).error, "not a number of degrees") << text;
    }
}

TEST(ParseLatitude, TooManyDigitsForADoubleAreStillRead) {
    // Past the largest double: out of range, not "not a number".
    EXPECT_EQ(ParseLatitude(std::string(400, '9')).error, "out of range (-90 to 90)");
    EXPECT_EQ(ParseLatitude("-" + std::string(400, '9')).error, "out of range (-90 to 90)");
    EXPECT_EQ(ParseLongitude(std::string(400, '1') + "W").error, "out of range (-180 to 180)");
    // Below the smallest double: zero degrees.
    EXPECT_EQ(*ParseLatitude("0." + std::string(400, '0') + "1").degrees, 0.0);
    EXPECT_EQ(*ParseLongitude("0." + std::string(400, '0') + "1E").degrees, 0.0);
}

}  // namespace
}  // namespace timetool
