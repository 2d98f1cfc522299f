#include "kxgui/layers/LayerListCtrl.h"

#include "kxgui/controls/InPlaceEdit.h"
#include "kxgui/frame/Messages.h"
#include "kxgui/layers/LayerTransparencyDlg.h"
#include "platform/text/SettingsStore.h"
#include "tests/layers/LayerDrawing.h"
#include "tests/lists/ListProbe.h"

#include <gmock/gmock.h>

using namespace kx::layers;
using layerDrawing::write;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Log = std::vector<std::wstring>;

int column(LayerColumn which) { return static_cast<int>(which); }

struct LayerGridDlg : ListProbeDlg<CLayerListCtrl> {};

// Writes down what the grid asks for, and writes names.
struct LayerListTest : ListProbe, ILayerGridOwner {
    OdDbDatabasePtr database = layerDrawing::withLayers({L"A", L"B", L"C", L"D", L"G-REGION-VIEW"});
    std::shared_ptr<LayerRows> rows = std::make_shared<LayerRows>();
    LayerGridDlg dialog;
    CLayerListCtrl& list = dialog.list;
    Log log;
    bool keeps = false; // the owner refuses
    bool hides = false; // a click on an icon freezes

    LayerListTest() {
        rows->setDatabase(database.get());
        list.SetRows(rows);
        list.SetOwner(this);
    }

    void note(const wchar_t* what, int row, int which) {
        log.push_back(what + (L" " + rows->row(row).name.wstr()) + L" " + std::to_wstring(which));
    }
    void note(const wchar_t* what, int row, LayerColumn which) { note(what, row, column(which)); }
    void OnClickListItemIcon(int row, int icon) override {
        note(L"icon", row, icon);
        if (!hides) return;
        const OdDbObjectId layer = rows->layerAt(row);
        write(layer)->setIsFrozen(true);
        list.LayerChanged(layer);
    }
    void OnClickListItemIcons(int row, int icon) override { note(L"icons", row, icon); }
    void OnClickListItemColor(int row, LayerColumn c) override { note(L"color", row, c); }
    void OnClickListItemColors(int row, LayerColumn c) override { note(L"colors", row, c); }
    void OnClickListItemLineType(int row, LayerColumn c) override { note(L"linetype", row, c); }
    void OnClickListItemLineTypes(int row, LayerColumn c) override { note(L"linetypes", row, c); }
    void OnClickListItemLineWeight(int row, LayerColumn c) override { note(L"lineweight", row, c); }
    void OnClickListItemLineWeights(int row, LayerColumn c) override { note(L"lineweights", row, c); }
    void OnClickListItemTransparency(int row, LayerColumn c) override { note(L"transparency", row, c); }
    void OnClickListItemTransparencys(int row, LayerColumn c) override { note(L"transparencys", row, c); }
    void OnClickListItemPlotStyle(int row, LayerColumn c) override { note(L"plotStyle", row, c); }
    void OnClickListItemPlotStyles(int row, LayerColumn c) override { note(L"plotStyles", row, c); }
    bool CheckNameChangeEnable(int row) override {
        note(L"name", row, 0);
        return row > 0;
    }
    bool OnEditingListItemString(int row, int c) override {
        note(L"text", row, c);
        return true;
    }
    bool OnEndEditListItemString(int row, int c, const std::wstring& text) override {
        note((text + L" for").c_str(), row, c);
        if (keeps) MessageDlg(&dialog, L"refused", L"", 0x30);
        const OdDbObjectId layer = rows->layerAt(row);
        if (keeps || (c == 0 && write(layer)->setName(text) != Tavo::eOk)) return false;
        list.LayerChanged(layer);
        return true;
    }
    void OnTakeBackListItem() override { log.push_back(L"taken back"); }
    void OnDoubleClickListItem(int row) override { note(L"current", row, 0); }

    Log told() { return std::exchange(log, {}); }
    void run(std::function<void(tv::ui::WindowUser&)> does) {
        user.expect<LayerGridDlg>([&, does](auto& u) {
            does(u);
            if (dialog.running()) u.closeBox();
        });
        dialog.DoModal();
    }
    tv::ui::UserAction cell(int row, LayerColumn which, tv::ui::UserAction::Cell how = {}) {
        tv::ui::UserAction action = click(row, column(which));
        action.cell = how;
        return action;
    }
};

} // namespace

TEST_F(LayerListTest, ClicksAskForWhatTheCellHas) {
    run([&](auto& u) {
        u.act("LIST", cell(1, LayerColumn::freeze));
        u.act("LIST", cell(2, LayerColumn::color));
        u.act("LIST", cell(2, LayerColumn::name));
        EXPECT_THAT(told(), ElementsAre(L"icon A 2", L"color B 5"));
        EXPECT_EQ(list.editor(), nullptr) << "a click on a name only selects";

        // One of five selected: all of them; beside them: that one.
        u.selectRows("LIST", tv::ui::RowSet::range(0, 4));
        u.act("LIST", cell(3, LayerColumn::freeze));
        EXPECT_EQ(list.selection(), tv::ui::RowSet::range(0, 4));
        u.act("LIST", cell(1, LayerColumn::transparency));
        u.act("LIST", cell(5, LayerColumn::lock));
        EXPECT_THAT(told(), ElementsAre(L"icons C 2", L"transparencys A 8", L"icon G-REGION-VIEW 3"));
        u.selectRows("LIST", tv::ui::RowSet::range(0, 4));
        u.act("LIST", cell(2, LayerColumn::name));
        EXPECT_EQ(list.selection(), tv::ui::RowSet{2}) << "a click on a text selects its row";

        u.act("LIST", cell(2, LayerColumn::name, tv::ui::UserAction::Cell::doubleClick));
        EXPECT_THAT(told(), ElementsAre(L"current B 0"));
        u.act("LIST", cell(2, LayerColumn::plot, tv::ui::UserAction::Cell::doubleClick));
        EXPECT_THAT(told(), ElementsAre(L"icon B 4", L"taken back", L"current B 0"));

        // Its first half may take the row away: nobody meant the one that comes up there.
        hides = true;
        list.UpdateRows(
            [](LayerRows& all) { all.setFilter([](const T_LAYER_DATA& at) { return !at.frozen; }); });
        u.act("LIST", cell(2, LayerColumn::freeze, tv::ui::UserAction::Cell::doubleClick));
        EXPECT_THAT(told(), ElementsAre(L"icon B 2"));
        EXPECT_EQ(list.selection(), tv::ui::RowSet{2});
    });
}

TEST_F(LayerListTest, KeysReachEveryCell) {
    int deleted = 0;
    list.onDelete = [&] { ++deleted; };
    run([&](auto& u) {
        u.act("LIST", cell(1, LayerColumn::name));
        for (int i = 0; i < 3; ++i)
            u.key(L"Right");
        u.key(L"Space");
        u.key(L"F2");
        EXPECT_EQ(list.editorColumn(), column(LayerColumn::name)) << "a state has nothing to edit";
        u.key(L"Escape");
        u.act("LIST", cell(1, LayerColumn::color));
        u.key(L"Right");
        u.key(L"Enter");
        EXPECT_THAT(told(), ElementsAre(L"icon A 3", L"name A 0", L"color A 5", L"linetype A 6"));
        EXPECT_TRUE(dialog.running()) << "Enter is the cell's";
        u.key(L"Delete");
        EXPECT_EQ(deleted, 1);
        u.key(L"d");
        EXPECT_EQ(list.GetCurSel(), 4) << "typing finds names, whatever column stands first";
        u.key(L"Space");
        EXPECT_THAT(told(), IsEmpty()) << "a space that was typed to find";
        u.act("LIST", cell(2, LayerColumn::status));
        toolkit.advance(std::chrono::seconds(2));
        u.key(L"Space");
        u.key(L"Enter");
        EXPECT_THAT(told(), ElementsAre(L"current B 0", L"current B 0")) << "as a double click";
        // Moving on leaves one row selected, also from a state among several selected rows.
        u.selectRows("LIST", tv::ui::RowSet::range(0, 4));
        u.key(L"Down");
        EXPECT_EQ(list.selection().count(), 1);
    });
}

TEST_F(LayerListTest, NamesAreEditedWhenTheOwnerAllowsIt) {
    run([&](auto& u) {
        u.refused("LIST", cell(0, LayerColumn::name, tv::ui::UserAction::Cell::open));
        EXPECT_THAT(told(), ElementsAre(L"name 0 0"));
        u.act("LIST", cell(1, LayerColumn::name, tv::ui::UserAction::Cell::open));
        u.type(CInPlaceEdit::kName, std::wstring(101, L'x'));
        EXPECT_EQ(list.editor()->GetWindowText().size(), 101u)
            << "so that the owner can say that it is too long";
        keeps = true;
        user.expectBox(L"refused", "IDOK");
        u.key(L"Enter");
        EXPECT_EQ(rows->row(1).name, L"A");
        EXPECT_EQ(log.size(), 2u) << "asked once";
        ASSERT_TRUE(list.editor()) << "the text can be mended";
        u.key(L"Escape");
        keeps = false;
        log.clear();

        u.act("LIST", cell(1, LayerColumn::name, tv::ui::UserAction::Cell::open));
        u.type(CInPlaceEdit::kName, L"Z");
        // Meanwhile another order: the edit goes along.
        list.UpdateRows([&](LayerRows& all) { all.sort(column(LayerColumn::name), false); });
        EXPECT_EQ(list.editorRow(), rows->rowOfLayer(database->layers()->getAt(L"A")));
        u.key(L"Enter");
        EXPECT_THAT(told(), ElementsAre(L"name A 0", L"Z for A 0"));
        EXPECT_TRUE(database->layers()->has(L"Z"));

        const int view = rows->rowOfLayer(database->layers()->getAt(L"G-REGION-VIEW"));
        u.refused("LIST", cell(view, LayerColumn::description, tv::ui::UserAction::Cell::open));
        const int b = rows->rowOfLayer(database->layers()->getAt(L"B"));
        u.act("LIST", cell(b, LayerColumn::description, tv::ui::UserAction::Cell::open));
        u.type(CInPlaceEdit::kName, L"about it");
        write(rows->layerAt(b))->erase();
        list.UpdateRows([](LayerRows& all) { all.refresh(); });
        EXPECT_EQ(list.editor(), nullptr) << "its layer is gone";
        EXPECT_THAT(told(), ElementsAre(L"text B 3"));
    });
}

TEST_F(LayerListTest, WhatIsSelectedStaysSo) {
    run([&](auto& u) {
        u.selectRows("LIST", {2, 3});
        const auto selected = list.SelectedLayers();
        list.UpdateRows([](LayerRows& all) { all.sort(column(LayerColumn::name), false); });
        EXPECT_EQ(list.selection(), (tv::ui::RowSet{2, 3}));
        list.UpdateRows([](LayerRows& all) { all.setSearch(L"c"); });
        EXPECT_EQ(list.selection(), tv::ui::RowSet{0});
        EXPECT_THAT(list.SelectedLayers(), ElementsAre(selected[1]));
        list.UpdateRows([](LayerRows& all) { all.setSearch(L""); });
        list.UpdateRows([](LayerRows& all) { all.resetSort(); });
        EXPECT_EQ(list.sortColumn(), -1);
        list.SelectLayers(selected);
        EXPECT_EQ(list.selection(), (tv::ui::RowSet{2, 3}));
        write(selected[0])->erase();
        list.LayerChanged(selected[0]);
        EXPECT_THAT(list.SelectedLayers(), ElementsAre(selected[1]));

        const auto other = layerDrawing::withLayers({L"A", L"B", L"C", L"D"});
        u.act("LIST", cell(1, LayerColumn::name, tv::ui::UserAction::Cell::open));
        list.UpdateRows([&](LayerRows& all) { all.setDatabase(other.get()); });
        EXPECT_THAT(list.SelectedLayers(), IsEmpty()) << "another drawing's layers were meant";
        EXPECT_EQ(list.editor(), nullptr);
        rows->setDatabase(nullptr);
    });
}

TEST_F(LayerListTest, ColumnsOfViewportsComeAndGo) {
    tv::MemorySettingsStore store;
    const auto shown = [&](LayerColumn which) { return list.layout().at(column(which)).visible; };
    list.RememberColumns(&store);
    EXPECT_FALSE(shown(LayerColumn::vpColor));
    run([&](auto&) {
        (void)list.userShowColumn(column(LayerColumn::plotStyle), false);
        (void)list.userResizeColumn(column(LayerColumn::vpLinetype), 99);
    });
    const auto sheet = layerDrawing::fromTags(
        "0|SECTION|2|HEADER|9|$ACADVER|1|AC1032|0|ENDSEC|0|SECTION|2|ENTITIES|0|VIEWPORT|5|20|330|1F|100|"
        "AcDbEntity|67|"
        "1|8|0|100|AcDbViewport|10|0.0|20|0.0|30|0.0|40|1.0|41|1.0|69|2|0|ENDSEC|0|EOF|");
    ASSERT_TRUE(sheet);
    rows->setDatabase(sheet.get());
    list.SetViewport(sheet->getOdDbObjectId(0x20));
    EXPECT_TRUE(shown(LayerColumn::vpColor));

    LayerGridDlg other;
    const auto otherRows = std::make_shared<LayerRows>();
    otherRows->setDatabase(sheet.get());
    other.list.SetRows(otherRows);
    other.list.RememberColumns(&store);
    const auto& layout = other.list.layout();
    EXPECT_FALSE(layout.at(column(LayerColumn::plotStyle)).visible);
    EXPECT_FALSE(layout.at(column(LayerColumn::vpColor)).visible);
    EXPECT_EQ(layout.at(column(LayerColumn::vpLinetype)).width, 99);
    other.list.SetViewport(sheet->getOdDbObjectId(0x20));
    EXPECT_TRUE(layout.at(column(LayerColumn::vpColor)).visible) << "hidden for want of a viewport only";
    other.list.SetViewport({});
    EXPECT_FALSE(layout.at(column(LayerColumn::vpColor)).visible);
}

TEST_F(LayerListTest, TransparencyIsAWholeNumberUpToNinety) {
    CLayerTransparencyDlg box(35, nullptr);
    user.expect<CLayerTransparencyDlg>([&](auto& u) {
        EXPECT_EQ(u.text("IDC_LAYERTRANSPARENCY_VALUE"), L"35");
        for (const wchar_t* wrong : {L"91", L"-1", L"abc", L"1.5", L"", L"99999999999999999999"}) {
            u.type("IDC_LAYERTRANSPARENCY_VALUE", wrong);
            user.expectBox(L"0-90의 정수를 입력하십시오.", "IDOK");
            u.click("IDOK");
            EXPECT_TRUE(box.running()) << "it stays open";
        }
        EXPECT_EQ(box.GetTransparency(), 35);
        u.type("IDC_LAYERTRANSPARENCY_VALUE", L"90");
        u.click("IDOK");
    });
    EXPECT_EQ(box.DoModal(), IDOK);
    EXPECT_EQ(box.GetTransparency(), 90);
    EXPECT_EQ(CTransparencyValidator().Validate(L"0"), 0);
}
