#include "kxgui/layers/LayerWriter.h"
#include "kxgui/layers/LayerNameRules.h"
#include "kxgui/layers/LayerRecord.h"
#include "platform/drawing/LayerFilters.h"
#include "platform/drawing/OdDbViewport.h"
#include "tests/layers/LayerDrawing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace kx::layers;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

LayerUpdate updateOf(EN_LAYER_UPDATE kind, OdDbObjectId layer, unsigned fields = kAllLayerFields) {
    LayerUpdate update;
    update.kind = kind;
    update.row = readLayer(layer, {});
    update.fields = fields;
    return update;
}

} // namespace

TEST(LayerWriter, ABatchIsOneStepAndNothingOfItStaysWhenAnyPartIsRefused) {
    const auto database = layerDrawing::withLayers({L"A", L"B"});
    const OdDbObjectId a = database->layers()->getAt(L"A"), b = database->layers()->getAt(L"B");
    const std::string before = database->bytes();
    const OdString last = database->undoName();

    std::vector<LayerUpdate> updates{updateOf(kLayerProperty, a), updateOf(kLayerRename, b)};
    updates[0].row.frozen = true;
    updates[1].row.name = L"A";
    EXPECT_EQ(writeLayers(*database, updates), Tavo::eDuplicate);
    EXPECT_EQ(database->bytes(), before);
    EXPECT_EQ(database->undoName(), last);

    updates[1].row.name = L"C";
    EXPECT_EQ(writeLayers(*database, updates), Tavo::eOk);
    EXPECT_EQ(database->undoName(), L"_LAYER");
    EXPECT_TRUE(readLayer(a, {}).frozen);
    EXPECT_EQ(readLayer(b, {}).name, L"C");
    EXPECT_TRUE(database->undo());
    EXPECT_EQ(database->bytes(), before);

    // Only the fields asked for, and only where they differ.
    updates = {updateOf(kLayerProperty, a, kFieldLocked)};
    updates[0].row.frozen = true;
    EXPECT_EQ(writeLayers(*database, updates), Tavo::eOk);
    EXPECT_EQ(database->bytes(), before);
    database->setReadOnly(true);
    EXPECT_EQ(writeLayers(*database, updates), Tavo::eReadOnly);
}

TEST(LayerWriter, OldVersionsRefuseOnlyWhatIsAskedOfThem) {
    const auto database = OdDbDatabase::create(OdDb::DxfVersion::kR12);
    std::vector<LayerUpdate> updates(1);
    updates[0].kind = kLayerNew;
    updates[0].row.name = L"WALLS";
    updates[0].row.color = OdCmColor::byIndex(3);
    EXPECT_EQ(writeLayers(*database, updates), Tavo::eOk);
    const OdDbObjectId made = updates[0].row.id;
    EXPECT_EQ(readLayer(made, {}).color, OdCmColor::byIndex(3));
    const std::string before = database->bytes();
    updates[0].row.name = L"GLASS";
    updates[0].row.transparency = 50;
    EXPECT_EQ(writeLayers(*database, updates), Tavo::eNotHandled);
    EXPECT_EQ(database->bytes(), before) << "the layer isn't made either";
}

TEST(LayerWriter, DeletedLayersLeaveViewportsAndGroups) {
    const auto database = layerDrawing::fromTags(
        "0|SECTION|2|HEADER|9|$ACADVER|1|AC1032|9|$HANDSEED|5|100|0|ENDSEC|0|SECTION|2|TABLES|0|TABLE|2|LAYER|"
        "5|2|"
        "70|2|0|LAYER|5|3|100|AcDbSymbolTableRecord|100|AcDbLayerTableRecord|2|0|70|0|62|7|6|Continuous|"
        "0|LAYER|5|4|100|AcDbSymbolTableRecord|100|AcDbLayerTableRecord|2|Wall|70|0|62|7|6|Continuous|"
        "0|LAYER|5|6|100|AcDbSymbolTableRecord|100|AcDbLayerTableRecord|2|Door|70|0|62|7|6|Continuous|"
        "0|ENDTAB|0|ENDSEC|0|SECTION|2|ENTITIES|0|VIEWPORT|5|20|330|1F|100|AcDbEntity|67|1|8|0|100|"
        "AcDbViewport|10|0.0|20|0.0|30|0.0|40|1.0|41|1.0|69|2|0|ENDSEC|0|EOF|");
    ASSERT_TRUE(database);
    const OdDbObjectId wall = database->layers()->getAt(L"Wall"), door = database->layers()->getAt(L"Door");
    const auto viewport = [&] { return database->getOdDbObjectId(0x20).open<OdDbViewport>(OdDb::kForWrite); };
    const std::vector<OdDbObjectId> both{wall, door};
    ASSERT_EQ(viewport()->freezeLayersInViewport(both), Tavo::eOk);
    tv::dwg::LayerFilter inner, outer;
    inner.kind = outer.kind = tv::dwg::LayerFilter::kGroup;
    inner.name = L"inner";
    outer.name = L"outer";
    inner.layers = outer.layers = both;
    outer.nested = {inner};
    ASSERT_FALSE(tv::dwg::addLayerFilter(*database, outer).isNull());
    const std::string before = database->bytes();

    std::vector<LayerUpdate> updates{updateOf(kLayerDelete, wall)};
    ASSERT_EQ(writeLayers(*database, updates), Tavo::eOk);
    EXPECT_THAT(viewport()->frozenLayers(), ElementsAre(door));
    const auto filters = tv::dwg::layerFilters(*database);
    EXPECT_THAT(filters.at(0).layers, ElementsAre(door));
    EXPECT_EQ(filters.at(0).missingLayers, 0);
    EXPECT_THAT(filters.at(0).nested.at(0).layers, ElementsAre(door));
    EXPECT_TRUE(database->undo());
    EXPECT_EQ(database->bytes(), before);
}

TEST(LayerWriter, ADrawingWithoutATableGetsOneWithLayerZero) {
    const auto database = layerDrawing::fromTags("0|SECTION|2|ENTITIES|0|ENDSEC|0|EOF|");
    const std::string before = database->bytes();
    EXPECT_EQ(newLayerName(*database), L"도면층") << "no table, no number";
    std::vector<LayerUpdate> updates(1);
    updates[0].kind = kLayerNew;
    updates[0].row.name = newLayerName(*database);
    ASSERT_EQ(writeLayers(*database, updates), Tavo::eOk);
    EXPECT_TRUE(database->layers()->has(L"0") && database->layers()->has(L"도면층"));
    EXPECT_EQ(newLayerName(*database), L"도면층1");
    EXPECT_TRUE(database->undo());
    EXPECT_EQ(database->bytes(), before);
}
