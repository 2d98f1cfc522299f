#include "platform/text/Wildcards.h"

#include <gtest/gtest.h>

#include <chrono>

namespace {

using tv::text::Wildcards;

TEST(Wildcards, FitWhatTheyName) {
    struct Row {
        const wchar_t *pattern, *text;
        bool fits;
    };
    for (const Row& row : {Row{L"wall*", L"Wall-1", true},
                           Row{L"*", L"", true},
                           Row{L"", L"", true},
                           Row{L"", L"a", false},
                           Row{L"A?C", L"abc", true},
                           Row{L"A?C", L"ac", false},
                           Row{L"도면층#", L"도면층7", true},
                           Row{L"도면층#", L"도면층", false},
                           Row{L"@@-.", L"벽B--", true},
                           Row{L"@", L"7", false},
                           Row{L"[a-cX]1", L"b1", true},
                           Row{L"[a-cX]1", L"x1", true},
                           Row{L"[~a-c]1", L"b1", false},
                           Row{L"[~a-c]1", L"d1", true},
                           Row{L"[]-a]", L"]", true},
                           Row{L"[ab", L"[ab", true},
                           Row{L"~A*", L"abc", false},
                           Row{L"~A*", L"bc", true},
                           Row{L"A*, ~*b", L"xb", false},
                           Row{L"A* , B*", L"beam", true},
                           Row{L"`*", L"*", true},
                           Row{L"`*", L"a", false},
                           Row{L"a`", L"a`", true},
                           Row{L"*a*b", L"xaxbxb", true},
                           Row{L"STRASSE", L"straße", true},
                           Row{L"a b", L"a b", true}})
        EXPECT_EQ(Wildcards(row.pattern).fits(row.text), row.fits)
            << "row " << std::wstring(row.pattern).size() << " " << std::wstring(row.text).size();
    const std::wstring odd = L" a*?#@.[~b],` ";
    EXPECT_TRUE(Wildcards(Wildcards::literal(odd)).fits(odd));
    EXPECT_FALSE(Wildcards(Wildcards::literal(odd)).fits(L" abcdefgh "));
    EXPECT_TRUE(Wildcards(L"**").fitsAll());
    EXPECT_FALSE(Wildcards(L"~*").fitsAll());
}

TEST(Wildcards, ManyStarsDontTakeForever) {
    std::wstring pattern;
    for (int i = 0; i < 1000; ++i)
        pattern += L"*a";
    const Wildcards wildcards(pattern + L"b");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(wildcards.fits(std::wstring(5000, L'a')));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
}

} // namespace
