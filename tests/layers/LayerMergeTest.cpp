#include "kxgui/layers/LayerMerge.h"

#include "platform/drawing/LayerStates.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/entities/NewEntity.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace kx::layers;
using Ids = std::vector<OdDbObjectId>;

namespace {

struct LayerMerge : testing::Test {
    OdDbDatabasePtr db = OdDbDatabase::create();
    OdDbObjectId add(const wchar_t* name) { return db->layers(OdDb::kForWrite)->add(name); }
    OdDbObjectId pointOn(OdDbObjectId layer) {
        const OdDbObjectId id =
            tv::dwg::appendEntity(tv::dwg::EntityHome::modelSpace(*db), tv::dwg::PointGeometry{{1, 2, 3}}).id;
        id.open<OdDbEntity>(OdDb::kForWrite)->setLayer(db->layers()->nameOf(layer).view());
        return id;
    }
    OdDbObjectId zero = db->layers()->getAt(L"0");
    OdDbObjectId a = add(L"A"), b = add(L"B"), target = add(L"T"), other = add(L"Ref|Wall");
    void SetUp() override { ASSERT_EQ(flag(other, 16), Tavo::eOk); }
    Tavo::ErrorStatus flag(OdDbObjectId layer, int bits);
};

// Flags of external references come from files only.
struct Flags : OdDbLayerTableRecord {
    using OdDbLayerTableRecord::OdDbLayerTableRecord;
    using OdDbSymbolTableRecord::setFlag;
};
Tavo::ErrorStatus LayerMerge::flag(OdDbObjectId layer, int bits) {
    return Flags(layer, OdDb::kForWrite).setFlag(bits, true);
}

} // namespace

TEST_F(LayerMerge, MovesEverythingAndErasesInOneStep) {
    const OdDbObjectId point = pointOn(a), second = pointOn(b);
    tv::dwg::LayerState state = tv::dwg::currentLayerState(*db);
    state.name = L"Seen";
    state.currentLayer = L"B";
    ASSERT_EQ(tv::dwg::writeLayerState(*db, state), Tavo::eOk);
    const std::string before = db->bytes();

    const Ids merged = {a, b, a};
    const MergeResult result = mergeLayers(*db, merged, target);
    ASSERT_FALSE(result.problem) << result.problem.sentence.size();
    EXPECT_EQ(result.layers, 2u);
    EXPECT_EQ(result.edited, 3u) << "two points and the state";
    EXPECT_EQ(point.open<OdDbEntity>()->layer(), L"T");
    EXPECT_EQ(second.open<OdDbEntity>()->layer(), L"T");
    EXPECT_TRUE(a.isErased() && b.isErased());
    const auto saved = tv::dwg::readLayerState(*db, L"Seen");
    ASSERT_TRUE(saved);
    EXPECT_EQ(saved->currentLayer, L"T");
    EXPECT_EQ(saved->layers.size(), state.layers.size() - 2);
    EXPECT_EQ(db->undoName(), L"_LAYER");
    EXPECT_TRUE(db->undo());
    EXPECT_TRUE(db->bytes() == before);
}

TEST_F(LayerMerge, WhatMustStayIsRefusedAndNothingIsChanged) {
    ASSERT_FALSE(db->setHeaderVar(L"CLAYER", tv::dwg::HeaderValue::text(L"B")));
    const std::string before = db->bytes();
    const auto refused = [&](const Ids& layers, OdDbObjectId to) {
        const MergeResult result = mergeLayers(*db, layers, to);
        EXPECT_TRUE(db->bytes() == before);
        EXPECT_EQ(result.layers, 0u);
        return result.problem.sentence;
    };
    EXPECT_EQ(refused({a, zero}, target), L"\n\"0\" 도면층을 병합할 수 없습니다.");
    EXPECT_EQ(refused({a, b}, target), L"\n현재 도면층을 병합할 수 없습니다.");
    EXPECT_THAT(refused({other}, target), testing::HasSubstr(L"Ref|Wall"));
    EXPECT_THAT(refused({a}, other), testing::HasSubstr(L"Ref|Wall"));
    EXPECT_THAT(refused({a, target}, target), testing::HasSubstr(L"\"T\""));
    EXPECT_FALSE(refused({a}, {}).empty());
    EXPECT_FALSE(refused({}, target).empty());
    EXPECT_FALSE(refused({a}, OdDbDatabase::create()->layers()->getAt(L"0")).empty()) << "of another drawing";
    EXPECT_EQ(mergeTargets(*db, Ids{a}), (Ids{zero, b, target})) << "none that comes from elsewhere";
    EXPECT_FALSE(canMerge(*db, Ids{a}, b)) << "the current layer may take others in";
    db->setReadOnly(true);
    EXPECT_EQ(canMergeAway(*db, Ids{a}).status, Tavo::eReadOnly);
}
