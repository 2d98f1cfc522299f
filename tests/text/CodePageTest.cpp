#include "platform/text/CodePage.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

using tv::text::CodePage;

TEST(CodePage, NamesOfDrawings) {
    for (const char* name :
         {"ANSI_874",  "ANSI_932",  "ANSI_936",  "ANSI_949",  "ANSI_950",  "ANSI_1250", "ANSI_1251",
          "ANSI_1252", "ANSI_1253", "ANSI_1254", "ANSI_1255", "ANSI_1256", "ANSI_1257", "ANSI_1258",
          "ANSI_1361", "ansi_1252", "DOS437",    "dos850",    "DOS852",    "DOS855",    "DOS857",
          "DOS860",    "DOS861",    "DOS863",    "DOS864",    "DOS865",    "DOS866",    "DOS869",
          "DOS932",    "ISO8859-1", "ISO8859-2", "ISO8859-3", "ISO8859-4", "ISO8859-5", "ISO8859-6",
          "ISO8859-7", "ISO8859-8", "ISO8859-9", "MACINTOSH", "mac-roman", "UTF-8",     "utf8",
          "ASCII",     "JOHAB",     "KSC5601",   "BIG5",      "GB2312",    "US-ASCII"}) {
        const auto page = CodePage::find(name);
        ASSERT_TRUE(page) << name;
        EXPECT_EQ(page->decode("C:\\Tavo ~{}").text, L"C:\\Tavo ~{}") << name;
        EXPECT_EQ(page->encode(L"C:\\Tavo ~{}").bytes, "C:\\Tavo ~{}") << name;
    }
    EXPECT_EQ(CodePage::find("ansi_949")->name(), "ANSI_949");
    for (const char* name :
         {"", "ANSI_", "ANSI_1200", "ANSI_9999", "DOS37", "windows-1252", "ANSI_12x", "UTF-16"})
        EXPECT_FALSE(CodePage::find(name)) << name;
}

TEST(CodePage, KnownBytesBothWays) {
    struct Known {
        const char* page;
        std::string bytes;
        std::wstring text;
    };
    const Known table[] = {
        {"ANSI_1252", "\xE9\x80 \xB0", L"é€ °"},
        {"ANSI_1250", "\xB9\xEA\x9F", L"ąęź"},
        {"ANSI_1251", "\xD1\xEB\xEE\xE9", L"Слой"},
        {"ANSI_1253", "\xE1", L"α"},
        {"ANSI_874", "\xA1", L"ก"},
        {"ANSI_932", "\x83\x5C\x95\x5C\xB1", L"ソ表ｱ"}, // second bytes that look like a backslash
        {"ANSI_936", "\xCD\xBC\xB2\xE3", L"图层"},
        {"ANSI_949", "\xB5\xB5\xB8\xE9\xC3\xFE \x8C\x63", L"도면층 똠"}, // the last one only in 949
        {"ANSI_950", "\xB9\xCF\xBC\x68", L"圖層"},
        {"JOHAB", "\x88\x61\x5C\x98\x61", L"가\\따"},
        {"DOS437", "\x81\xF8", L"ü°"},
        {"DOS850", "\x9B", L"ø"},
        {"DOS866", "\x80", L"А"},
        {"ISO8859-2", "\xB1", L"ą"},
        {"MACINTOSH", "\x8E", L"é"},
        {"UTF-8", "\xEB\x8F\x84 \xF0\x9F\x98\x80", std::wstring(L"도 ") + wchar_t(0x1F600)},
    };
    for (const Known& known : table) {
        const auto page = CodePage::find(known.page);
        ASSERT_TRUE(page) << known.page;
        const auto decoded = page->decode(known.bytes);
        EXPECT_EQ(decoded.text, known.text) << known.page;
        EXPECT_TRUE(decoded.exact) << known.page;
        const auto encoded = page->encode(known.text);
        EXPECT_EQ(encoded.bytes, known.bytes) << known.page;
        EXPECT_TRUE(encoded.exact) << known.page;
    }
}

TEST(CodePage, BytesWithoutMeaning) {
    const auto ascii = CodePage::find("ASCII")->decode("a\xE9z");
    EXPECT_EQ(ascii.text, L"a\xFFFDz");
    EXPECT_FALSE(ascii.exact);
    for (const char* page : {"ANSI_949", "ANSI_932", "JOHAB", "UTF-8"}) {
        const auto cut = CodePage::find(page)->decode("ok \x83");
        EXPECT_EQ(cut.text, L"ok \xFFFD") << page;
        EXPECT_FALSE(cut.exact) << page;
    }
    const auto trail = CodePage::find("ANSI_949")->decode("\xB5 x");
    EXPECT_FALSE(trail.exact);
    EXPECT_EQ(trail.text, L"\xFFFD x"); // a bad lead byte takes no neighbour with it
}

TEST(CodePage, LongTextsCrossTheBuffers) {
    for (const char* name : {"ANSI_949", "JOHAB", "ANSI_1252", "UTF-8"}) {
        const auto page = CodePage::find(name);
        std::wstring text;
        for (int i = 0; i < 3000; ++i)
            text += L"a가é"[i % 3];
        text += wchar_t(0x20000);
        const auto encoded = page->encode(text);
        EXPECT_TRUE(encoded.exact);
        EXPECT_EQ(page->decode(encoded.bytes).text, text) << name;
    }
}

TEST(CodePage, Escapes) {
    const auto western = *CodePage::find("ANSI_1252");
    EXPECT_EQ(western.decode("\\U+00b0 \\U+AC00 \xB0").text, L"° 가 °");
    EXPECT_EQ(western.decode("\\U+D83D\\U+DE00").text, std::wstring(1, wchar_t(0x1F600)));
    EXPECT_EQ(western.decode("\\M+1835C \\M+25CA4 \\M+3B5B5 \\M+48861 \\M+5CDBC").text,
              L"ソ \\M+25CA4 도 가 图");
    for (const char* plain :
         {"\\U+12", "\\U+12G4", "\\M+9AAAA", "\\M+1", "\\U+D83D x", "\\u+00B0", "\\M+1FFFF", "\\U+0000"})
        EXPECT_EQ(western.decode(plain).text, std::wstring(plain, plain + strlen(plain)));

    const auto written = western.encode(std::wstring(L"°가") + wchar_t(0x1F600));
    EXPECT_EQ(written.bytes, "\xB0\\U+AC00\\U+D83D\\U+DE00");
    EXPECT_TRUE(written.exact);
    EXPECT_FALSE(western.encode(L"the text \\U+0041 itself").exact);
    EXPECT_TRUE(western.encode(L"no escape: \\U+4").exact);
    EXPECT_FALSE(western.encode(std::wstring(1, wchar_t(0xD800))).exact);
    EXPECT_FALSE(CodePage::utf8().encode(std::wstring(1, wchar_t(0x110000))).exact);
}

} // namespace
