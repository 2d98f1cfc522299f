#include "kxgui/controls/LayerCombos.h"
#include "kxgui/controls/LineWeightCombo.h"
#include "kxgui/controls/LinetypeCombos.h"
#include "kxgui/controls/RecordItems.h"
#include "kxgui/controls/StyleCombos.h"
#include "kxgui/controls/TextSizeCombo.h"
#include "kxgui/frame/LinetypeDlg.h"
#include "platform/drawing/OdDbScale.h"
#include "platform/drawing/OdDbStyleTables.h"
#include "platform/toolkit/Pictures.h"
#include "tests/combos/ComboTest.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using Names = std::vector<std::wstring>;

namespace {
struct RecordCombos : ComboTest {};
} // namespace

TEST_F(RecordCombos, LayersAreInReadingOrderWithTheirStateAndFollowChanges) {
    for (const wchar_t* name :
         {L"Wall10", L"wall2", L"*Information Hidden Layer", L"*Mine", L"Ελλ\u0301 עברית", L"A&B <c>"})
        ASSERT_FALSE(addLayer(name).isNull()) << name;
    run<CCobxLayer>([&](CCobxLayer& combo, auto&) {
        refill(combo);
        EXPECT_THAT(texts(combo),
                    ElementsAre(L"*Mine", L"0", L"A&B <c>", L"wall2", L"Wall10", L"Ελλ\u0301 עברית"));
        EXPECT_EQ(combo.GetLayerName(), L"0") << "the current one";
        const auto layer = [&](const wchar_t* name) {
            return database()->layers()->getAt(name).open<OdDbLayerTableRecord>(OdDb::kForWrite);
        };
        layer(L"wall2")->setIsFrozen(true);
        layer(L"wall2")->setColor(OdCmColor::byIndex(1));
        const std::uint64_t before = kx::controls::recordsRead();
        refill(combo);
        EXPECT_EQ(kx::controls::recordsRead() - before, 1U) << "only the one that changed";
        EXPECT_EQ(combo.items().at(3).picture, tv::ui::layerPicture({false, true, false, 0xFF0000}));

        layer(L"Wall10")->setName(L"Wall1");
        addLayer(L"Wall3");
        layer(L"A&B <c>")->erase();
        refill(combo);
        EXPECT_THAT(texts(combo),
                    ElementsAre(L"*Mine", L"0", L"Wall1", L"wall2", L"Wall3", L"Ελλ\u0301 עברית"));
        while (database()->hasUndo())
            database()->undo();
        refill(combo);
        EXPECT_THAT(texts(combo), ElementsAre(L"0"));
        database()->redo();
        refill(combo);
        EXPECT_THAT(texts(combo), ElementsAre(L"0", L"Wall10"));
    });
}

TEST_F(RecordCombos, ADrawingClosedWhileARefillIsPendingLeavesAnEmptyList) {
    addLayer(L"Wall");
    run<CCobxLayer>([&](CCobxLayer& combo, auto& u) {
        refill(combo);
        combo.ShowDropDown();
        const OdDbObjectId layer = combo.GetLayerId();
        EXPECT_FALSE(layer.isNull());
        combo.ScheduleUpdate();
        host.documentManager()->closeDocument(host.documentManager()->currentDocument());
        EXPECT_TRUE(combo.GetLayerId().isNull());
        u.choose("IDC_COMBO", L"Wall"); // what is still shown can't be written anywhere
        toolkit.advance(std::chrono::milliseconds(50));
        EXPECT_EQ(combo.GetCount(), 0);

        host.documentManager()->newDocument();
        refill(combo);
        EXPECT_THAT(texts(combo), ElementsAre(L"0"));
    });
}

TEST_F(RecordCombos, AChoiceInAToolbarIsOneStepAndElsewhereChangesNothing) {
    addLayer(L"Wall");
    run<CCobxLayer>([&](CCobxLayer& combo, auto& u) {
        refill(combo);
        u.choose("IDC_COMBO", L"Wall");
        EXPECT_EQ(variable(L"CLAYER"), L"Wall");
        EXPECT_EQ(database()->undoName(), L"도면층 변경");
        database()->undo();
        refill(combo);
        EXPECT_EQ(combo.GetLayerName(), L"0");
        combo.SetType(VORDCobxBase::typeDialog);
        u.choose("IDC_COMBO", L"Wall");
        EXPECT_EQ(variable(L"CLAYER"), L"0");
        EXPECT_EQ(combo.GetLayerName(), L"Wall");
        refill(combo);
        EXPECT_EQ(combo.GetLayerName(), L"Wall") << "a dialog's choice outlasts a refill";
        combo.ScheduleSelect("0", -1);
        combo.ScheduleUpdate();
        toolkit.advance(std::chrono::milliseconds(50));
        EXPECT_EQ(combo.GetLayerName(), L"0") << "selected first, kept by the refill";
    });
}

TEST_F(RecordCombos, LinetypesHaveTheirSpecialEntries) {
    const auto table = database()->getLinetypeTableId().open<OdDbLinetypeTable>(OdDb::kForWrite);
    ASSERT_FALSE(table->add(L"Dash10").isNull());
    ASSERT_FALSE(table->add(L"Dash9").isNull()); // without a pattern
    run<CCobxLineType>([&](CCobxLineType& combo, auto& u) {
        refill(combo);
        EXPECT_THAT(texts(combo), ElementsAre(L"ByLayer", L"ByBlock", L"Continuous", L"Dash9", L"Dash10",
                                              L"Add Linetypes..."));
        EXPECT_EQ(combo.GetCurSel(), 0) << "CELTYPE";
        EXPECT_EQ(combo.items().at(3).picture, tv::ui::dashPicture({}));
        // Neither nothing nor long enough to be drawn.
        EXPECT_EQ(tv::ui::dashPicture({1e-310, -1e-310})->items.size(), 1U);

        u.choose("IDC_COMBO", L"Dash10");
        EXPECT_EQ(variable(L"CELTYPE"), L"Dash10");
        user.expect<CLinetypeDlg>([](auto& dialog) { dialog.key(L"Escape"); });
        u.choose("IDC_COMBO", L"Add Linetypes...");
        EXPECT_EQ(combo.GetLinetypeName(), L"Dash10") << "given up: what was there before";
        combo.onAddLinetypes = [&](const OdDbDatabasePtr& drawing) {
            drawing->getLinetypeTableId().open<OdDbLinetypeTable>(OdDb::kForWrite)->add(L"Dots");
            return std::wstring(L"Dots");
        };
        u.choose("IDC_COMBO", L"Add Linetypes...");
        EXPECT_EQ(variable(L"CELTYPE"), L"Dots");
        combo.SetType(VORDCobxBase::typeLayer);
        toolkit.advance(std::chrono::milliseconds(50));
        EXPECT_EQ(combo.GetLBText(0), L"Continuous");
    });
}

TEST_F(RecordCombos, LineweightsAndStyles) {
    run<CCobxLineWeight>([&](CCobxLineWeight& combo, auto& u) {
        refill(combo);
        EXPECT_EQ(combo.GetLineWeight(), OdDb::kLnWtByLayer);
        u.choose("IDC_COMBO", L"0.25 mm");
        EXPECT_EQ(variable(L"CELWEIGHT"), L"25");
        EXPECT_EQ(combo.items().at(combo.GetCurSel()).picture, tv::ui::linePicture(0.25));
    });
    const auto styles = database()->getDimStyleTableId().open<OdDbDimStyleTable>(OdDb::kForWrite);
    styles->add(L"ISO-25");
    styles->add(L"ISO-25$0");
    run<CCobxDimStyle>([&](CCobxDimStyle& combo, auto& u) {
        refill(combo);
        EXPECT_THAT(texts(combo), ElementsAre(L"ISO-25", testing::StrCaseEq(L"Standard")));
        u.choose("IDC_COMBO", L"ISO-25");
        EXPECT_EQ(variable(L"DIMSTYLE"), L"ISO-25");
        EXPECT_EQ(database()->undoName(), L"치수스타일 변경");
    });
    run<CCobxPrintStyle>([&](CCobxPrintStyle& combo, auto&) {
        refill(combo);
        EXPECT_EQ(combo.GetCount(), 1);
        EXPECT_FALSE(combo.IsWindowEnabled()) << "plot styles follow colours";
    });
    run<CCobxScaleList>([&](CCobxScaleList& combo, auto&) {
        combo.SetComboBoxList();
        EXPECT_EQ(combo.GetCount(), static_cast<int>(tv::dwg::scalesOf(*database()).size()));
    });
}

TEST_F(RecordCombos, TextHeightsCanBeTyped) {
    const auto table = database()->getTextStyleTableId().open<OdDbTextStyleTable>(OdDb::kForWrite);
    const OdDbObjectId style = table->add(L"Notes");
    style.open<OdDbTextStyleTableRecord>(OdDb::kForWrite)->setTextSize(10);
    run<CCobxTextSize>([&](CCobxTextSize& combo, auto& u) {
        refill(combo);
        EXPECT_EQ(texts(combo).back(), L"10.0");
        u.choose("IDC_COMBO", L"10.0");
        EXPECT_EQ(combo.GetTextSize(), 10);
        EXPECT_EQ(database()->undoName(), L"문자높이 변경");
        u.type("IDC_COMBO", L"3.75");
        refill(combo);
        EXPECT_EQ(combo.GetWindowText(), L"3.75") << "what is being typed isn't taken away";
        u.key(L"Enter");
        EXPECT_EQ(variable(L"TEXTSIZE"), L"3.75");
        EXPECT_EQ(combo.GetWindowText(), L"3.8");
        for (const wchar_t* bad : {L"0", L"-1", L"abc", L"1e999", L"nan"}) {
            u.type("IDC_COMBO", bad);
            u.key(L"Enter");
            EXPECT_EQ(variable(L"TEXTSIZE"), L"3.75") << bad;
            EXPECT_EQ(combo.GetWindowText(), L"3.8");
        }
    });
}
