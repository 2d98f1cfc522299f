#include "kxgui/layers/LayerStateCompare.h"
#include "kxgui/layers/LayerStateEdits.h"

#include "kxgui/layers/LayerRecord.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayerTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace kx::layers;
using tv::dwg::LayerState;

namespace {

struct LayerStates : testing::Test {
    OdDbDatabasePtr db = OdDbDatabase::create();
    OdDbLayerTableRecordPtr layer(const wchar_t* name) {
        const auto table = db->layers(OdDb::kForWrite);
        if (!table->has(name)) table->add(name);
        return table->getAt(name).open<OdDbLayerTableRecord>(OdDb::kForWrite);
    }
    static std::vector<std::wstring> lines(const std::vector<LayerDifference>& differences) {
        std::vector<std::wstring> out;
        for (const LayerDifference& at : differences)
            out.push_back(at.layer + L" " + std::to_wstring(static_cast<int>(at.kind)) + L" " +
                          std::to_wstring(static_cast<int>(at.column)) + L" " + at.saved + L">" + at.now);
        return out;
    }
};

} // namespace

TEST_F(LayerStates, ComparingTellsEveryDifferenceOnce) {
    layer(L"Wall");
    layer(L"Old");
    LayerState saved = tv::dwg::currentLayerState(*db);
    const auto difference = [&](int mask) {
        return lines(compareLayerStates(saved, tv::dwg::currentLayerState(*db), mask));
    };
    EXPECT_TRUE(difference(tv::dwg::kLayerEverything).empty());
    const auto wall = layer(L"WALL");
    wall->setIsOff(true);
    wall->setColor(OdCmColor::byRgb(255, 0, 128));
    wall->setLineWeight(OdDb::kLnWt050);
    wall->setTransparency(OdCmTransparency::byPercent(40));
    layer(L"Old")->erase();
    layer(L"New");
    ASSERT_FALSE(db->setHeaderVar(L"CLAYER", tv::dwg::HeaderValue::text(L"New")));
    EXPECT_THAT(difference(tv::dwg::kLayerEverything),
                testing::ElementsAre(L" 3 0 0>New", L"Wall 0 2 예>아니요", L"Wall 0 5 White>#FF0080",
                                     L"Wall 0 7 기본값>0.50 mm", L"Wall 0 8 0>40", L"Old 1 1 >", L"New 2 1 >"));
    EXPECT_THAT(difference(tv::dwg::kLayerOn),
                testing::ElementsAre(L" 3 0 0>New", L"Wall 0 2 예>아니요", L"Old 1 1 >", L"New 2 1 >"));
    saved.layers.push_back(saved.layers.back());
    EXPECT_EQ(difference(tv::dwg::kLayerOn).size(), 5u) << "the missing layer is said once more, and no crash";
}

TEST_F(LayerStates, SavedRestoredRenamedAndDeletedInOneStepEach) {
    const std::string first = db->bytes();
    layer(L"Wall");
    const auto step = [&](const tv::Problem& problem) {
        EXPECT_FALSE(problem);
        EXPECT_EQ(db->undoName(), L"_LAYER");
    };
    step(saveState(*db, L"Day", L"as drawn", tv::dwg::kLayerOn));
    layer(L"Wall")->setIsOff(true);
    layer(L"Wall")->setColor(OdCmColor::byIndex(4));
    layer(L"Added");
    const std::string before = db->bytes();
    step(restoreState(*db, L"day", {tv::dwg::kLayerOn | tv::dwg::kLayerColor, true, true}));
    EXPECT_FALSE(layer(L"Wall")->isOff());
    EXPECT_EQ(layer(L"Wall")->color(), OdCmColor::byIndex(7)) << "what is asked for, not what it was saved for";
    EXPECT_TRUE(layer(L"Added")->isOff());
    EXPECT_TRUE(db->undo());
    EXPECT_TRUE(db->bytes() == before);
    step(renameState(*db, L"Day", L"DAY", L"in other letters"));
    const auto renamed = tv::dwg::readLayerState(*db, L"day");
    ASSERT_TRUE(renamed);
    EXPECT_EQ(renamed->name, L"DAY");
    EXPECT_EQ(renamed->description, L"in other letters");
    EXPECT_EQ(renamed->mask, tv::dwg::kLayerOn);
    EXPECT_EQ(renamed->layers.size(), 2u);
    step(deleteState(*db, L"DAY"));
    EXPECT_TRUE(tv::dwg::layerStateNames(*db).empty());
    while (db->undo()) {
    }
    EXPECT_TRUE(db->bytes() == first);
}

TEST_F(LayerStates, TheCurrentLayerIsNeverLeftFrozen) {
    layer(L"Wall")->setIsFrozen(true);
    ASSERT_FALSE(saveState(*db, L"Frozen", L"", tv::dwg::kLayerEverything));
    layer(L"Wall")->setIsFrozen(false);
    ASSERT_FALSE(db->setHeaderVar(L"CLAYER", tv::dwg::HeaderValue::text(L"Wall")));
    EXPECT_FALSE(restoreState(*db, L"Frozen", {tv::dwg::kLayerFrozen, false, false}));
    EXPECT_FALSE(layer(L"Wall")->isFrozen());
}

TEST_F(LayerStates, NamesThatCannotBeAreRefused) {
    ASSERT_FALSE(saveState(*db, L"Day", L"", 1));
    ASSERT_FALSE(saveState(*db, L"Night", L"", 1));
    const std::string first = db->bytes();
    EXPECT_EQ(saveState(*db, L" ", L"", 1).status, Tavo::eInvalidInput);
    EXPECT_EQ(saveState(*db, L"a\nb", L"", 1).status, Tavo::eInvalidInput);
    EXPECT_EQ(saveState(*db, std::wstring(256, L'x'), L"", 1).status, Tavo::eInvalidInput);
    EXPECT_EQ(saveState(*db, L"day", L"", 1).status, Tavo::eDuplicate);
    EXPECT_EQ(renameState(*db, L"Night", L"DAY", L"").status, Tavo::eDuplicate);
    EXPECT_EQ(renameState(*db, L"Nothing", L"x", L"").status, Tavo::eKeyNotFound);
    EXPECT_EQ(restoreState(*db, L"Nothing", {}).status, Tavo::eKeyNotFound);
    EXPECT_TRUE(db->bytes() == first);
    db->setReadOnly(true);
    EXPECT_EQ(saveState(*db, L"x", L"", 1).status, Tavo::eReadOnly);
    EXPECT_EQ(deleteState(*db, L"Day").status, Tavo::eReadOnly);
    const auto old = OdDbDatabase::create(OdDb::DxfVersion::kR12);
    EXPECT_EQ(saveState(*old, L"x", L"", 1).status, Tavo::eNotHandled);
}
