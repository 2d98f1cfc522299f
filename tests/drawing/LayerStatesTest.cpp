#include "tests/drawing/Drawings.h"

#include "platform/drawing/LayerFilters.h"
#include "platform/drawing/LayerStates.h"
#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdDbStyleTables.h"
#include "platform/drawing/OdDbXrecord.h"
#include "platform/drawing/VersionLimits.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace drawings;
using namespace tv::dwg;
using OdDb::DxfVersion;

namespace {

OdDbLayerTableRecordPtr layerOf(OdDbDatabase& db, std::wstring_view name) {
    return db.layers()->getAt(name).open<OdDbLayerTableRecord>(OdDb::kForWrite);
}

OdDbDatabasePtr withLayers(DxfVersion version = DxfVersion::kR2018) {
    const auto db = OdDbDatabase::create(version);
    for (const wchar_t* name : {L"Wall", L"Door"})
        db->layers(OdDb::kForWrite)->add(name);
    return db;
}

void undoTo(OdDbDatabase& db, const std::string& bytes) {
    while (db.bytes() != bytes && db.undo()) {
    }
}

} // namespace

TEST(Refused, WhatAnOldDrawingCannotHoldIsToldOnce) {
    struct Listener : OdDbDatabaseReactor {
        std::vector<OdDb::Feature> told;
        void featureRefused(OdDbDatabase&, OdDb::Feature feature) override { told.push_back(feature); }
    } listener;
    const auto db = OdDbDatabase::create(OdDb::DxfVersion::kR12);
    const std::string first = db->bytes();
    db->addReactor(&listener);
    const auto blocks = db->getTableId(L"BLOCK_RECORD").open<OdDbBlockTable>(OdDb::kForWrite);
    const auto style = db->getDimStyleTableId().open<OdDbSymbolTable>()->first().open<OdDbDimStyleTableRecord>(
        OdDb::kForWrite);
    const auto texts = db->getTextStyleTableId().open<OdDbSymbolTable>()->first();
    const auto linetype = db->getLinetypeTableId().open<OdDbSymbolTable>()->first();
    ASSERT_TRUE(blocks && style);
    OdDbLinetypeTableRecord::Element word;
    word.kind = OdDbLinetypeTableRecord::Element::kText;
    LayerFilter filter;
    filter.name = L"Red";
    for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(blocks->add(std::wstring(32, L'x')).isNull());
        EXPECT_EQ(style->setVariable(L"DIMFXL", 2.0), Tavo::eNotHandled);
        EXPECT_EQ(linetype.open<OdDbLinetypeTableRecord>(OdDb::kForWrite)->setPattern({&word, 1}),
                  Tavo::eNotHandled);
        EXPECT_EQ(texts.open<OdDbTextStyleTableRecord>(OdDb::kForWrite)->setAnnotative(true),
                  Tavo::eNotHandled);
        EXPECT_TRUE(addLayerFilter(*db, filter).isNull());
    }
    EXPECT_THAT(listener.told,
                testing::ElementsAre(OdDb::Feature::kLongNames, OdDb::Feature::kDimVariables,
                                     OdDb::Feature::kComplexLinetypes, OdDb::Feature::kAnnotativeScales,
                                     OdDb::Feature::kLayerFilters));
    EXPECT_EQ(db->bytes(), first);
    db->removeReactor(&listener);
}

TEST(LayerStates, RestoreWhatWasSaved) {
    const auto db = withLayers();
    const std::string first = db->bytes();
    const auto wall = layerOf(*db, L"Wall");
    wall->setColor(OdCmColor::byRgb(10, 20, 30));
    wall->setIsOff(true);
    wall->setIsLocked(true);
    wall->setIsPlottable(false);
    wall->setLineWeight(OdDb::kLnWt050);
    wall->setTransparency(OdCmTransparency::byPercent(30));
    db->setHeaderVar(L"CLAYER", HeaderValue::text(L"Door"));
    LayerState state = currentLayerState(*db);
    state.name = L"As built";
    state.description = L"of the survey";
    state.others.emplace_back(303, OdString(L"somebody's"));
    ASSERT_EQ(writeLayerState(*db, state), Tavo::eOk);
    const std::string saved = db->bytes();
    // The bits of off and locked are set for what is so, that of plotting for what is plotted.
    std::vector<std::int64_t> flags;
    const auto names = db->layers()->extensionDictionary().open<OdDbDictionary>();
    const auto record =
        names->getAt(L"ACAD_LAYERSTATES").open<OdDbDictionary>()->getAt(L"As built").open<OdDbXrecord>();
    const OdResBufPtr chain = record->rbChain();
    for (const OdResBuf* value = chain.get(); value; value = value->next().get())
        if (value->restype() == 90) flags.push_back(value->getInt32());
    EXPECT_THAT(flags, testing::ElementsAre(8, 1 + 4, 8));
    // What comes back from the file is what went in.
    const auto again = openText(saved);
    const auto read = readLayerState(*again, L"as BUILT");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->layers, state.layers);
    EXPECT_EQ(read->others, state.others);
    EXPECT_EQ(read->description, L"of the survey");

    wall->setColor(OdCmColor::byIndex(3));
    wall->setIsOff(false);
    wall->setIsLocked(false);
    wall->setLineWeight(OdDb::kLnWt000);
    wall->setTransparency(OdCmTransparency::byPercent(0));
    db->layers(OdDb::kForWrite)->add(L"Later");
    db->setHeaderVar(L"CLAYER", HeaderValue::text(L"0"));
    const std::string changed = db->bytes();
    EXPECT_EQ(restoreLayerState(*db, *readLayerState(*db, L"As built"), {kLayerLocked, false, false}),
              Tavo::eOk);
    EXPECT_TRUE(wall->isLocked() && !wall->isOff());
    EXPECT_EQ(restoreLayerState(*db, *readLayerState(*db, L"As built"), {kLayerEverything, true, true}),
              Tavo::eOk);
    EXPECT_EQ(currentLayerState(*db).currentLayer, L"Door");
    EXPECT_EQ(currentLayerState(*db).layers[1], state.layers[1]);
    EXPECT_TRUE(layerOf(*db, L"Later")->isOff());
    EXPECT_TRUE(db->undo() && db->undo());
    EXPECT_EQ(db->bytes(), changed) << "one step each";

    EXPECT_EQ(renameLayerState(*db, L"as built", L"Survey"), Tavo::eOk);
    EXPECT_EQ(writeLayerState(*db, state), Tavo::eOk);
    EXPECT_EQ(renameLayerState(*db, L"Survey", L"As Built"), Tavo::eDuplicate);
    EXPECT_THAT(layerStateNames(*db), testing::ElementsAre(L"Survey", L"As built"));
    EXPECT_EQ(deleteLayerState(*db, L"survey"), Tavo::eOk);
    EXPECT_FALSE(readLayerState(*db, L"Survey"));
    EXPECT_EQ(deleteLayerState(*db, L"survey"), Tavo::eKeyNotFound);
    undoTo(*db, first);
    EXPECT_EQ(db->bytes(), first);

    const auto old = withLayers(DxfVersion::kR12);
    EXPECT_EQ(writeLayerState(*old, state), Tavo::eNotHandled);
}

TEST(LayerFilters, BothKindsReadChangeAndNest) {
    const auto db = withLayers();
    const std::string first = db->bytes();
    LayerFilter group;
    group.kind = LayerFilter::kGroup;
    group.name = L"Structure";
    group.layers = {db->layers()->getAt(L"Wall"), db->layers()->getAt(L"Door")};
    LayerFilter red;
    red.name = L"Red";
    red.expression = L"COLOR==\"1\"";
    group.nested = {red};
    const OdDbObjectId id = addLayerFilter(*db, group);
    ASSERT_FALSE(id.isNull());
    LayerFilter older;
    older.kind = LayerFilter::kOld;
    older.name = L"Walls";
    older.patterns.name = L"W*";
    older.patterns.states = 3;
    ASSERT_FALSE(addLayerFilter(*db, older).isNull());
    EXPECT_TRUE(addLayerFilter(*db, older).isNull()) << "the name exists";
    EXPECT_TRUE(addLayerFilter(*db, older, id).isNull()) << "older ones don't nest";

    const auto again = openText(db->bytes());
    auto read = layerFilters(*again);
    ASSERT_EQ(read.size(), 2u);
    EXPECT_EQ(read[0].name, L"Structure");
    EXPECT_EQ(read[0].layers.size(), 2u);
    ASSERT_EQ(read[0].nested.size(), 1u);
    EXPECT_EQ(read[0].nested[0].expression, red.expression);
    EXPECT_EQ(read[1].patterns, older.patterns);

    // Somebody's value in the record outlives a change.
    const auto record = read[0].nested[0].record.open<OdDbXrecord>(OdDb::kForWrite);
    const OdResBufPtr chain = record->rbChain();
    chain->append(OdResBuf::newRb(290, std::int64_t{1}));
    record->setFromRbChain(chain.get());
    read[0].nested[0].expression = L"COLOR==\"2\"";
    EXPECT_EQ(changeLayerFilter(read[0].nested[0]), Tavo::eOk);
    read[0].layers.pop_back();
    EXPECT_EQ(changeLayerFilter(read[0]), Tavo::eOk);
    read[1].name = L"All walls";
    EXPECT_EQ(changeLayerFilter(read[1]), Tavo::eOk);
    const auto now = layerFilters(*again);
    EXPECT_EQ(now[0].layers.size(), 1u);
    EXPECT_EQ(now[0].nested[0].expression, L"COLOR==\"2\"");
    EXPECT_EQ(now[1].name, L"All walls");
    EXPECT_EQ(record->rbChain()->last().restype(), 290);

    // A nested dictionary that names its own filter again ends the walk all the same.
    const auto inner = now[0].nested[0].record;
    const auto loop = now[0].record.openObject()->extensionDictionary().open<OdDbDictionary>();
    loop->getAt(L"ACLYDICTIONARY").open<OdDbDictionary>(OdDb::kForWrite)->setAt(L"*A9", now[0].record);
    EXPECT_EQ(layerFilters(*again).size(), 2u);
    EXPECT_EQ(removeLayerFilter(now[0].record), Tavo::eOk);
    EXPECT_TRUE(inner.isErased());
    EXPECT_EQ(layerFilters(*again).size(), 1u);

    while (again->undo()) {
    }
    EXPECT_EQ(again->bytes(), db->bytes());
    undoTo(*db, first);
    EXPECT_EQ(db->bytes(), first);
}
