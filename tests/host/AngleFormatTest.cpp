#include "platform/host/units/AngleFormat.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

using tv::host::formatAngle;
using tv::host::parseAngle;

namespace {

constexpr double kPi = std::numbers::pi;
double deg(double degrees) { return degrees * kPi / 180; }

TEST(AngleFormat, ShowsTheKnownValues) {
    struct Known {
        double degrees;
        int aunits;
        int precision;
        const wchar_t* text;
    };
    const Known table[] = {
        {45, 0, 4, L"45.0000"},
        {-45.25, 0, 1, L"-45.3"},
        {-0.001, 0, 2, L"0.00"},
        {370, 0, 0, L"370"},
        // degrees, minutes, seconds: every precision's form
        {45.504236111, 1, 0, L"46d"},
        {45.504236111, 1, 1, L"45d30'"},
        {45.504236111, 1, 2, L"45d30'"},
        {45.504236111, 1, 3, L"45d30'15\""},
        {45.504236111, 1, 4, L"45d30'15\""},
        {45.504236111, 1, 6, L"45d30'15.25\""},
        {45.504236111, 1, 8, L"45d30'15.2500\""},
        {45.99999, 1, 4, L"46d0'0\""},
        {45.99999, 1, 1, L"46d0'"},
        {-30.5, 1, 2, L"-30d30'"},
        {-0.00001, 1, 4, L"0d0'0\""},
        // grads, radians
        {45, 2, 4, L"50.0000g"},
        {-90, 2, 0, L"-100g"},
        {180, 3, 4, L"3.1416r"},
        {45, 3, 4, L"0.7854r"},
        // bearings: all quadrants, the axes, carrying onto an axis
        {45, 4, 4, L"N 45d0'0\" E"},
        {100, 4, 0, L"N 10d W"},
        {190.5, 4, 2, L"S 79d30' W"},
        {359, 4, 4, L"S 89d0'0\" E"},
        {0, 4, 4, L"E"},
        {90, 4, 8, L"N"},
        {180, 4, 0, L"W"},
        {-90, 4, 4, L"S"},
        {720, 4, 4, L"E"},
        {89.99999, 4, 4, L"N"},
        {359.99999, 4, 4, L"E"},
        {0.2, 4, 0, L"E"},
    };
    for (const Known& k : table)
        EXPECT_EQ(formatAngle(deg(k.degrees), k.aunits, k.precision), k.text)
            << k.degrees << " aunits " << k.aunits << " precision " << k.precision;
    EXPECT_EQ(formatAngle(deg(45), 4, 4, {.unitmode = 1}), L"N45d0'0\"E");
    EXPECT_EQ(formatAngle(deg(0.5), 0, 4, {.dimzin = 3}), L".5");
}

TEST(AngleFormat, MeasuresFromTheBaseAngleInTheChosenDirection) {
    EXPECT_EQ(formatAngle(deg(90), 0, 0, {.angbase = deg(90)}), L"0");
    EXPECT_EQ(formatAngle(deg(45), 0, 0, {.angbase = deg(90), .normalize = true}), L"315");
    EXPECT_EQ(formatAngle(deg(45), 0, 0, {.angbase = deg(90), .clockwise = true}), L"45");
    EXPECT_EQ(formatAngle(deg(-0.001), 0, 0, {.normalize = true}), L"0") << "a full turn is shown as none";
    EXPECT_EQ(formatAngle(deg(359.99999), 1, 4, {.normalize = true}), L"0d0'0\"");
    EXPECT_EQ(formatAngle(deg(359.9999), 2, 1, {.normalize = true}), L"0.0g");
    EXPECT_EQ(formatAngle(deg(45), 4, 4, {.angbase = deg(90), .clockwise = true}), L"N 45d0'0\" E")
        << "bearings are absolute";
    EXPECT_NEAR(*parseAngle(L"30", 0, {.angbase = deg(90), .clockwise = true}), deg(60), 1e-15);
    EXPECT_NEAR(*parseAngle(L"N", 0, {.angbase = deg(90), .clockwise = true}), deg(90), 1e-15);
}

TEST(AngleFormat, ReadsWhatACadUserTypes) {
    struct Entry {
        const wchar_t* text;
        int aunits;
        double degrees;
    };
    const Entry table[] = {
        {L"45", 0, 45},
        {L" -45.5 ", 0, -45.5},
        {L"45", 1, 45},
        {L"100", 2, 90},
        {L"45", 4, 45},
        {L"50g", 0, 45},
        {L"1R", 0, 180 / kPi},
        {L"1", 3, 180 / kPi},
        {L"45d30'15\"", 0, 45 + 30 / 60.0 + 15 / 3600.0},
        {L"45D 30' 15.25\"", 1, 45 + 30 / 60.0 + 15.25 / 3600.0},
        {L"-45d30", 1, -45.5},
        {L"45.5d", 1, 45.5},
        {L"45\u00B030\u2032", 1, 45.5},
        {L"N45dE", 4, 45},
        {L"n 45 w", 0, 135},
        {L"S79d30'W", 4, 190.5},
        {L"S 1d E", 4, 271},
        {L"N0E", 4, 90},
        {L"e", 4, 0},
        {L"W", 0, 180},
        {L"S", 4, 270},
    };
    for (const Entry& e : table) {
        const auto value = parseAngle(e.text, e.aunits);
        ASSERT_TRUE(value) << e.text;
        EXPECT_NEAR(*value, deg(e.degrees), 1e-14) << e.text;
    }
    for (const wchar_t* bad :
         {L"", L"d", L"45d60'", L"45d30'60\"", L"45.5d30'", L"45d15\"", L"N91E", L"N45", L"N45N", L"EN",
          L"N-4E", L"45x", L"45gr", L"1e999", L"inf", L"4 5", L"-N", L"45d30.5'15\""})
        EXPECT_FALSE(parseAngle(bad, 0)) << bad;
}

TEST(AngleFormat, ReadsBackWhatItShows) {
    std::mt19937 random(11);
    std::uniform_real_distribution<double> degrees(-720, 720);
    for (int i = 0; i < 4000; ++i) {
        const double angle = deg(degrees(random));
        const int aunits = static_cast<int>(random() % 5);
        const int precision = static_cast<int>(random() % 9);
        const std::wstring text = formatAngle(angle, aunits, precision,
                                              {.dimzin = static_cast<int>(random() % 4), .unitmode = i % 2});
        const auto back = parseAngle(text, aunits);
        ASSERT_TRUE(back) << std::string(text.begin(), text.end());
        double step = std::pow(10.0, -precision); // in the unit shown, at least as coarse as it is
        if (aunits == 1 || aunits == 4) step = precision == 0 ? 1 : precision <= 2 ? 1 / 60.0 : 1 / 3600.0;
        const double difference = std::remainder(*back - angle, 2 * kPi);
        EXPECT_NEAR(difference, 0, (aunits == 3 ? step : deg(step)) * 0.5 + 1e-12)
            << std::string(text.begin(), text.end());
    }
}

} // namespace
