#include "kxgui/frame/ColorModel.h"
#include "kxgui/frame/ColorNames.h"
#include "kxgui/frame/ColorTable.h"
#include "kxgui/frame/RecentColors.h"
#include "platform/text/SettingsStore.h"
#include "platform/text/Unicode.h"

#include <gtest/gtest.h>

#include <set>

using namespace kx::frame;

TEST(ColorRules, HslOfKnownColorsAndBack) {
    struct Known {
        Rgb rgb;
        ColorParts hsl;
    };
    for (const Known& known : {Known{{255, 0, 0}, {0, 100, 50}}, Known{{0, 255, 0}, {120, 100, 50}},
                               Known{{0, 0, 255}, {240, 100, 50}}, Known{{255, 0, 255}, {300, 100, 50}},
                               Known{{128, 128, 128}, {0, 0, 50}}, Known{{0, 0, 0}, {0, 0, 0}},
                               Known{{255, 255, 255}, {0, 0, 100}}, Known{{191, 64, 64}, {0, 50, 50}},
                               Known{{64, 191, 191}, {180, 50, 50}}, Known{{255, 128, 0}, {30, 100, 50}}})
        EXPECT_EQ(partsOf(ColorModel::hsl, known.rgb), known.hsl) << known.hsl[0];
    EXPECT_EQ(colorOfParts(ColorModel::hsl, {360, 100, 50}), (Rgb{255, 0, 0})) << "360 degrees are 0";
    EXPECT_EQ(toRgb({-120, 1, 0.5}), (Rgb{0, 0, 255}));
    // Every 5th value of each channel and both ends: nothing is lost on the way there and back.
    for (int r = 0; r < 256; r += 5)
        for (int g = 0; g < 256; g += 5)
            for (int b = 0; b < 256; b += 5) {
                const Rgb color{static_cast<std::uint8_t>(r), static_cast<std::uint8_t>(g),
                                static_cast<std::uint8_t>(b)};
                ASSERT_EQ(toRgb(toHsl(color)), color) << r << ' ' << g << ' ' << b;
            }
}

TEST(ColorRules, TextsInAndOut) {
    EXPECT_EQ(hexText({255, 128, 10}), L"#FF800A");
    EXPECT_EQ(colorOfHex(L" ff800a "), (Rgb{255, 128, 10}));
    for (const wchar_t* bad : {L"", L"#", L"#FFF", L"#FF800G", L"#FF800A0", L"-F800A", L"#FF 80A"})
        EXPECT_FALSE(colorOfHex(bad)) << tv::text::toUtf8(bad);

    EXPECT_EQ(indexedColorOf(L" magenta ", false), OdCmColor::byIndex(6));
    EXPECT_EQ(indexedColorOf(L"255", false), OdCmColor::byIndex(255));
    EXPECT_EQ(indexedColorOf(L"color_40", false), OdCmColor::byIndex(40));
    EXPECT_EQ(indexedColorOf(L"BYLAYER", true), OdCmColor::byIndex(256));
    EXPECT_EQ(indexedColorOf(L"0", true), OdCmColor::byIndex(0));
    for (const wchar_t* bad :
         {L"", L" ", L"0", L"256", L"257", L"-1", L"1.5", L"1a", L"ByLayer", L"byblock", L"Pink"})
        EXPECT_FALSE(indexedColorOf(bad, false)) << tv::text::toUtf8(bad);
    EXPECT_EQ(colorText(OdCmColor::byIndex(5)), L"Blue");
    EXPECT_EQ(colorText(OdCmColor::byIndex(8)), L"8");
    EXPECT_EQ(colorText(OdCmColor::byRgb(1, 2, 3)), L"#010203");
}

TEST(ColorRules, TheTableHasEveryIndexOnceInItsPlace) {
    std::multiset<std::uintptr_t> all;
    for (const auto& cells : {standardCells(), greyCells(), paletteCells()})
        for (const auto& cell : cells)
            all.insert(cell.data);
    EXPECT_EQ(all.size(), 255u);
    EXPECT_EQ(std::set(all.begin(), all.end()).size(), 255u);
    const auto palette = paletteCells();
    const auto at = [&](int row, int column) {
        return palette[static_cast<std::size_t>(row * paletteColumns + column)].data;
    };
    EXPECT_EQ(at(0, 0), 18u);
    EXPECT_EQ(at(4, 0), 10u);
    EXPECT_EQ(at(5, 0), 11u);
    EXPECT_EQ(at(9, 23), 249u);
}

TEST(ColorRules, RecentColorsAreTheLastEightDifferentOnes) {
    tv::MemorySettingsStore store;
    for (int index = 1; index <= 9; ++index)
        rememberColor(&store, OdCmColor::byIndex(index));
    rememberColor(&store, OdCmColor::byRgb(255, 128, 0));
    rememberColor(&store, OdCmColor::byIndex(5));
    rememberColor(&store, OdCmColor::byIndex(256));
    rememberColor(&store, OdCmColor::byIndex(0));
    const auto recent = recentColors(&store);
    ASSERT_EQ(recent.size(), recentColorCount);
    EXPECT_EQ(recent[0], OdCmColor::byIndex(5));
    EXPECT_EQ(recent[1], OdCmColor::byRgb(255, 128, 0));
    EXPECT_EQ(recent[7], OdCmColor::byIndex(3));

    store.setString(L"RecentColors", L"1", L"300");
    store.setString(L"RecentColors", L"2", L"#GG0000");
    EXPECT_EQ(recentColors(&store).size(), recentColorCount - 2) << "damaged settings are left out";
    EXPECT_TRUE(recentColors(nullptr).empty());
    rememberColor(nullptr, OdCmColor::byIndex(1));
}
