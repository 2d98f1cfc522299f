#include "kxgui/controls/ArrowCombo.h"
#include "kxgui/controls/ArrowPictures.h"
#include "kxgui/controls/DSepCombo.h"
#include "kxgui/controls/FontCombos.h"
#include "kxgui/frame/ArrowBlockDlg.h"
#include "platform/drawing/OdDbBlockTable.h"
#include "tests/combos/ComboTest.h"
#include "tests/text/TempFolder.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

struct Fonts : TavoFonts {
    std::vector<OdString> families() const override { return {L"Face 10", L"face 9"}; }
    std::vector<Style> styles(const OdString& family) const override {
        if (family != L"face 9") return {};
        return {{L"Light", false, false}, {L"Regular", false, false}, {L"Bold Italic", true, true}};
    }
    std::vector<OdString> shapeFonts() const override { return {L"txt.shx", L"romans.shx"}; }
};

struct ArrowAndFont : ComboTest {};

} // namespace

TEST_F(ArrowAndFont, ArrowheadsByBlockName) {
    const auto blocks = database()->getBlockTableId().open<OdDbBlockTable>(OdDb::kForWrite);
    blocks->add(L"_Dot");
    blocks->add(L"Pfeil");
    run<CCobxArrowBlock>([&](CCobxArrowBlock& combo, auto& u) {
        refill(combo);
        ASSERT_EQ(combo.GetCount(), 21);
        for (int i = 0; i < 20; ++i) {
            u.choose("IDC_COMBO", i);
            EXPECT_EQ(combo.items().at(i).picture, kx::controls::arrowPicture(combo.GetSelectedItem())) << i;
            EXPECT_TRUE(combo.items().at(i).picture) << i;
        }
        EXPECT_EQ(combo.GetSelectedItem(), L"_None");
        combo.SelectItem(L"dot");
        EXPECT_EQ(combo.GetSelectedItem(), L"_Dot");
        combo.SelectItem(L"");
        EXPECT_EQ(combo.GetSelectedItem(), L"_ClosedFilled");

        user.expect<CArrowBlockDlg>([](auto& dialog) {
            EXPECT_THAT(*dialog.look("IDC_ARROW_BLOCK_LIST").items, ElementsAre(L"Pfeil"));
            dialog.choose("IDC_ARROW_BLOCK_LIST", 0);
            dialog.click("IDOK");
        });
        u.choose("IDC_COMBO", 20);
        EXPECT_EQ(combo.GetSelectedItem(), L"Pfeil");
        EXPECT_EQ(combo.GetCurSel(), 20);
        EXPECT_EQ(combo.GetCount(), 22);
        user.expect<CArrowBlockDlg>([](auto& dialog) { dialog.click("IDCANCEL"); });
        u.choose("IDC_COMBO", 21);
        EXPECT_EQ(combo.GetSelectedItem(), L"Pfeil");
    });
    run<CCobxDSep>([&](CCobxDSep& combo, auto& u) {
        combo.SelectSeparator(L',');
        refill(combo);
        EXPECT_EQ(combo.GetCurSel(), 1);
        u.choose("IDC_COMBO", 2);
        EXPECT_EQ(combo.GetSeparator(), L' ');
    });
}

TEST_F(ArrowAndFont, FontsAndTheirStyles) {
    Fonts fonts;
    host.setFonts(&fonts);
    run<CCobxFont>([&](CCobxFont& combo, auto& u) {
        combo.SelectFont(L"Missing");
        refill(combo);
        EXPECT_THAT(texts(combo), ElementsAre(L"face 9", L"Face 10", L"romans.shx", L"txt.shx"));
        EXPECT_EQ(combo.GetWindowText(), L"Missing") << "not on this machine";
        u.choose("IDC_COMBO", L"txt.shx");
        EXPECT_TRUE(combo.IsShapeFont());
        combo.SelectFont(L"GONE.SHX");
        EXPECT_TRUE(combo.IsShapeFont());
    });
    run<CCobxFontStyle>([&](CCobxFontStyle& combo, auto& u) {
        combo.SelectStyle(true, true);
        combo.SetFont(L"face 9");
        EXPECT_EQ(combo.GetStyleName(), L"Bold Italic");
        combo.SelectStyle(false, false);
        EXPECT_EQ(combo.GetStyleName(), L"Regular") << "not any style that is neither bold nor italic";
        u.choose("IDC_COMBO", L"Light");
        refill(combo);
        EXPECT_EQ(combo.GetStyleName(), L"Light");
        combo.SelectStyle(true, false);
        EXPECT_FALSE(combo.IsBold()) << "the family has no such style";
        combo.SetFont(L"Face 10");
        EXPECT_EQ(combo.GetCount(), 0);
    });
    host.setFonts(nullptr);
}

TEST_F(ArrowAndFont, UnusableFontFilesAreLeftOut) {
    const TempFolder folder;
    const auto write = [&](const char* name, const std::string& bytes) { folder.write(name, bytes); };
    write("broken.ttf", std::string("\0\1\0\0garbage", 11));
    write("empty.ttf", "");
    write("good.SHX", "Some-86 shapes 1.0\r\n\x1a");
    write("bad.shx", "Some-86 shapes 1.0\r\n");
    write("other.shx", std::string(200, '\xff'));
    auto& fonts = host.defaultFonts();
    fonts.setFolders({folder.path, folder.path / "none"});
    fonts.setShapeFolders({folder.path / "none", folder.path});
    EXPECT_TRUE(fonts.families().empty());
    EXPECT_TRUE(fonts.styles(L"broken").empty());
    EXPECT_THAT(fonts.shapeFonts(), ElementsAre(OdString(L"good.SHX")));
}
