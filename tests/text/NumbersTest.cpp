#include "platform/text/Numbers.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace tv::text;

TEST(Numbers, ParseOnlyWholeNumbers) {
    EXPECT_EQ(parseReal(L" +1.5e3\t"), 1500.0);
    EXPECT_EQ(parseReal(L".5"), 0.5);
    EXPECT_EQ(parseReal(L"-5."), -5.0);
    EXPECT_EQ(parseReal("     0.1\r"), 0.1);
    EXPECT_EQ(parseInt("    70"), 70);
    EXPECT_EQ(parseInt(L"-9223372036854775808"), std::numeric_limits<std::int64_t>::min());
    for (const wchar_t* bad :
         {L"", L" ", L"1,5", L"1 2", L"0x10", L"inf", L"nan", L"1e999", L"+-1", L"++1", L"１", L"1m", L"."})
        EXPECT_FALSE(parseReal(bad)) << testing::PrintToString(std::wstring(bad));
    for (const wchar_t* bad : {L"", L"1.0", L"9223372036854775808", L"+-1", L"1e2"})
        EXPECT_FALSE(parseInt(bad));
    EXPECT_FALSE(parseReal(std::wstring_view(L"1\0", 2)));
}

TEST(Numbers, Print) {
    EXPECT_EQ(printReal(1.005, 2), L"1.00"); // just below in binary
    EXPECT_EQ(printReal(-0.0004, 3), L"0.000");
    EXPECT_EQ(printReal(-0.0, 0), L"0");
    EXPECT_EQ(printReal(-0.0005001, 3), L"-0.001");
    EXPECT_EQ(printReal(2.5, -3), L"2");
    EXPECT_EQ(printReal(std::numeric_limits<double>::max(), 500).size(), 410u);
    EXPECT_EQ(printReal(0.1), L"0.1");
    EXPECT_EQ(printReal(-0.0), L"0");
    for (const double value : {1.0 / 3, 1e300, 5e-324, -123456789.123456789})
        EXPECT_EQ(parseReal(printReal(value)), value);
    EXPECT_EQ(printInt(std::numeric_limits<std::int64_t>::min()), L"-9223372036854775808");
}

} // namespace
