#include "kxgui/layers/LayerRows.h"

#include "platform/host/TavoSysvarManager.h"
#include "platform/text/MessageManager.h"
#include "platform/toolkit/Pictures.h"
#include "tests/layers/LayerDrawing.h"
#include "tests/support/HeadlessTest.h"

#include <gmock/gmock.h>

#include <limits>

using namespace kx::layers;
using layerDrawing::write;
using testing::ElementsAre;
using testing::IsEmpty;
using Kind = LayerRowsChange::Kind;

namespace {

int column(LayerColumn which) { return static_cast<int>(which); }

struct LayerRowsTest : HeadlessTest {
    OdDbDatabasePtr database = layerDrawing::withLayers({L"도면층1", L"도면층10", L"도면층2"});
    LayerRows rows;

    LayerRowsTest() { rows.setDatabase(database.get()); }

    std::vector<std::wstring> names() const {
        std::vector<std::wstring> out;
        for (int row = 0; row < rows.rowCount(); ++row)
            out.push_back(rows.text(row, column(LayerColumn::name)));
        return out;
    }
    std::wstring text(int row, LayerColumn which) const { return rows.text(row, column(which)); }
    OdDbObjectId layer(const wchar_t* name) const { return database->layers()->getAt(name); }
};

} // namespace

TEST(LayerVariants, AreComparedWhenTheirTypesAreEqual) {
    VORD_MSGFunction::SetCurrentLanguageId(1042);
    const tv::text::Collator collator(kLayerCollation);
    const auto compare = [&](const LayerVariant& a, const LayerVariant& b) {
        const int order = CompareItems(a, b, collator), back = CompareItems(b, a, collator);
        EXPECT_TRUE(order == 0 ? back == 0 : (order < 0) == (back > 0));
        return order < 0 ? -1 : order > 0 ? 1 : 0;
    };
    EXPECT_EQ(compare(std::int16_t{-1}, std::int16_t{1}), -1);
    EXPECT_EQ(compare(std::numeric_limits<std::uint64_t>::max(), std::uint64_t{1}), 1);
    EXPECT_EQ(compare(std::int32_t{5}, std::int64_t{4}), 0) << "of two types";
    EXPECT_EQ(compare(1.5, 1.25), 1);
    EXPECT_EQ(compare(std::nan(""), 1.0), 1) << "what is no number has its place";
    EXPECT_EQ(compare(LayerDate{1}, LayerDate{2}), -1);
    EXPECT_EQ(compare(false, true), -1);
    EXPECT_EQ(compare(L"", L"0"), -1);
    EXPECT_EQ(compare(L"", L""), 0);
    EXPECT_EQ(compare(L"도면층2", L"도면층10"), -1);
    EXPECT_NE(compare(L"Wall", L"wall"), 0) << "letter case counts";
    EXPECT_EQ(compare(LayerVariant(), LayerVariant()), 0);
}

TEST_F(LayerRowsTest, AreSortedByTypedValuesAndGoBackToTheTablesOrder) {
    const auto loaded = names();
    EXPECT_THAT(loaded, ElementsAre(L"0", L"도면층1", L"도면층10", L"도면층2"));
    rows.sort(column(LayerColumn::name), true);
    EXPECT_THAT(names(), ElementsAre(L"0", L"도면층1", L"도면층2", L"도면층10"));
    EXPECT_EQ(rows.rowOf(rows.identity(3)), 3);

    write(layer(L"도면층2"))->setColor(OdCmColor::byRgb(1, 2, 3));
    write(layer(L"도면층10"))->setColor(OdCmColor::byIndex(2));
    write(layer(L"도면층1"))->setColor(OdCmColor::byIndex(2));
    rows.sort(column(LayerColumn::color), true);
    EXPECT_THAT(names(), ElementsAre(L"도면층1", L"도면층10", L"0", L"도면층2"))
        << "indexed colours first; equal ones stay in the order they had";
    rows.refresh();
    EXPECT_EQ(names().front(), L"도면층1") << "the order outlasts reading again";
    write(layer(L"도면층2"))->setIsFrozen(true);
    rows.sort(column(LayerColumn::freeze), false);
    EXPECT_EQ(names().front(), L"도면층2");
    write(layer(L"도면층2"))->setIsFrozen(false);
    write(layer(L"도면층10"))->setIsFrozen(true);
    rows.refresh();
    EXPECT_EQ(names().front(), L"도면층2") << "what only changed stays where it is";
    layerDrawing::add(*database, L"새것");
    rows.refresh();
    EXPECT_EQ(names().front(), L"도면층10") << "other layers are there";
    write(layer(L"새것"))->erase();
    rows.refresh();
    rows.resetSort();
    EXPECT_EQ(names(), loaded);
}

TEST_F(LayerRowsTest, AreFoundByPartsOfNamesAndByPatterns) {
    for (const wchar_t* name : {L"Wand-ÄUSSEN", L"wand-innen", L"xref|Wand", L"A.B"})
        layerDrawing::add(*database, name);
    rows.refresh();
    const auto found = [&](const wchar_t* text) {
        rows.setSearch(text);
        return names();
    };
    EXPECT_THAT(found(L"WAND"), ElementsAre(L"Wand-ÄUSSEN", L"wand-innen", L"xref|Wand"));
    EXPECT_THAT(found(L"wand-ä"), ElementsAre(L"Wand-ÄUSSEN")) << "a longer text narrows it";
    EXPECT_THAT(found(L"and"), ElementsAre(L"Wand-ÄUSSEN", L"wand-innen", L"xref|Wand"));
    EXPECT_THAT(found(L"wand*"), ElementsAre(L"Wand-ÄUSSEN", L"wand-innen")) << "a pattern is of whole names";
    EXPECT_THAT(found(L"도면층#,a?b"), ElementsAre(L"도면층1", L"도면층2", L"A.B"));
    EXPECT_THAT(found(L"~*wand*,wand-i*"),
                ElementsAre(L"0", L"도면층1", L"도면층10", L"도면층2", L"wand-innen", L"A.B"));
    EXPECT_THAT(found(L"nothing"), IsEmpty());
    rows.setFilter([](const T_LAYER_DATA& layer) { return layer.name.getLength() > 4; });
    EXPECT_EQ(found(L"").size(), 4u);
    EXPECT_EQ(rows.tableCount(), 8);
}

TEST_F(LayerRowsTest, FollowOneLayerAtATime) {
    rows.setFilter([](const T_LAYER_DATA& layer) { return layer.on; });
    rows.sort(column(LayerColumn::name), false);
    ASSERT_THAT(names(), ElementsAre(L"도면층10", L"도면층2", L"도면층1", L"0"));
    const OdDbObjectId two = layer(L"도면층2");

    EXPECT_EQ(text(1, LayerColumn::lock), L"잠금 해제됨");
    write(two)->setIsLocked(true);
    EXPECT_EQ(text(1, LayerColumn::lock), L"잠김") << "what is shown is what the record holds";
    auto change = rows.layerChanged(two);
    EXPECT_TRUE(change.kind == Kind::changed && change.row == 1);

    write(two)->setIsOff(true);
    change = rows.layerChanged(two);
    EXPECT_TRUE(change.kind == Kind::removed && change.row == 1);
    EXPECT_EQ(rows.rowOfLayer(two), -1);
    EXPECT_EQ(rows.layerChanged(two).kind, Kind::none);
    database->undo();
    change = rows.layerChanged(two);
    EXPECT_TRUE(change.kind == Kind::inserted && change.row == 1) << "back where it was";

    write(two)->erase();
    EXPECT_EQ(rows.layerChanged(two).kind, Kind::removed);
    EXPECT_EQ(rows.tableCount(), 3);
    database->undo();
    EXPECT_EQ(rows.layerChanged(two).kind, Kind::inserted);
    const OdDbObjectId fresh = layerDrawing::add(*database, L"도면층3");
    change = rows.layerChanged(fresh);
    EXPECT_TRUE(change.kind == Kind::inserted && change.row == 4) << "a new one stands at the end";
    EXPECT_EQ(rows.rowOfKey(rows.rowKey(4)), 4);
    rows.setSearch(L"면층3");
    EXPECT_THAT(names(), ElementsAre(L"도면층3")) << "its name is known to the search";
    write(fresh)->setName(L"*hidden");
    EXPECT_EQ(rows.layerChanged(fresh).kind, Kind::removed);
    EXPECT_EQ(rows.layerChanged(database->getLinetypeTableId()).kind, Kind::none) << "no layer at all";
}

TEST_F(LayerRowsTest, ReadsOnlyWhatIsAskedFor) {
    int read = 0;
    rows.setFilter([&](const T_LAYER_DATA&) { return ++read > 0; });
    EXPECT_EQ(read, 4);
    rows.setSearch(L"1");
    rows.sort(column(LayerColumn::name), true);
    EXPECT_EQ(read, 4) << "searching and sorting do not ask the filter again";
}

TEST_F(LayerRowsTest, ShowsTheValuesOfTheActiveViewport) {
    const auto sheet = layerDrawing::fromTags(
        "0|SECTION|2|HEADER|9|$ACADVER|1|AC1032|9|$HANDSEED|5|100|0|ENDSEC|0|SECTION|2|TABLES|0|TABLE|2|LAYER|"
        "5|2|330|"
        "0|100|AcDbSymbolTable|70|2|0|LAYER|5|10|330|2|100|AcDbSymbolTableRecord|100|AcDbLayerTableRecord|2|0|"
        "70|0|62|"
        "7|6|Continuous|0|LAYER|5|11|330|2|100|AcDbSymbolTableRecord|100|AcDbLayerTableRecord|2|Wall|70|0|62|3|"
        "6|"
        "Continuous|0|ENDTAB|0|ENDSEC|0|SECTION|2|ENTITIES|0|VIEWPORT|5|20|330|1F|100|AcDbEntity|67|1|8|0|100|"
        "AcDbViewport|10|0.0|20|0.0|30|0.0|40|1.0|41|1.0|69|2|0|ENDSEC|0|EOF|");
    ASSERT_TRUE(sheet);
    const OdDbObjectId viewport = sheet->getOdDbObjectId(0x20), wall = sheet->layers()->getAt(L"Wall");
    ASSERT_EQ(tv::dwg::overrideColor(wall, viewport, OdCmColor::byIndex(30)), Tavo::eOk);
    ASSERT_EQ(tv::dwg::overrideLineWeight(wall, viewport, OdDb::kLnWt050), Tavo::eOk);
    const OdDbObjectId frozen[] = {wall};
    viewport.open<OdDbViewport>(OdDb::kForWrite)->freezeLayersInViewport(frozen);

    rows.setDatabase(sheet.get());
    const int row = rows.rowOfLayer(wall);
    EXPECT_EQ(text(row, LayerColumn::vpColor), text(row, LayerColumn::color))
        << "without a viewport the layer's";
    rows.setViewport(viewport);
    EXPECT_EQ(text(row, LayerColumn::vpColor), L"Color_30");
    EXPECT_TRUE(rows.row(row).vpFrozen);
    EXPECT_FALSE(rows.row(0).vpFrozen);
    const auto cell = rows.cell(row, column(LayerColumn::vpColor));
    EXPECT_TRUE(cell.bold);
    EXPECT_NE(cell.hint.find(text(row, LayerColumn::color)), std::wstring::npos)
        << "the layer's own value is said";
    EXPECT_FALSE(rows.cell(0, column(LayerColumn::vpLineweight)).bold);
    rows.sort(column(LayerColumn::vpLineweight), false);
    EXPECT_EQ(rows.layerAt(0), wall);

    viewport.open<OdDbViewport>(OdDb::kForWrite)->thawAllLayersInViewport();
    rows.viewportChanged();
    EXPECT_FALSE(rows.row(0).vpFrozen);
}

TEST_F(LayerRowsTest, StandWithoutADrawingWithoutATableAndWithoutHandles) {
    OdDbDatabasePtr closing = layerDrawing::withLayers({L"A"});
    rows.setDatabase(closing.get());
    ASSERT_EQ(rows.rowCount(), 2);
    closing.reset();
    EXPECT_EQ(rows.rowCount(), 0) << "the drawing went away";
    EXPECT_EQ(rows.database(), nullptr);

    const auto bare = layerDrawing::fromTags("0|SECTION|2|ENTITIES|0|ENDSEC|0|EOF|");
    rows.setDatabase(bare.get());
    EXPECT_EQ(rows.rowCount(), 0);
    rows.sort(column(LayerColumn::color), true);
    rows.setSearch(L"a*");
    EXPECT_EQ(rows.cell(0, 1).text, L"");
    EXPECT_EQ(rows.rowOfKey(rows.rowKey(7)), -1);
    EXPECT_EQ(rows.row(-1).name, L"");

    const auto old = layerDrawing::fromTags("0|SECTION|2|HEADER|9|$ACADVER|1|AC1009|0|ENDSEC|0|SECTION|2|"
                                            "TABLES|0|TABLE|2|LAYER|70|2|0|LAYER|2|0|70|0|62|7|"
                                            "6|CONTINUOUS|0|LAYER|2|WALL|70|4|62|-3|6|CONTINUOUS|0|LAYER|2|*"
                                            "HIDDEN|70|0|62|7|6|CONTINUOUS|0|ENDTAB|0|ENDSEC|"
                                            "0|EOF|");
    rows.setDatabase(old.get());
    rows.setSearch(L"");
    EXPECT_THAT(names(), testing::UnorderedElementsAre(L"0", L"WALL"));
    rows.setSearch(L"wal");
    EXPECT_EQ(text(0, LayerColumn::on), L"꺼짐");
    EXPECT_EQ(text(0, LayerColumn::lock), L"잠김");
    EXPECT_EQ(rows.rowOfLayer(rows.layerAt(0)), 0);
}

TEST_F(LayerRowsTest, CellsSayWhatTheyShow) {
    write(layer(L"도면층1"))->setColor(OdCmColor::byIndex(30));
    write(layer(L"도면층1"))->setTransparency(OdCmTransparency::byPercent(35));
    const auto cell = rows.cell(1, column(LayerColumn::on));
    EXPECT_TRUE(cell.pictureOnly && cell.picture);
    EXPECT_EQ(cell.text, L"켜짐");
    EXPECT_NE(cell.picture, rows.cell(1, column(LayerColumn::freeze)).picture);
    EXPECT_EQ(text(1, LayerColumn::color), L"Color_30");
    EXPECT_EQ(text(0, LayerColumn::color), L"Color_7");
    EXPECT_NE(rows.cell(0, column(LayerColumn::color)).hint, L"") << "what that is called";
    EXPECT_EQ(text(1, LayerColumn::transparency), L"35");
    EXPECT_EQ(text(0, LayerColumn::status), L"현재 도면층");
    EXPECT_TRUE(rows.cell(1, column(LayerColumn::linetype)).picture);
    // Index 7 shows against the drawing area.
    const auto swatch = rows.cell(0, column(LayerColumn::color)).picture;
    ASSERT_EQ(host.sysvarManager()->setText(L"BKGCOLOR", L"255,255,255", nullptr), Tavo::eOk);
    LayerRows onWhite;
    onWhite.setDatabase(database.get());
    EXPECT_NE(onWhite.cell(0, column(LayerColumn::color)).picture, swatch);
}

TEST(LayerIconLists, ChooseAnIconByItsNumber) {
    const CLayerIconListItem item(
        LayerColumn::status,
        {{3, L"three", tv::ui::colorPicture(3)}, {12, L"twelve", tv::ui::colorPicture(12)}},
        [](const T_LAYER_DATA& layer) { return layer.on ? 12 : 3; });
    const T_LAYER_DATA layer;
    const auto entries = item.CreateCombo();
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[1].text, L"12");
    EXPECT_EQ(item.cell(layer).picture, entries[1].picture);
    EXPECT_EQ(item.cell(layer).hint, L"twelve");
    EXPECT_EQ(item.OnSelectCombo(L"3")->number, 3);
    EXPECT_EQ(item.OnSelectCombo(L"03"), nullptr);
}
