#include "platform/text/OdString.h"
#include "platform/text/Unicode.h"

#include <gtest/gtest.h>

#include <locale>

namespace {

TEST(OdString, PositionsAndPartsOutOfRange) {
    const OdString text(L"도면층 0");
    EXPECT_EQ(text.find(L'0'), 4);
    EXPECT_EQ(text.find(L"x"), -1);
    EXPECT_EQ(text.find(L"도", -5), 0);
    EXPECT_EQ(text.reverseFind(L' '), 3);
    EXPECT_EQ(text.mid(4, 99), L"0");
    EXPECT_EQ(text.mid(99), L"");
    EXPECT_EQ(text.mid(-2, 2), L"도면");
    EXPECT_EQ(text.right(99), text);
    EXPECT_EQ(text.left(-1), text);
    EXPECT_EQ(OdString(static_cast<const wchar_t*>(nullptr)), L"");
}

TEST(OdString, CaseReplaceTrim) {
    EXPECT_EQ(OdString(L"Straße").iCompare(L"STRASSE"), 0);
    EXPECT_LT(OdString(L"a_").iCompare(L"AB"), 0);
    EXPECT_EQ(OdString(L"ß").makeUpper(), L"SS");
    OdString text(L"\t a\x3000");
    EXPECT_EQ(text.trim(), L"a");
    text = L"aaa";
    EXPECT_EQ(text.replace(L"a", L"aa"), 3); // what was put in is not searched again
    EXPECT_EQ(text, L"aaaaaa");
    EXPECT_EQ(text.replace(L"", L"x"), 0);
}

TEST(Format, PrintfRulesAndFaultyPatterns) {
    using tv::text::format;
    EXPECT_EQ(format(L"%d %u %x %5.2f %s %c%%", -1, 2u, 255, 1.005, L"가", L'나'), L"-1 2 ff  1.00 가 나%");
    EXPECT_EQ(format(L"%lg|%ls|%-5s|%05d", 0.5, OdString(L"w"), std::wstring(L"ab"), 42), L"0.5|w|ab   |00042");
    EXPECT_EQ(format(L"%d %d", 1), L"%d %d");
    EXPECT_EQ(format(L"%s"), L"%s");
    EXPECT_EQ(format(L"100%"), L"100%");

    struct Comma : std::numpunct<wchar_t> {
        wchar_t do_decimal_point() const override { return L','; }
    };
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new Comma));
    EXPECT_EQ(format(L"%.1f %g", 1.5, 0.25), L"1.5 0.25");
    std::locale::global(before);
}

TEST(Unicode, IllFormedBytesOneByOne) {
    using namespace tv::text;
    EXPECT_EQ(fromUtf8("a\xC3(\xE2\x82"), L"a\xFFFD(\xFFFD\xFFFD");
    // At every place of a block and across its end: the shortest and longest of each length, and their
    // neighbours.
    for (std::size_t before = 100; before < 150; ++before) {
        const std::string lead(before, 'x');
        for (const char* good :
             {"", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80", "\xEF\xBF\xBF",
              "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF", "\xC3\xA9\xED\x95\x98"}) {
            EXPECT_TRUE(isUtf8(lead + good)) << before;
            EXPECT_TRUE(isUtf8(lead + good + lead)) << before;
        }
        for (const char* bad : {"\x80", "\xC3", "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80",
                                "\xE2\x82", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF",
                                "\xF0\x90\x80", "\xC3\xA9\xA9"}) {
            EXPECT_FALSE(isUtf8(lead + bad)) << before;
            EXPECT_FALSE(isUtf8(lead + bad + lead)) << before;
        }
    }
    EXPECT_EQ(toUtf8(std::wstring{wchar_t(0xD800), wchar_t(0x110000), wchar_t(0x1F600)}),
              "\xEF\xBF\xBD\xEF\xBF\xBD😀");
    EXPECT_EQ(fromUtf8("😀"), std::wstring(1, wchar_t(0x1F600)));
    EXPECT_EQ(compareNoCase(L"ΣΑΣ", L"σας"), 0);
}

} // namespace
