#include "kxgui/layers/LayerFilterTree.h"
#include "kxgui/layers/LayerFilterEdits.h"
#include "kxgui/layers/LayerRecord.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdDbXrecord.h"
#include "platform/drawing/entities/NewEntity.h"
#include "tests/support/HeadlessTest.h"

#include <gmock/gmock.h>

using namespace kx::layers;
using testing::ElementsAre;
using testing::IsEmpty;
using Kind = LayerFilterTree::Kind;

namespace {

// Flags of external references come from files only.
struct Flags : OdDbLayerTableRecord {
    using OdDbLayerTableRecord::OdDbLayerTableRecord;
    using OdDbSymbolTableRecord::setFlag;
};

struct LayerFilters : HeadlessTest {
    OdDbDatabasePtr db = OdDbDatabase::create();
    LayerFilterTree tree;
    OdDbObjectId a = add(L"A1"), b = add(L"A2"), c = add(L"B1");

    OdDbObjectId add(const wchar_t* name) { return db->layers(OdDb::kForWrite)->add(name); }
    void SetUp() override { tree.read(*db); }
    int read(const FilterAnswer& answer) {
        EXPECT_TRUE(answer) << answer.refusal.size();
        EXPECT_EQ(db->undoName(), L"_LAYER");
        tree.read(*db);
        return tree.find(answer.record);
    }
    std::vector<std::wstring> names(int node) const {
        std::vector<std::wstring> out;
        for (const OdDbObjectId id : tree.layersOf(node))
            out.push_back(id.open<OdDbLayerTableRecord>()->getName().wstr());
        return out;
    }
    int property(const wchar_t* name, const wchar_t* expression, int parent = 0) {
        return read(addPropertyFilter(*db, tree, parent, name, expression));
    }
};

} // namespace

TEST_F(LayerFilters, NestedPropertyFiltersNarrowAndGroupsShowTheirOwn) {
    EXPECT_THAT(names(0), ElementsAre(L"0", L"A1", L"A2", L"B1"));
    const int alpha = property(L"Alpha", L"NAME==\"A*\"");
    EXPECT_EQ(parentForNew(tree, Kind::group, alpha), 0) << "no group below a property filter";
    const int second = property(L"Second", L"NAME==\"*2\" OR NAME==\"B*\"", alpha);
    EXPECT_EQ(tree.node(tree.node(second).parent).name, L"Alpha");
    EXPECT_THAT(names(second), ElementsAre(L"A2"));

    const OdDbObjectId two[] = {b, c};
    const int group = read(addGroupFilter(*db, tree, 0, newGroupFilterName(tree), two));
    EXPECT_EQ(tree.node(group).name, L"그룹 필터1");
    EXPECT_THAT(names(group), ElementsAre(L"A2", L"B1"));
    const int twos = property(L"Twos", L"NAME==\"*2\"", group);
    EXPECT_THAT(names(twos), ElementsAre(L"A2"));
    // What is added to a nested group is added above it, too.
    int inner = read(addGroupFilter(*db, tree, tree.node(twos).parent, L"Inner", {}));
    const OdDbObjectId one[] = {a};
    inner = read(addLayers(*db, tree, inner, one));
    EXPECT_THAT(names(inner), ElementsAre(L"A1"));
    EXPECT_THAT(names(tree.node(inner).parent), ElementsAre(L"A1", L"A2", L"B1"));
    EXPECT_THAT(tree.layersToIsolate(inner), ElementsAre(b, c)) << "the current layer is left alone";
}

TEST_F(LayerFilters, UseIsFoundOutOnlyForThoseWhoAsk) {
    const int used = tree.find(L"used"), plain = property(L"Plain", L"NAME==\"A*\"");
    const int asks = property(L"Idle", L"USED==\"FALSE\"");
    const OdDbObjectId point =
        tv::dwg::appendEntity(tv::dwg::EntityHome::modelSpace(*db), tv::dwg::PointGeometry{{1, 2, 3}}).id;
    point.open<OdDbEntity>(OdDb::kForWrite)->setLayer(L"B1");
    tree.matcher(plain);
    EXPECT_FALSE(c.open<OdDbLayerTableRecord>()->isInUse());
    EXPECT_THAT(names(used), ElementsAre(L"0", L"B1"));
    EXPECT_TRUE(c.open<OdDbLayerTableRecord>()->isInUse());
    EXPECT_THAT(names(asks), ElementsAre(L"A1", L"A2"));
}

TEST_F(LayerFilters, ReferencesHaveNodesOfTheirOwn) {
    for (const wchar_t* name : {L"plan|Walls", L"plan|Doors", L"plan|detail|Bolts"})
        ASSERT_EQ(Flags(add(name), OdDb::kForWrite).setFlag(16, true), Tavo::eOk);
    add(L"odd|name"); // of no reference
    tree.read(*db);
    const int plan = tree.find(L"xref:plan"), detail = tree.find(L"xref:plan|detail");
    ASSERT_GT(plan, 0);
    EXPECT_EQ(tree.node(detail).parent, plan);
    EXPECT_EQ(tree.node(detail).text, L"detail");
    EXPECT_EQ(tree.find(L"xref:odd"), -1);
    EXPECT_EQ(names(tree.find(L"xrefs")).size(), 3u);
    EXPECT_EQ(names(plan).size(), 3u);
    EXPECT_THAT(names(detail), ElementsAre(L"plan|detail|Bolts"));
}

TEST_F(LayerFilters, NamesAreCheckedAndNothingIsWrittenWhenTheyAreRefused) {
    const int own = property(L"Own", L"NAME==\"A*\"");
    const std::string before = db->bytes();
    for (const wchar_t* bad : {L"", L"  ", L"a:b", L"a`b", L"ALL", L"all used layers", L"모두", L"own"}) {
        EXPECT_FALSE(addPropertyFilter(*db, tree, 0, bad, L"").refusal.empty());
        const bool itsOwn = std::wstring_view(bad) == L"own";
        EXPECT_EQ(ValidateFilterChange(*db, tree, Kind::property, 0, own, bad).empty(), itsOwn);
    }
    EXPECT_FALSE(deleteFilter(*db, tree, 0));
    EXPECT_FALSE(renameFilter(*db, tree, tree.find(L"used"), L"x"));
    EXPECT_FALSE(addLayers(*db, tree, own, {}));
    db->setReadOnly(true);
    EXPECT_FALSE(deleteFilter(*db, tree, own));
    EXPECT_FALSE(renameFilter(*db, tree, own, L"x"));
    db->setReadOnly(false);
    EXPECT_EQ(db->bytes(), before);
    EXPECT_TRUE(renameFilter(*db, tree, own, L"OWN")) << "its own name, in other letters";

    // What would lie too deep to be read is refused rather than made and never seen.
    int deepest = own, made = 1;
    for (;; ++made) {
        const auto answer = addPropertyFilter(*db, tree, deepest, L"Own", L"");
        tree.read(*db);
        if (!answer) break;
        deepest = tree.find(answer.record);
        ASSERT_GT(deepest, 0);
    }
    EXPECT_EQ(made, tv::dwg::kDeepestLayerFilter + 1);

    const auto old = OdDbDatabase::create(OdDb::DxfVersion::kR2000);
    tree.read(*old);
    EXPECT_FALSE(addPropertyFilter(*old, tree, 0, L"New", L"").refusal.empty());
}

TEST_F(LayerFilters, EachChangeIsOneStepAndTheFilterKeepsItsKey) {
    EXPECT_EQ(newPropertyFilterName(tree), L"특성 필터1");
    int node = property(L"특성 필터1", L"NAME==\"A*\"");
    EXPECT_EQ(newPropertyFilterName(tree), L"특성 필터2");
    property(L"Nested", L"NAME==\"*2\"", node);
    const std::wstring key = tree.node(node).key;
    node = read(changePropertyFilter(*db, tree, node, L"Walls", L"NAME==\"A1\""));
    EXPECT_EQ(tree.node(node).key, key);
    EXPECT_THAT(names(node), ElementsAre(L"A1"));
    const std::string before = db->bytes();
    EXPECT_TRUE(changePropertyFilter(*db, tree, node, L" Walls ", L"NAME==\"A1\""));
    EXPECT_EQ(db->bytes(), before) << "nothing is another";

    const int group = read(convertToGroup(*db, tree, node));
    EXPECT_EQ(tree.node(group).kind, Kind::group);
    EXPECT_EQ(tree.node(group).name, L"Walls");
    EXPECT_EQ(tree.node(group).children.size(), 1u);
    EXPECT_EQ(tree.find(key), -1);
    const OdDbObjectId other[] = {c};
    read(substituteLayers(*db, tree, group, other));
    EXPECT_THAT(names(group), ElementsAre(L"B1"));
    read(removeLayers(*db, tree, group, other));
    EXPECT_THAT(names(group), IsEmpty());
    read(deleteFilter(*db, tree, group));
    EXPECT_EQ(tree.nodes().size(), 2u);
    for (int i = 0; i < 4; ++i)
        ASSERT_TRUE(db->undo());
    EXPECT_EQ(db->bytes(), before);
}

TEST_F(LayerFilters, LayersThatAreGoneAreCountedAndSurviveARename) {
    const OdDbObjectId both[] = {a, c};
    int group = read(addGroupFilter(*db, tree, 0, L"G", both));
    ASSERT_EQ(c.openObject(OdDb::kForWrite)->erase(), Tavo::eOk);
    tree.read(*db);
    group = tree.find(tree.node(group).key);
    EXPECT_EQ(tree.node(group).missingLayers, 1);
    EXPECT_FALSE(tree.node(group).hint.empty());
    EXPECT_THAT(names(group), ElementsAre(L"A1"));
    group = read(renameFilter(*db, tree, group, L"H"));
    EXPECT_EQ(tree.node(group).missingLayers, 1);
}

TEST_F(LayerFilters, TheOlderFilterBesideANewerOneIsTheSame) {
    tv::dwg::LayerFilter older;
    older.kind = tv::dwg::LayerFilter::kOld;
    older.name = L"Walls";
    older.patterns.name = L"A*";
    ASSERT_FALSE(tv::dwg::addLayerFilter(*db, older).isNull());
    tree.read(*db);
    EXPECT_EQ(tree.nodes().back().kind, Kind::old);
    EXPECT_THAT(names(2), ElementsAre(L"A1", L"A2"));
    tv::dwg::LayerFilter newer;
    newer.name = L"Walls";
    newer.expression = L"NAME==\"A*\"";
    ASSERT_FALSE(tv::dwg::addLayerFilter(*db, newer).isNull());
    tree.read(*db);
    ASSERT_EQ(tree.nodes().size(), 3u);
    const int node = read(renameFilter(*db, tree, 2, L"Beams"));
    EXPECT_EQ(tree.nodes().size(), 3u) << "both have the new name";
    read(deleteFilter(*db, tree, node));
    EXPECT_EQ(tree.nodes().size(), 2u);
}

TEST_F(LayerFilters, RecordsWithAMarkInFrontAreReadAndKeepIt) {
    const int node = property(L"Marked", L"NAME==\"A1\"");
    const auto record = tree.node(node).record.open<OdDbXrecord>(OdDb::kForWrite);
    const OdResBufPtr marked = OdResBuf::newRb(290, std::int64_t{1});
    marked->setNext(record->rbChain());
    ASSERT_EQ(record->setFromRbChain(marked.get()), Tavo::eOk);
    tree.read(*db);
    ASSERT_EQ(tree.nodes().size(), 3u);
    read(renameFilter(*db, tree, 2, L"Still"));
    EXPECT_EQ(tree.nodes().back().name, L"Still");
    EXPECT_EQ(record->rbChain()->restype(), 290);
}

TEST_F(LayerFilters, OneThatCantBeUnderstoodIsShownWithItsReason) {
    const int node = property(L"Strange", L"SIZE==\"3\"");
    EXPECT_TRUE(tree.node(node).faulty);
    EXPECT_NE(tree.node(node).hint.find(L"SIZE"), std::wstring::npos);
    EXPECT_THAT(names(node), IsEmpty());
    read(renameFilter(*db, tree, node, L"Odd"));
    EXPECT_EQ(tree.nodes().back().expression.text(), L"SIZE==\"3\"");
}
