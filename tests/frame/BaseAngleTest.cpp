#include "kxgui/frame/BaseAngle.h"
#include "kxgui/frame/UnitsSample.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

using namespace kx::frame;
using std::numbers::pi;

namespace {
constexpr double degree = pi / 180.0;
enum { degrees = 0, degMinSec = 1, grads = 2, radians = 3, surveyor = 4 };
} // namespace

TEST(BaseAngle, LettersSwapNorthAndSouthWhileClockwise) {
    EXPECT_EQ(compassOfLetter(L" n ", false), Compass::north);
    EXPECT_EQ(compassOfLetter(L"s", false), Compass::south);
    EXPECT_EQ(compassOfLetter(L"s", true), Compass::north);
    EXPECT_EQ(compassOfLetter(L"N", true), Compass::south);
    EXPECT_EQ(compassOfLetter(L"E", true), Compass::east);
    EXPECT_EQ(compassOfLetter(L"w", true), Compass::west);
    EXPECT_FALSE(compassOfLetter(L"NE", false));
    EXPECT_FALSE(compassOfLetter(L"", false));
}

TEST(BaseAngle, OnlyGradsAreConverted) {
    EXPECT_DOUBLE_EQ(enteredToRadians(100.0, grads), pi / 2.0);
    for (const int type : {degrees, degMinSec, radians, surveyor})
        EXPECT_DOUBLE_EQ(enteredToRadians(90.0, type), pi / 2.0) << type;
}

TEST(BaseAngle, FullTurnsComeOffAndClockwiseIsMirrored) {
    EXPECT_NEAR(baseAngleOfEntry(370.0 * degree, false), 10.0 * degree, 1e-12);
    EXPECT_NEAR(baseAngleOfEntry(370.0 * degree, true), 350.0 * degree, 1e-12);
    EXPECT_NEAR(baseAngleOfEntry(-30.0 * degree, false), 330.0 * degree, 1e-12);
    EXPECT_NEAR(baseAngleOfEntry(2.0 * pi, false), 0.0, 1e-12);
    for (const double angle : {0.0, 0.3, 2.0, 6.2})
        for (const bool clockwise : {false, true})
            EXPECT_NEAR(std::sin(baseAngleOfEntry(entryOfBaseAngle(angle, clockwise), clockwise)),
                        std::sin(angle), 1e-12);
}

TEST(BaseAngle, DegreesMinutesSecondsAreReadPartByPart) {
    EXPECT_NEAR(GetAngleFromDegreeMinSec(L"45d30'36\"").value(), 45.51, 1e-12);
    EXPECT_NEAR(GetAngleFromDegreeMinSec(L" -10D 15' ").value(), -10.25, 1e-12);
    EXPECT_NEAR(GetAngleFromDegreeMinSec(L"12°30'").value(), 12.5, 1e-12);
    EXPECT_NEAR(GetAngleFromDegreeMinSec(L"45d30").value(), 45.5, 1e-12);
    EXPECT_NEAR(GetAngleFromDegreeMinSec(L"33.25").value(), 33.25, 1e-12);
    for (const wchar_t* wrong :
         {L"", L"d", L"45d60'", L"45.5d30'", L"45d30'61\"", L"45d30'1\"2", L"4 5", L"1e3d", L"x"})
        EXPECT_FALSE(GetAngleFromDegreeMinSec(wrong)) << wrong;
}

TEST(BaseAngle, EntriesAreCheckedByTheirType) {
    EXPECT_DOUBLE_EQ(angleEntry(L"50g", grads).value(), 50.0);
    EXPECT_NEAR(angleEntry(L"N45d0'E", surveyor).value(), 45.0, 1e-9);
    EXPECT_DOUBLE_EQ(angleEntry(L"1.5", radians).value(), 1.5);
    EXPECT_FALSE(IsvalidValue(L"1.5r", radians)); // it would be taken as degrees
    EXPECT_FALSE(IsvalidValue(L"abc", degrees));
    EXPECT_FALSE(IsvalidValue(L"", grads));
    EXPECT_FALSE(IsvalidValue(L"1e300", degrees));
    EXPECT_FALSE(IsvalidValue(L"nan", degrees));
    EXPECT_FALSE(IsvalidValue(L"N95dE", surveyor));
}

TEST(BaseAngle, TheFieldShowsWhatItTakesBack) {
    for (const int type : {degrees, degMinSec, grads, radians, surveyor})
        for (const bool clockwise : {false, true}) {
            const auto text = entryText(0.5, type, 8, clockwise);
            const auto value = angleEntry(text, type);
            ASSERT_TRUE(value) << type;
            EXPECT_NEAR(baseAngleOfEntry(enteredToRadians(*value, type), clockwise), 0.5, 1e-5) << type;
        }
}

TEST(UnitsSample, FollowsTypePrecisionAndDirection) {
    EXPECT_EQ(lengthSample(2, 4), L"1.5000,2.0039,0.0000");
    EXPECT_EQ(lengthSample(4, 8), L"0'-1 1/2\",0'-2 1/256\",0'-0\"");
    EXPECT_DOUBLE_EQ(sampleAngle(0.0, false), 45.0);
    EXPECT_NEAR(sampleAngle(pi / 2.0, true), 45.0, 1e-9);
    EXPECT_NEAR(sampleAngle(pi / 2.0, false), 315.0, 1e-9);
    EXPECT_EQ(angleSample(0.0, false, 2, 0, degrees, 2), L"3<45,0");
}

TEST(UnitsSample, AnglesOfEveryTypeAndPrecision) {
    EXPECT_EQ(angleText(45.5, degrees, 2), L"45.5");
    EXPECT_EQ(angleText(45.0, grads, 0), L"50g");
    EXPECT_EQ(angleText(45.0, radians, 4), L"0.7854r");
    EXPECT_EQ(angleText(45.51, degMinSec, 0), L"46d");
    EXPECT_EQ(angleText(45.51, degMinSec, 2), L"45d31'");
    EXPECT_EQ(angleText(45.51, degMinSec, 4), L"45d30'36\"");
    EXPECT_EQ(angleText(45.51, degMinSec, 6), L"45d30'36.00\"");
    EXPECT_EQ(angleText(59.9999999, degMinSec, 4), L"60d0'0\"") << "what rounds up carries";
    EXPECT_EQ(angleText(45.0, surveyor, 0), L"N 45d E");
    EXPECT_EQ(angleText(120.0, surveyor, 0), L"N 30d W");
    EXPECT_EQ(angleText(225.0, surveyor, 1), L"S 45d0' W");
    EXPECT_EQ(angleText(300.0, surveyor, 0), L"S 30d E");
    EXPECT_EQ(angleText(90.0, surveyor, 0), L"N");
    EXPECT_EQ(angleText(180.0, surveyor, 0), L"W");
    EXPECT_EQ(angleText(89.8, surveyor, 0), L"N") << "what shows as on the axis";
}
