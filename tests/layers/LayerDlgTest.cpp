#include "kxgui/layers/LayerDlg.h"
#include "kxgui/controls/InPlaceEdit.h"
#include "kxgui/frame/ColorDlg.h"
#include "kxgui/layers/LayerHistory.h"
#include "kxgui/layers/LayerNameRules.h"
#include "kxgui/layers/LayerTransparencyDlg.h"
#include "platform/drawing/LayerFilters.h"
#include "platform/drawing/LayerOverrides.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/entities/NewEntity.h"
#include "platform/host/TavoSysvarManager.h"
#include "platform/text/MessageManager.h"
#include "tests/layers/LayerDrawing.h"
#include "tests/support/HeadlessTest.h"
#include "tests/text/TempFolder.h"

#include <gmock/gmock.h>

using namespace kx::layers;
using testing::ElementsAre;
using testing::HasSubstr;
using tv::ui::RowSet;
using tv::ui::UserAction;

namespace {

struct LayerDlg : HeadlessTest {
    OdDbDatabasePtr database = host.documentManager()->newDocument()->database();

    LayerDlg() {
        for (const wchar_t* name : {L"Walls", L"Doors", L"Used"})
            add(name);
        const OdDbUndoScope step(*database, L"object");
        const auto line =
            tv::dwg::appendEntity(tv::dwg::EntityHome::modelSpace(*database), tv::dwg::LineGeometry{})
                .id.open<OdDbEntity>(OdDb::kForWrite);
        line->setLayer(L"Used");
    }

    OdDbObjectId add(const wchar_t* name) { return database->layers(OdDb::kForWrite)->add(name); }
    OdDbObjectId layerId(const wchar_t* name) { return database->layers()->getAt(name); }
    OdDbLayerTableRecordPtr layer(const wchar_t* name, OdDb::OpenMode mode = OdDb::kForRead) {
        return layerId(name).open<OdDbLayerTableRecord>(mode);
    }
    std::vector<std::wstring> names() {
        std::vector<std::wstring> out;
        database->layers()->forEach(
            [&](OdDbObjectId id) { out.push_back(database->layers()->nameOf(id).wstr()); });
        return out;
    }
    std::wstring current() { return database->headerVar(L"CLAYER")->asText()->wstr(); }

    // The person's side of a run.
    struct Hands {
        tv::ui::WindowUser& window;
        CLayerListCtrl& list;
        int row(std::wstring_view name) const {
            for (int row = 0; row < list.GetItemCount(); ++row)
                if (list.cellText(row, static_cast<int>(LayerColumn::name)) == name) return row;
            ADD_FAILURE() << "no such row";
            return -1;
        }
        void select(const std::vector<std::wstring>& names) {
            std::vector<int> rows;
            for (const auto& name : names)
                rows.push_back(row(name));
            window.selectRows("IDC_LAYER_LIST", RowSet(rows));
        }
        void cell(std::wstring_view name, LayerColumn column, UserAction::Cell what = UserAction::Cell::click) {
            UserAction action;
            action.kind = UserAction::Kind::cell;
            action.row = row(name);
            action.column = static_cast<int>(column);
            action.cell = what;
            window.act("IDC_LAYER_LIST", action);
        }
        // Opens the cell's editor, types and presses Enter.
        void enter(std::wstring_view name, LayerColumn column, std::wstring_view text) {
            cell(name, column, UserAction::Cell::open);
            window.type(CInPlaceEdit::kName, text);
            window.key(L"Enter");
        }
        std::vector<std::wstring> shown() const {
            std::vector<std::wstring> out;
            for (int row = 0; row < list.GetItemCount(); ++row)
                out.push_back(list.cellText(row, static_cast<int>(LayerColumn::name)));
            return out;
        }
    };

    void run(const std::function<void(Hands&)>& does) {
        user.expect<CLayerDlg>([does](tv::ui::WindowUser& u) {
            Hands hands{u, static_cast<CLayerListCtrl&>(*u.dialog().GetDlgItem("IDC_LAYER_LIST"))};
            does(hands);
            if (u.dialog().running()) u.click("IDOK");
        });
        CLayerDlg dialog(database.get(), nullptr);
        dialog.DoModal();
    }
    void menu(tv::ui::WindowUser& u, const char* control, std::vector<std::wstring> path) {
        UserAction choose;
        choose.kind = UserAction::Kind::menu;
        choose.path = std::move(path);
        u.act(control, choose);
    }
};

} // namespace

TEST_F(LayerDlg, OpensOnTheCurrentLayerAndSaysWhatItShows) {
    run([&](Hands& h) {
        EXPECT_EQ(h.window.title(), L"도면층 특성 관리자");
        EXPECT_EQ(h.window.text("IDC_LAYER_CURRENT_LINE"), L"현재 도면층 : 0");
        EXPECT_EQ(h.window.text("IDC_LAYER_FILTER_LINE"),
                  L"모두: 4개 도면층이 전체 4개 도면층 중에서 표시되었음");
        EXPECT_THAT(h.shown(), ElementsAre(L"0", L"Walls", L"Doors", L"Used"));
        EXPECT_EQ(h.list.selection(), RowSet{0});
        EXPECT_EQ(h.window.text("IDOK"), L"확인");
    });
    EXPECT_FALSE(CIsLayerModifed::isModifiedFromDlg()) << "looking changes nothing";
}

TEST_F(LayerDlg, NewLayersFillTheGapsAndCopyTheSelectedOne) {
    add(L"도면층1");
    add(L"도면층3");
    layer(L"Walls", OdDb::kForWrite)->setColor(OdCmColor::byIndex(3));
    layer(L"Walls", OdDb::kForWrite)->setTransparency(OdCmTransparency::byPercent(50));
    layer(L"Walls", OdDb::kForWrite)->setIsLocked(true);
    const auto before = database->bytes();
    run([&](Hands& h) {
        h.select({L"Walls"});
        h.window.click("IDC_LAYER_NEW");
        h.window.key(L"Enter");
        EXPECT_EQ(h.list.selection(), RowSet{h.row(L"도면층2")});
        h.window.click("IDC_LAYER_NEW");
        h.window.type(CInPlaceEdit::kName, L"Copy");
        h.window.key(L"Enter");
        EXPECT_EQ(h.window.text("IDC_LAYER_FILTER_LINE"),
                  L"모두: 8개 도면층이 전체 8개 도면층 중에서 표시되었음");
    });
    const auto made = layer(L"도면층2");
    EXPECT_EQ(made->color(), OdCmColor::byIndex(3));
    EXPECT_EQ(made->transparency().alpha(), (100 - 50) * 255 / 100);
    EXPECT_TRUE(made->isLocked());
    EXPECT_FALSE(layerId(L"Copy").isNull());
    for (int step = 0; step < 3; ++step) {
        EXPECT_EQ(database->undoName(), L"_LAYER");
        EXPECT_TRUE(database->undo());
    }
    EXPECT_EQ(database->bytes(), before) << "made, made and renamed are three steps";
}

TEST_F(LayerDlg, DeletingTellsHowManyWereRefusedAndWhy) {
    add(L"G-REGION-VIEW");
    run([&](Hands& h) {
        h.select({L"0", L"Walls", L"Used"});
        user.expectBox(L"선택한 도면층  3 개 중  2 개를 삭제할 수 없습니다.", "IDOK");
        h.window.click("IDC_LAYER_DELETE");
        EXPECT_THAT(h.shown(), ElementsAre(L"0", L"Doors", L"Used", L"G-REGION-VIEW"));
        EXPECT_EQ(h.list.selection().count(), 1);

        h.select({L"0", L"Used"});
        user.expect<CDialog>([](auto& box) {
            const std::string said = tv::ui::toText(box.look());
            for (const char* part :
                 {"도면층 - 삭제되지 않음", "선택된 도면층이 삭제되지 않았습니다.", "도면층 0 및 정의점",
                  "현재 도면층", "외부 참조 종속 도면층", "객체를 포함하는 도면층"})
                EXPECT_THAT(said, HasSubstr(part));
            box.click("IDOK");
        });
        h.window.key(L"Delete");
        h.select({L"G-REGION-VIEW"});
        h.window.key(L"Delete"); // no box: nothing was refused
    });
    EXPECT_THAT(names(), ElementsAre(L"0", L"Doors", L"Used"));
}

TEST_F(LayerDlg, TheCurrentLayerIsOneThatCanBeDrawnOn) {
    layer(L"Doors", OdDb::kForWrite)->setIsFrozen(true);
    layer(L"Used", OdDb::kForWrite)->setIsOff(true);
    run([&](Hands& h) {
        h.select({L"Walls", L"Used"});
        user.expectBox(L"여러개를 현재로 설정할 수 없습니다.", "IDOK");
        h.window.click("IDC_LAYER_SET_CURRENT");
        h.select({L"Doors"});
        user.expectBox(L"도면층 - 현재 도면층으로 만들 수 없음", "IDOK");
        h.window.click("IDC_LAYER_SET_CURRENT");
        h.select({L"Used"});
        user.expect<CDialog>([](auto& box) { // Cancel is what Enter presses
            EXPECT_THAT(tv::ui::toText(box.look()), HasSubstr("현재 도면층을 끄겠습니까?"));
            box.key(L"Enter");
        });
        h.window.click("IDC_LAYER_SET_CURRENT");
        EXPECT_EQ(current(), L"0");
        h.cell(L"Walls", LayerColumn::name, UserAction::Cell::doubleClick);
        EXPECT_EQ(current(), L"Walls");
        EXPECT_EQ(h.window.text("IDC_LAYER_CURRENT_LINE"), L"현재 도면층 : Walls");
        EXPECT_TRUE(layer(L"Walls")->isInUse()) << "use is found out anew";
        tvedSetVar(L"EXPERT", 1, nullptr);
        h.select({L"Used"});
        h.window.click("IDC_LAYER_SET_CURRENT");
        EXPECT_EQ(current(), L"Used") << "experts aren't asked";
    });
}

TEST_F(LayerDlg, NamesAndDescriptionsAreChecked) {
    const std::wstring longest(100, L'가');
    run([&](Hands& h) {
        const auto refused = [&](std::wstring_view text, const wchar_t* box) {
            user.expectBox(box, "IDOK");
            h.enter(L"Walls", LayerColumn::name, text);
            h.window.key(L"Escape");
        };
        for (const wchar_t c : kNotInLayerTexts)
            refused(std::wstring(L"A") + c, L"도면층 이름에 유효하지 않은 문자가 있습니다.");
        refused(longest + L"나", L"이름을 너무 길게 입력하였습니다.");
        refused(L"dOORS", L"같은 이름이 존재합니다.");
        refused(L"  ", L"도면층 이름을 입력하십시오.");
        EXPECT_FALSE(layerId(L"Walls").isNull());

        const auto before = database->undoName();
        h.enter(L"Walls", LayerColumn::name, L"WALLS");
        EXPECT_EQ(layer(L"walls")->getName(), L"WALLS") << "its own name in other letters";
        h.enter(L"WALLS", LayerColumn::name, longest);
        h.enter(L"Doors", LayerColumn::name, L"Caf\u00E9");
        user.expectBox(L"같은 이름이 존재합니다.", "IDOK");
        h.enter(L"Used", LayerColumn::name, L"CAFE\u0301");
        h.window.key(L"Escape");

        user.expectBox(L"도면층 설명에 유효하지 않은 문자가 있습니다.", "IDOK");
        h.enter(L"Used", LayerColumn::description, L"a=b");
        h.window.key(L"Escape");
        h.enter(L"Used", LayerColumn::description, L"what is used");
    });
    EXPECT_EQ(layer(L"Used")->description(), L"what is used");
    EXPECT_FALSE(layerId(longest.c_str()).isNull());
}

TEST_F(LayerDlg, ProtectedNamesDoNotOpen) {
    add(L"G-REGION-VIEW");
    run([&](Hands& h) {
        for (const wchar_t* name : {L"0", L"G-REGION-VIEW"}) {
            h.select({name});
            user.expectBox(L"선택한 도면층은 이름을 바꿀 수 없습니다.", "IDOK");
            UserAction open;
            open.kind = UserAction::Kind::cell;
            open.cell = UserAction::Cell::open;
            open.row = h.row(name);
            open.column = static_cast<int>(LayerColumn::name);
            (void)h.list.perform(open);
            EXPECT_EQ(h.list.editor(), nullptr);

            // The same for a text that comes without an editor.
            user.expectBox(L"선택한 도면층은 이름을 바꿀 수 없습니다.", "IDOK");
            open.cell = UserAction::Cell::edit;
            open.text = L"Other";
            EXPECT_FALSE(h.list.perform(open));
            EXPECT_FALSE(layerId(name).isNull());
        }
    });
}

TEST_F(LayerDlg, IconsToggleTheWholeSelectionAsOneStep) {
    const auto before = database->bytes();
    run([&](Hands& h) {
        h.select({L"0", L"Walls", L"Doors"});
        user.expectBox(L"이 도면층은 현재 도면층이므로 동결할 수 없습니다.", "IDOK");
        h.cell(L"Walls", LayerColumn::freeze);
        EXPECT_TRUE(layer(L"Walls")->isFrozen() && layer(L"Doors")->isFrozen());
        EXPECT_FALSE(layer(L"0")->isFrozen() || layer(L"Used")->isFrozen());
        h.cell(L"Used", LayerColumn::lock);
        h.cell(L"Used", LayerColumn::plot);
        EXPECT_TRUE(layer(L"Used")->isLocked() && !layer(L"Used")->isPlottable());

        h.select({L"0"});
        user.expect<CDialog>([](auto& box) {
            EXPECT_EQ(box.text("IDC_MESSAGE_TITLE"), L" 어떻게 하시겠습니까?");
            box.closeBox();
        });
        h.cell(L"0", LayerColumn::on);
        EXPECT_FALSE(layer(L"0")->isOff()) << "a dismissed question keeps it on";
        user.expect<CDialog>([](auto& box) { box.click("IDC_MESSAGE_BTN1"); });
        h.cell(L"0", LayerColumn::on);
        EXPECT_TRUE(layer(L"0")->isOff());
        h.window.key(L"Ctrl+Z");
        EXPECT_FALSE(layer(L"0")->isOff());
        h.window.key(L"Ctrl+Y");
        EXPECT_TRUE(layer(L"0")->isOff());
    });
    int steps = 0;
    while (database->undoName() == L"_LAYER" && database->undo())
        ++steps;
    EXPECT_EQ(steps, 4);
    EXPECT_EQ(database->bytes(), before);
}

TEST_F(LayerDlg, ADoubleClickOnAnIconLeavesOneStepAndNoToggle) {
    run([&](Hands& h) {
        h.cell(L"Walls", LayerColumn::plot, UserAction::Cell::doubleClick);
        EXPECT_TRUE(layer(L"Walls")->isPlottable());
        EXPECT_EQ(current(), L"Walls");
        EXPECT_TRUE(database->undo());
        EXPECT_EQ(current(), L"0");
        EXPECT_NE(database->undoName(), L"_LAYER");
    });
}

TEST_F(LayerDlg, ADoubleClickOnAStateLeavesEveryStateAsItWas) {
    layer(L"Doors", OdDb::kForWrite)->setIsLocked(true);
    run([&](Hands& h) {
        h.select({L"Walls", L"Doors", L"Used"});
        h.cell(L"Walls", LayerColumn::lock, UserAction::Cell::doubleClick);
        EXPECT_EQ(current(), L"Walls");
        EXPECT_TRUE(layer(L"Doors")->isLocked());
        EXPECT_FALSE(layer(L"Walls")->isLocked() || layer(L"Used")->isLocked());
    });
}

TEST_F(LayerDlg, WhatAViewportShowsIsSetRemovedAndUndone) {
    database = layerDrawing::fromTags(
        "0|SECTION|2|HEADER|9|$ACADVER|1|AC1032|9|$HANDSEED|5|100|9|$TILEMODE|70|0|0|ENDSEC|0|SECTION|2|TABLES|"
        "0|"
        "TABLE|2|LAYER|5|2|330|0|100|AcDbSymbolTable|70|2|0|LAYER|5|10|330|2|100|AcDbSymbolTableRecord|100|"
        "AcDbLayerTableRecord|2|0|70|0|62|7|6|Continuous|0|LAYER|5|11|330|2|100|AcDbSymbolTableRecord|100|"
        "AcDbLayerTableRecord|2|Wall|70|0|62|3|6|Continuous|0|ENDTAB|0|ENDSEC|0|SECTION|2|ENTITIES|0|VIEWPORT|"
        "5|20|"
        "330|1F|100|AcDbEntity|67|1|8|0|100|AcDbViewport|10|0.0|20|0.0|30|0.0|40|1.0|41|1.0|69|2|0|ENDSEC|0|"
        "EOF|");
    ASSERT_TRUE(database);
    const OdDbObjectId viewport = database->getOdDbObjectId(0x20), wall = layerId(L"Wall");
    tv::dwg::LayerFilter thawed;
    thawed.name = L"thawed";
    thawed.expression = L"VPFROZEN==\"False\"";
    ASSERT_FALSE(tv::dwg::addLayerFilter(*database, thawed).isNull());
    const auto before = database->bytes();
    run([&](Hands& h) {
        const auto shows = [&](LayerColumn column) {
            return h.list.cellText(h.row(L"Wall"), static_cast<int>(column));
        };
        EXPECT_TRUE(h.list.layout().at(static_cast<int>(LayerColumn::vpColor)).visible);
        UserAction choose;
        choose.kind = UserAction::Kind::treeSelect;
        choose.path = {L"모두", L"thawed"};
        h.window.act("IDC_LAYER_TREE", choose);
        EXPECT_THAT(h.shown(), ElementsAre(L"0", L"Wall"));
        h.cell(L"Wall", LayerColumn::vpFreeze);
        EXPECT_THAT(h.shown(), ElementsAre(L"0")) << "the filter is asked again";
        h.window.key(L"Ctrl+Z");
        choose.path = {L"모두"};
        h.window.act("IDC_LAYER_TREE", choose);
        h.cell(L"Wall", LayerColumn::vpFreeze);
        h.cell(L"Wall", LayerColumn::newVpFreeze);
        user.expect<CLayerTransparencyDlg>([](auto& box) {
            box.type("IDC_LAYERTRANSPARENCY_VALUE", L"40");
            box.click("IDOK");
        });
        h.cell(L"Wall", LayerColumn::vpTransparency);
        EXPECT_EQ(shows(LayerColumn::vpFreeze), L"이 뷰포트에서 동결됨");
        EXPECT_EQ(shows(LayerColumn::newVpFreeze), L"새 뷰포트에서 동결");
        EXPECT_EQ(shows(LayerColumn::vpTransparency), L"40");
        EXPECT_EQ(shows(LayerColumn::transparency), L"0");
        EXPECT_FALSE(layer(L"Wall")->isFrozen());
        EXPECT_TRUE(tv::dwg::overridesOf(wall, viewport).transparency);
        h.window.key(L"Ctrl+Z");
        EXPECT_EQ(shows(LayerColumn::vpTransparency), L"0");
        h.window.key(L"Ctrl+Y");
        h.select({L"Wall"});
        static_cast<CLayerDlg&>(h.window.dialog()).OnClickListMenu_REMOVEOVERRIDES();
        EXPECT_EQ(shows(LayerColumn::vpTransparency), L"0");
        EXPECT_EQ(shows(LayerColumn::vpFreeze), L"이 뷰포트에서 동결됨") << "that is no override";
    });
    EXPECT_FALSE(tv::dwg::hasOverrides(wall));
    for (int step = 0; step < 4; ++step)
        EXPECT_TRUE(database->undoName() == L"_LAYER" && database->undo());
    EXPECT_EQ(database->bytes(), before);
}

TEST_F(LayerDlg, AColourLeftAsItWasKeepsItsBook) {
    layer(L"Walls", OdDb::kForWrite)->setBookColor(OdCmColor::byRgb(30, 144, 255), L"BOOK$Sky");
    const auto before = database->bytes();
    run([&](Hands& h) {
        user.expect<CColorDlg>([](auto& box) { box.click("IDOK"); });
        h.cell(L"Walls", LayerColumn::color);
    });
    EXPECT_EQ(database->bytes(), before);
}

TEST_F(LayerDlg, AReadOnlyDrawingIsSaidToBeOneOnce) {
    database->setReadOnly(true);
    const auto before = database->bytes();
    run([&](Hands& h) {
        h.select({L"Walls"});
        const auto told = [&](const std::function<void()>& act) {
            user.expectBox(L"도면이 읽기 전용이므로", "IDOK");
            act();
        };
        told([&] { h.cell(L"Walls", LayerColumn::freeze); });
        told([&] { h.cell(L"Walls", LayerColumn::transparency); });
        told([&] { h.window.key(L"F2"); });
        told([&] { h.window.key(L"Delete"); });
        told([&] { h.cell(L"Doors", LayerColumn::name, UserAction::Cell::doubleClick); });
        EXPECT_EQ(h.list.editor(), nullptr);
    });
    EXPECT_EQ(database->bytes(), before);
}

TEST_F(LayerDlg, FollowsEditsMadeElsewhereAndKeepsWhatWasSelected) {
    CLayerDlg dialog(database.get(), nullptr);
    CLayerInterface holder;
    dialog.SetInterface(&holder);
    EXPECT_EQ(holder.getLayerDlg(), &dialog);
    ASSERT_TRUE(dialog.Create());
    auto& list = static_cast<CLayerListCtrl&>(*dialog.GetDlgItem("IDC_LAYER_LIST"));
    const auto select = [&](const wchar_t* name) { list.SelectLayers({layerId(name)}); };
    const auto selected = [&] { return list.SelectedLayers(); };

    select(L"Used");
    layer(L"Walls", OdDb::kForWrite)->erase();
    for (const wchar_t* name : {L"Roof", L"One", L"Two", L"Three"})
        add(name);
    toolkit.advance(std::chrono::milliseconds(0));
    ASSERT_EQ(list.GetItemCount(), 7);
    EXPECT_THAT(selected(), ElementsAre(layerId(L"Used")));
    std::vector<std::wstring> added;
    for (int row = 3; row < 7; ++row)
        added.push_back(list.cellText(row, static_cast<int>(LayerColumn::name)));
    EXPECT_THAT(added, ElementsAre(L"Roof", L"One", L"Two", L"Three")) << "as the table has them";
    for (const wchar_t* name : {L"One", L"Two", L"Three"})
        layer(name, OdDb::kForWrite)->erase();
    toolkit.advance(std::chrono::milliseconds(0));
    EXPECT_EQ(list.GetItemCount(), 4);

    tv::ui::UserAction open;
    open.kind = UserAction::Kind::cell;
    open.cell = UserAction::Cell::open;
    open.row = 1;
    open.column = static_cast<int>(LayerColumn::name);
    ASSERT_TRUE(list.perform(open));
    layer(L"Doors", OdDb::kForWrite)->erase();
    user.expectBox(L"편집하던 도면층이", "IDOK");
    toolkit.advance(std::chrono::milliseconds(0));
    EXPECT_EQ(list.editor(), nullptr) << "its layer is gone";
    EXPECT_EQ(list.GetItemCount(), 3);

    database->setHeaderVar(L"CLAYER", tv::dwg::HeaderValue::text(L"Roof"));
    toolkit.advance(std::chrono::milliseconds(0));
    EXPECT_THAT(selected(), ElementsAre(layerId(L"Roof")));
    EXPECT_EQ(dialog.GetDlgItem("IDC_LAYER_CURRENT_LINE")->GetWindowText(), L"현재 도면층 : Roof");
    while (database->undo()) {
    }
    toolkit.advance(std::chrono::milliseconds(0));
    EXPECT_EQ(list.GetItemCount(), 1);

    host.documentManager()->newDocument()->database()->layers(OdDb::kForWrite)->add(L"Other");
    toolkit.advance(std::chrono::milliseconds(0));
    EXPECT_EQ(list.cellText(1, static_cast<int>(LayerColumn::name)), L"Other");
    while (auto* document = host.documentManager()->currentDocument())
        host.documentManager()->closeDocument(document);
    toolkit.advance(std::chrono::milliseconds(0));
    EXPECT_EQ(list.GetItemCount(), 0);
    EXPECT_FALSE(dialog.GetDlgItem("IDC_LAYER_NEW")->IsWindowEnabled());
    auto& tree = static_cast<CLayerTreeCtrl&>(*dialog.GetDlgItem("IDC_LAYER_TREE"));
    EXPECT_NE(tree.find({L"모두"}), 0);
    EXPECT_EQ(tree.find({L"모두", L"사용된 모든 도면층"}), 0) << "nothing is in use where there is nothing";
}

TEST_F(LayerDlg, AnEditorStaysWithItsLayerWhateverHappensElsewhere) {
    CLayerDlg dialog(database.get(), nullptr);
    ASSERT_TRUE(dialog.Create());
    auto& list = static_cast<CLayerListCtrl&>(*dialog.GetDlgItem("IDC_LAYER_LIST"));
    UserAction open;
    open.kind = UserAction::Kind::cell;
    open.cell = UserAction::Cell::open;
    open.row = 2;
    open.column = static_cast<int>(LayerColumn::name);
    const auto entered = [&](const wchar_t* text, const std::function<void()>& elsewhere) {
        ASSERT_TRUE(list.perform(open));
        static_cast<CEdit*>(list.editor())->SetWindowText(text);
        elsewhere();
        toolkit.advance(std::chrono::milliseconds(0));
        ASSERT_NE(list.editor(), nullptr);
        EXPECT_EQ(list.editor()->GetWindowText(), text);
        list.EndLabelEditing();
        EXPECT_FALSE(layerId(text).isNull());
    };
    entered(L"Gates", [&] { database->setHeaderVar(L"CLAYER", tv::dwg::HeaderValue::text(L"Used")); });
    entered(L"Mine", [&] { layer(L"Gates", OdDb::kForWrite)->setName(L"Theirs"); });
    entered(L"Among many", [&] {
        for (int i = 0; i < 100; ++i)
            add((L"L" + std::to_wstring(i)).c_str());
        layer(L"Walls", OdDb::kForWrite)->erase();
    });
}

TEST_F(LayerDlg, OneThatStaysOpenFollowsTheLanguage) {
    const TempFolder folder;
    folder.write("a_en.ini", "IDS_LAYERDLG_0 = Layers\nIDS_ZEL_MANAGED_UI_LAYER_41 = Name\n"
                             "IDS_ZEL_MANAGED_UI_LAYER_51 = Current\nIDS_ZEL_MANAGED_UI_LAYERFILTER_1 = All\n");
    VORD_MSGFunction::AddFileBase(folder.path / "a");
    CLayerDlg dialog(database.get(), nullptr);
    ASSERT_TRUE(dialog.Create());
    auto& list = static_cast<CLayerListCtrl&>(*dialog.GetDlgItem("IDC_LAYER_LIST"));
    list.SetColumnWidth(static_cast<int>(LayerColumn::name), 77);
    list.SelectLayers({layerId(L"Doors")});
    VORD_MSGFunction::SetCurrentLanguageId(1033);
    ASSERT_TRUE(VORD_MSGFunction::LoadFile());
    EXPECT_EQ(dialog.GetWindowText(), L"Layers");
    const auto& name = list.columns()[static_cast<int>(LayerColumn::name)];
    EXPECT_EQ(name.title, L"Name");
    EXPECT_EQ(name.width, 77);
    EXPECT_THAT(list.SelectedLayers(), ElementsAre(layerId(L"Doors")));
    EXPECT_EQ(dialog.GetDlgItem("IDC_LAYER_CURRENT_LINE")->GetWindowText(), L"Current : 0");
    EXPECT_THAT(dialog.GetDlgItem("IDC_LAYER_FILTER_LINE")->GetWindowText(), HasSubstr(L"All: "));
    VORD_MSGFunction::Reset();
}

TEST_F(LayerDlg, FiltersChooseWhatIsShownAndActOnAllOfIt) {
    run([&](Hands& h) {
        UserAction used;
        used.kind = UserAction::Kind::treeSelect;
        used.path = {L"모두", L"사용된 모든 도면층"};
        h.window.act("IDC_LAYER_TREE", used);
        EXPECT_THAT(h.shown(), ElementsAre(L"0", L"Used"));
        EXPECT_EQ(h.window.text("IDC_LAYER_FILTER_LINE"),
                  L"사용된 모든 도면층: 2개 도면층이 전체 4개 도면층 중에서 표시되었음");
        user.expectBox(L"도면층 필터 \"사용된 모든 도면층\" 은(는) 삭제할 수 없습니다.", "IDOK");
        h.window.key(L"Delete");
        h.window.check("IDC_LAYER_INVERT");
        EXPECT_THAT(h.shown(), ElementsAre(L"Walls", L"Doors"));
        h.window.check("IDC_LAYER_INVERT", 0);

        h.window.type("IDC_LAYER_SEARCH", L"us");
        EXPECT_THAT(h.shown(), ElementsAre(L"Used"));
        EXPECT_FALSE(h.window.dialog().GetDlgItem("IDC_LAYER_DELETE")->IsWindowEnabled())
            << "what was selected is out of sight";
        h.window.key(L"Enter");
        EXPECT_TRUE(h.window.dialog().running());
        EXPECT_THAT(h.list.SelectedLayers(), ElementsAre(layerId(L"Used"))) << "on to what was found";
        h.window.type("IDC_LAYER_SEARCH", L"us");
        h.window.key(L"Escape");
        EXPECT_THAT(h.shown(), ElementsAre(L"0", L"Used"));

        used.path = {L"모두"};
        h.window.act("IDC_LAYER_TREE", used);
        h.select({L"Walls", L"Doors"});
        UserAction context;
        context.kind = UserAction::Kind::treeMenu;
        context.path = {L"모두"};
        h.window.click("IDC_LAYER_NEW_GROUP");
        h.window.key(L"Escape"); // its name stays
        ASSERT_EQ(tv::dwg::layerFilters(*database).size(), 1u);
        EXPECT_TRUE(h.shown().empty());
    });
}

TEST_F(LayerDlg, LayersComeIntoGroupsWithoutAMouse) {
    run([&](Hands& h) {
        h.window.click("IDC_LAYER_NEW_GROUP");
        h.window.key(L"Escape");
        UserAction tree;
        tree.kind = UserAction::Kind::treeSelect;
        tree.path = {L"모두"};
        h.window.act("IDC_LAYER_TREE", tree);
        h.select({L"Walls", L"Doors"});
        UserAction openMenu;
        openMenu.kind = UserAction::Kind::cell;
        openMenu.cell = UserAction::Cell::menu;
        openMenu.row = h.row(L"Walls");
        openMenu.column = 1;
        h.window.act("IDC_LAYER_LIST", openMenu);
        menu(h.window, "IDC_LAYER_LIST", {L"그룹 필터에 추가", L"그룹 필터1"});
        EXPECT_EQ(h.shown().size(), 4u) << "what is shown stays";
        EXPECT_EQ(h.list.selection().count(), 2);

        // Add in the group's own menu takes what was selected before the group was.
        h.select({L"Used", L"Doors"});
        UserAction groupMenu;
        groupMenu.kind = UserAction::Kind::treeMenu;
        groupMenu.path = {L"모두", L"그룹 필터1"};
        h.window.act("IDC_LAYER_TREE", groupMenu);
        EXPECT_THAT(h.shown(), ElementsAre(L"Walls", L"Doors"));
        menu(h.window, "IDC_LAYER_TREE", {L"선택한 도면층 추가"});
        EXPECT_THAT(h.shown(), ElementsAre(L"Walls", L"Doors", L"Used"));
        EXPECT_EQ(h.list.selection().count(), 2);

        h.select({L"Walls"});
        h.window.act("IDC_LAYER_TREE", groupMenu);
        menu(h.window, "IDC_LAYER_TREE", {L"선택한 도면층으로 대체"});
        EXPECT_THAT(h.shown(), ElementsAre(L"Walls"));
    });
}

TEST_F(LayerDlg, TheColumnsOfAViewportGoWithItsDrawing) {
    const auto viewport = [](const char* handle, const char* number) {
        return std::string("0|VIEWPORT|5|") + handle +
               "|330|1F|100|AcDbEntity|67|1|8|0|100|AcDbViewport|10|0.0|20|0.0|30|0.0|40|1.0|41|1.0|68|" +
               number + "|69|" + number + "|";
    };
    const auto sheet = layerDrawing::fromTags("0|SECTION|2|HEADER|9|$ACADVER|1|AC1032|9|$TILEMODE|70|0|0|"
                                              "ENDSEC|0|SECTION|2|TABLES|0|TABLE|2|LAYER|5|2|330|"
                                              "0|100|AcDbSymbolTable|70|1|0|LAYER|5|10|330|2|100|"
                                              "AcDbSymbolTableRecord|100|AcDbLayerTableRecord|2|0|70|0|62|"
                                              "7|6|Continuous|0|ENDTAB|0|ENDSEC|0|SECTION|2|ENTITIES|" +
                                              viewport("20", "1") + viewport("21", "2") + "0|ENDSEC|0|EOF|");
    ASSERT_EQ(sheet->setActiveViewport(sheet->getOdDbObjectId(0x21)), Tavo::eOk);
    CLayerDlg dialog(sheet.get(), nullptr);
    ASSERT_TRUE(dialog.Create());
    auto& list = static_cast<CLayerListCtrl&>(*dialog.GetDlgItem("IDC_LAYER_LIST"));
    const auto shown = [&] { return list.columns()[static_cast<std::size_t>(LayerColumn::vpFreeze)].visible; };
    EXPECT_TRUE(shown());
    dialog.OnDatabaseChanged();
    EXPECT_EQ(list.GetItemCount(), 4);
    EXPECT_FALSE(shown());
}

TEST_F(LayerDlg, DrawingsThatKeepNoFiltersSaySoAtOnce) {
    database =
        layerDrawing::fromTags("0|SECTION|2|TABLES|0|TABLE|2|LAYER|70|1|0|LAYER|2|0|70|0|62|7|6|CONTINUOUS|0|"
                               "ENDTAB|0|ENDSEC|0|SECTION|2|ENTITIES|0|ENDSEC|0|EOF|");
    const auto before = database->bytes();
    run([&](Hands& h) {
        for (const char* button : {"IDC_LAYER_NEW_FILTER", "IDC_LAYER_NEW_GROUP"}) {
            user.expectBox(L"이 도면의 버전은 도면층 필터를 담을 수 없습니다.", "IDOK");
            h.window.click(button);
        }
        h.window.click("IDC_LAYER_NEW");
        h.window.key(L"Enter");
        EXPECT_THAT(h.shown(), ElementsAre(L"0", L"도면층1"));
        user.expectBox(L"이 도면의 버전에는 저장할 수 없는 값이므로", "IDOK");
        h.cell(L"도면층1", LayerColumn::plot);
        h.window.key(L"Ctrl+Z");
    });
    EXPECT_EQ(database->bytes(), before);
}

TEST_F(LayerDlg, NothingIsLeftOfADrawingThatGoesAwayUnderneath) {
    auto own = layerDrawing::withLayers({L"Walls"});
    CLayerDlg dialog(own.get(), nullptr);
    ASSERT_TRUE(dialog.Create());
    auto& list = static_cast<CLayerListCtrl&>(*dialog.GetDlgItem("IDC_LAYER_LIST"));
    EXPECT_EQ(list.GetItemCount(), 2);
    host.documentManager()->closeDocument(host.documentManager()->currentDocument());
    database = nullptr;
    toolkit.advance(std::chrono::milliseconds(0));
    own = nullptr;
    toolkit.advance(std::chrono::milliseconds(0));
    EXPECT_EQ(list.GetItemCount(), 0);
    auto& tree = static_cast<CLayerTreeCtrl&>(*dialog.GetDlgItem("IDC_LAYER_TREE"));
    EXPECT_EQ(tree.find({L"모두", L"사용된 모든 도면층"}), 0);
    dialog.OnBtnNewLayer();
    dialog.OnBtnLayerDelete();
    dialog.OnClickTreeMenu_VISIBILITY(false);
    dialog.OnTreeSelChanged();
}
