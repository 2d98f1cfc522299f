#include "platform/drawing/entities/MTextRuns.h"

#include <gtest/gtest.h>

#include <string>

using namespace tv::dwg;

TEST(MTextRuns, CodesBecomeFormatsAndNothingElse) {
    const auto runs =
        mtextRuns(L"a\\C1;\\fArial|b1|i0|c129|p34;b{\\H2x;\\H1.5x;c}\\H2.5;d\\W0.8;\\Q15;\\T2;\\c255;\\Le\\l");
    ASSERT_EQ(runs.size(), 5u);
    EXPECT_EQ(runs[0].format->color, std::nullopt);
    EXPECT_EQ(runs[1].format->color, OdCmColor::byIndex(1));
    EXPECT_EQ(runs[1].format->font, (MTextFont{L"Arial", false, true, false, 129, 34}));
    EXPECT_EQ(runs[2].format->heightFactor, 3) << "factors multiply";
    EXPECT_EQ(runs[2].format->font, runs[1].format->font) << "braces inherit";
    EXPECT_EQ(runs[3].format->height, 2.5);
    EXPECT_EQ(runs[3].format->heightFactor, 1) << "and give back";
    EXPECT_EQ(runs[4].format->color, OdCmColor::byRgb(255, 0, 0));
    EXPECT_TRUE(runs[4].format->underline);
    EXPECT_EQ(runs[4].format->tracking, 2);
    EXPECT_NEAR(*runs[4].format->oblique, 0.2618, 1e-4);

    const auto list = mtextRuns(L"\\pxi-3,l4,qc,t4,8;\x2022\tone\\Ptwo\\Nnext\\pi0,q*,t;end");
    EXPECT_EQ(list[0].format->paragraph.firstIndent, -3);
    EXPECT_EQ(list[0].format->paragraph.leftIndent, 4);
    EXPECT_EQ(list[0].format->paragraph.alignment, MTextParagraph::kCentered);
    EXPECT_EQ(list[0].format->paragraph.tabs, L"4,8");
    EXPECT_EQ(list[1].kind, MTextRun::kTab);
    EXPECT_EQ(list[3].kind, MTextRun::kNewParagraph);
    EXPECT_EQ(list[5].kind, MTextRun::kNewColumn);
    EXPECT_EQ(list.back().format->paragraph.alignment, MTextParagraph::kDefault);
    EXPECT_TRUE(list.back().format->paragraph.tabs.isEmpty());

    const auto stacks = mtextRuns(L"\\S1/2;\\S+0.1^-0.2;\\S3#4\\;5;\\S7");
    ASSERT_EQ(stacks.size(), 4u);
    EXPECT_EQ(stacks[0].stack, L'/');
    EXPECT_EQ(stacks[1].lower, L"-0.2");
    EXPECT_EQ(stacks[2].lower, L"4;5");
    EXPECT_EQ(stacks[3].text, L"7") << "the end closes it";
}

TEST(MTextRuns, PlainTextIsWhatIsSeen) {
    EXPECT_EQ(plainText(L"{\\A1;45%%d %%p1 %%065 %%%}\\~\\\\\\{x\\}"), L"45\x00B0 \x00B1"
                                                                       L"1 A % \\{x}");
    EXPECT_EQ(plainText(L"\\U+AC00\\U+D83D\\U+DE00\\M+1814F"), L"\xAC00\x1F600\xFF3E");
    // What only looks like a code is text.
    EXPECT_EQ(plainText(L"C:\\temp\\H \\Hxx \\Z; 100%% %%9 \\"), L"C:\\temp\\H \\Hxx \\Z; 100%% %%9 \\");
    EXPECT_EQ(plainText(L"}a{b}}c{"), L"abc");
    const std::wstring deep = std::wstring(100000, L'{') + L"x" + std::wstring(100000, L'}');
    EXPECT_EQ(plainText(deep), L"x");
    // Codes without an end are looked at once each.
    std::wstring open;
    for (int i = 0; i < 200000; ++i)
        open += L"\\H1";
    EXPECT_EQ(plainText(open), open);
    EXPECT_EQ(plainText(mtextRuns(L"a\\S1^2;\\~b\\Pc")), plainText(L"a\\S1^2;\\~b\\Pc"));
    EXPECT_EQ(plainText(contentsOf(L"a\\P{b}\nc;")), L"a\\P{b}\nc;");
}

TEST(MTextRuns, ReplacingLeavesTheCodesAlone) {
    const auto replaced = [](std::wstring_view contents, std::wstring_view what, std::wstring_view with) {
        const int at = plainText(contents).find(what);
        return replaceInContents(contents, static_cast<std::size_t>(at),
                                 static_cast<std::size_t>(at) + what.size(), with);
    };
    EXPECT_EQ(replaced(L"{\\C1;Room} 12", L"Room", L"Hall"), L"{\\C1;Hall} 12");
    EXPECT_EQ(replaced(L"Ro{\\C1;om\\Lx} 12", L"Roomx", L"Hall"), L"Hall{\\C1;\\L} 12");
    EXPECT_EQ(replaced(L"a\\~b%%dc", L" b\x00B0", L"{;}\n"), L"a\\{;\\}\\Pc");
    EXPECT_EQ(replaced(L"x\\S1/2;y", L"1", L"3;4"), L"x\\S3\\;4/2;y");
    EXPECT_EQ(replaced(L"x\\S1/2;y", L"1/2", L"half"), L"xhalfy");
    EXPECT_EQ(replaced(L"x\\S1/2;y", L"/2", L"9"), L"x\\S19/;y") << "half a stack keeps its sign";
    EXPECT_EQ(replaced(L"x\\S1/2;y", L"x1/2y", L"z"), L"z");
    EXPECT_EQ(replaceInContents(L"{\\C1;ab}", 2, 2, L"c"), L"{\\C1;abc}");
    EXPECT_EQ(replaceInContents(L"{\\C1;ab}", 900, 5, L"c"), L"{\\C1;abc}");
    EXPECT_EQ(replaceInContents(L"\\S1/2;", 3, 3, L"c"), L"\\S1/2;c");
    // Replacing a range by what it says changes the plain text nowhere.
    const std::wstring contents = L"\\A1;a{\\fArial|b1;b\\Pc\\S1#2;}%%c\\U+AC00\\Nd\te";
    const OdString plain = plainText(contents);
    for (int from = 0; from <= plain.getLength(); ++from) {
        const auto at = static_cast<std::size_t>(from);
        EXPECT_EQ(plainText(replaceInContents(contents, at, at, L"#")),
                  plain.left(from) + L"#" + plain.mid(from).view())
            << from;
    }
}
