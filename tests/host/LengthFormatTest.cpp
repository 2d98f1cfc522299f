#include "platform/host/units/LengthFormat.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

using tv::host::formatLength;
using tv::host::parseLength;

namespace {

struct Known {
    double value;
    int lunits;
    int precision;
    int dimzin;
    const wchar_t* text;
};

TEST(LengthFormat, ShowsTheKnownValues) {
    const Known table[] = {
        // scientific
        {15.5, 1, 4, 1, L"1.5500E+01"},
        {0.000123456, 1, 2, 1, L"1.23E-04"},
        {9.999, 1, 2, 1, L"1.00E+01"},
        {-1e120, 1, 0, 1, L"-1E+120"},
        {0, 1, 3, 1, L"0.000E+00"},
        {1.5, 1, 4, 8, L"1.5E+00"},
        // decimal: what is seen is rounded, halves away from zero
        {2.00390625, 2, 4, 1, L"2.0039"},
        {0.125, 2, 2, 1, L"0.13"},
        {1.005, 2, 2, 1, L"1.01"},
        {-0.125, 2, 2, 1, L"-0.13"},
        {-0.001, 2, 2, 1, L"0.00"},
        {99.996, 2, 2, 1, L"100.00"},
        {0.5, 2, 4, 12, L".5"},
        {12, 2, 4, 8, L"12"},
        {0, 2, 2, 4, L".00"},
        {0, 2, 2, 12, L"0"},
        {1e21, 2, 0, 1, L"1000000000000000000000"},
        // engineering
        {15.5, 3, 4, 1, L"1'-3.5000\""},
        {11.9999, 3, 2, 1, L"1'-0.00\""},
        {-27.005, 3, 2, 1, L"-2'-3.01\""},
        {0.5, 3, 1, 0, L"0.5\""},
        {24, 3, 1, 0, L"2'"},
        {24.5, 3, 4, 8, L"2'-0.5\""},
        // architectural
        {15.5, 4, 4, 1, L"1'-3 1/2\""},
        {11.9999, 4, 4, 1, L"1'-0\""},
        {-15.5, 4, 1, 1, L"-1'-3 1/2\""},
        {12.0625, 4, 4, 1, L"1'-0 1/16\""},
        {0.5, 4, 0, 1, L"0'-1\""},
        {2.00390625, 4, 8, 1, L"0'-2 1/256\""},
        {-0.001, 4, 4, 1, L"0'-0\""},
        // the four rules for zero feet and zero inches
        {0.5, 4, 4, 0, L"1/2\""},
        {0.5, 4, 4, 1, L"0'-0 1/2\""},
        {0.5, 4, 4, 2, L"0'-0 1/2\""},
        {0.5, 4, 4, 3, L"1/2\""},
        {12, 4, 4, 0, L"1'"},
        {12, 4, 4, 2, L"1'"},
        {12, 4, 4, 3, L"1'-0\""},
        {0, 4, 4, 0, L"0\""},
        {0, 4, 4, 2, L"0'"},
        // fractional
        {15.5, 5, 4, 1, L"15 1/2"},
        {0.75, 5, 4, 1, L"3/4"},
        {-0.75, 5, 1, 1, L"-1"},
        {2.99, 5, 4, 1, L"3"},
        {0, 5, 4, 1, L"0"},
        // arguments outside their range
        {1.5, 9, 2, 1, L"1.50"},
        {1.5, 2, -3, 1, L"2"},
        {1.5, 2, 99, 1, L"1.50000000"},
        {std::numeric_limits<double>::infinity(), 4, 2, 1, L"inf"},
        {std::nan(""), 2, 2, 1, L"nan"},
    };
    for (const Known& k : table)
        EXPECT_EQ(formatLength(k.value, k.lunits, k.precision, {.dimzin = k.dimzin}), k.text)
            << k.value << " lunits " << k.lunits << " precision " << k.precision << " dimzin " << k.dimzin;
    EXPECT_EQ(formatLength(15.5, 4, 4, {.unitmode = 1}), L"1'3-1/2\"");
    EXPECT_EQ(formatLength(15.5, 5, 4, {.unitmode = 1}), L"15-1/2");
}

TEST(LengthFormat, ReadsWhatACadUserTypes) {
    struct Entry {
        const wchar_t* text;
        int lunits;
        double value;
    };
    const Entry table[] = {
        {L"15.5", 2, 15.5},
        {L" .5 ", 2, 0.5},
        {L"1.5e3", 2, 1500},
        {L"-1E-2", 1, -0.01},
        {L"+7", 2, 7},
        {L"3/4", 2, 0.75},
        {L"15 1/2", 5, 15.5},
        {L"-15-1/2", 5, -15.5},
        {L"31/2", 5, 15.5},
        {L"1'-3 1/2\"", 4, 15.5},
        {L"1'3-1/2", 4, 15.5},
        {L"1'3.5", 3, 15.5},
        {L"1'", 4, 12},
        {L"1.5'", 4, 18},
        {L"3.5\"", 3, 3.5},
        {L"-1' - 3 1/2 \"", 4, -15.5},
        {L"1\u2032 3\u2033", 4, 15},
        {L"1'-0 1/16\"", 4, 12.0625},
        {L"5.", 2, 5},
    };
    for (const Entry& e : table) {
        const auto value = parseLength(e.text, e.lunits);
        ASSERT_TRUE(value) << e.text;
        EXPECT_DOUBLE_EQ(*value, e.value) << e.text;
    }
    for (const wchar_t* bad :
         {L"",    L" ",   L"-",   L"abc",   L"1,5",     L"1 2",  L"1/0", L"1/",     L"1'3'", L"1.5'3",
          L"1'-", L"inf", L"nan", L"1e999", L"1.5 1/2", L"3\"x", L"--1", L"1' -3-", L"1e",   L"\u0661"})
        EXPECT_FALSE(parseLength(bad, 4)) << bad;
    EXPECT_FALSE(parseLength(L"1'3", 2)) << "feet have no meaning in decimal units";
    EXPECT_FALSE(parseLength(L"3\"", 5));
}

// What is shown reads back within half of the last shown step, whatever the unit type, precision and form.
TEST(LengthFormat, ReadsBackWhatItShows) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> exponent(-3, 6);
    for (int i = 0; i < 4000; ++i) {
        const double value = std::pow(10.0, exponent(random)) * (random() % 2 ? 1 : -1);
        const int lunits = 1 + static_cast<int>(random() % 5);
        const int precision = static_cast<int>(random() % 9);
        const int dimzin = static_cast<int>(random() % 16);
        const std::wstring text =
            formatLength(value, lunits, precision, {dimzin, static_cast<int>(random() % 2)});
        const auto back = parseLength(text, lunits);
        ASSERT_TRUE(back) << "'" << std::string(text.begin(), text.end()) << "'";
        double step = lunits >= 4 ? std::ldexp(1.0, -precision) : std::pow(10.0, -precision);
        if (lunits == 1) step *= std::fabs(value);
        EXPECT_NEAR(*back, value, step * 0.5 + 1e-9 * std::fabs(value))
            << std::string(text.begin(), text.end());
    }
}

} // namespace
