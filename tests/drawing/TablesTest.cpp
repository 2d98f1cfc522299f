#include "tests/drawing/Drawings.h"

#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdDbStyleTables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace drawings;
using OdDb::DxfVersion;

namespace {

// The lines of `after` that `before` doesn't have in that place, when both have as many.
std::vector<std::string> changedLines(const std::string& before, const std::string& after) {
    const auto a = split(before);
    const auto b = split(after);
    std::vector<std::string> out;
    if (a.size() != b.size()) return {"other count of lines"};
    for (std::size_t i = 0; i < a.size(); ++i)
        if (a[i] != b[i]) out.push_back(b[i]);
    return out;
}

const char* const kLayered =
    "0|SECTION|2|HEADER|9|$ACADVER|1|AC1018|9|$HANDSEED|5|20|0|ENDSEC|0|SECTION|2|TABLES|"
    "0|TABLE|2|LAYER|5|2|100|AcDbSymbolTable|70|2|"
    "0|LAYER|5|10|330|2|100|AcDbSymbolTableRecord|100|AcDbLayerTableRecord|2|0|70|0|62|7|6|CONTINUOUS|"
    "0|LAYER|5|11|330|2|100|AcDbSymbolTableRecord|100|AcDbLayerTableRecord|2|Wall|70|4|62|-3|"
    "420|1193046|6|DASHED|290|0|370|25|"
    "1001|AcAecLayerStandard|1000||1000|outer walls|0|ENDTAB|"
    "0|TABLE|2|LTYPE|70|1|0|LTYPE|2|Dashed|70|0|3|_ _|72|65|73|2|40|3.0|49|2.0|49|-1.0|0|ENDTAB|"
    "0|ENDSEC|0|EOF";

} // namespace

TEST(Tables, LayersReadAndChangeTheirOwnLines) {
    const auto db = openText(lines(kLayered));
    const std::string first = db->bytes();
    const auto layers = db->layers(OdDb::kForWrite);
    ASSERT_TRUE(layers);
    EXPECT_EQ(layers->size(), 2u);
    const auto wall = layers->getAt(L"WALL").open<OdDbLayerTableRecord>(OdDb::kForWrite);
    ASSERT_TRUE(wall);
    EXPECT_EQ(wall->handle().text(), L"11");
    EXPECT_EQ(wall->ownerId(), layers->objectId()) << "by the handle of the table";
    EXPECT_TRUE(wall->isOff() && wall->isLocked() && !wall->isFrozen() && !wall->isPlottable());
    EXPECT_EQ(wall->color(), OdCmColor::byRgb(0x12, 0x34, 0x56));
    EXPECT_EQ(wall->lineWeight(), OdDb::kLnWt025);
    EXPECT_EQ(wall->description(), L"outer walls");
    const auto dashed = wall->linetypeObjectId().open<OdDbLinetypeTableRecord>();
    ASSERT_TRUE(dashed);
    EXPECT_EQ(dashed->dashes(), (std::vector<double>{2, -1}));

    EXPECT_EQ(wall->setIsFrozen(true), Tavo::eOk);
    EXPECT_THAT(changedLines(first, db->bytes()), testing::ElementsAre("5"));
    EXPECT_EQ(wall->setIsOff(false), Tavo::eOk);
    EXPECT_EQ(wall->setLineWeight(OdDb::kLnWt211), Tavo::eOk);
    EXPECT_EQ(wall->setLineWeight(static_cast<OdDb::LineWeight>(26)), Tavo::eOutOfRange);
    EXPECT_THAT(changedLines(first, db->bytes()), testing::ElementsAre("5", "3", "211"));
    EXPECT_EQ(wall->setColor(OdCmColor::byIndex(30)), Tavo::eOk);
    EXPECT_FALSE(wall->find(420));
    EXPECT_EQ(wall->color().colorIndex(), 30);
    EXPECT_EQ(layers->getAt(L"0").open<OdDbLayerTableRecord>()->setIsOff(true), Tavo::eNotOpenForWrite);
    while (db->undo()) {
    }
    EXPECT_EQ(db->bytes(), first);
    EXPECT_EQ(wall->color(), OdCmColor::byRgb(0x12, 0x34, 0x56));
}

TEST(Tables, RecordsAreAddedRenamedAndErased) {
    const auto db = openText(lines(kLayered));
    const std::string first = db->bytes();
    const auto layers = db->layers(OdDb::kForWrite);
    const OdDbObjectId added = layers->add(L"벽");
    ASSERT_FALSE(added.isNull());
    EXPECT_EQ(added.handle().text(), L"20");
    EXPECT_EQ(db->headerVar(L"HANDSEED")->asText(), OdString(L"21"));
    EXPECT_EQ(layers->getAt(L"벽"), added);
    EXPECT_TRUE(layers->add(L"wall").isNull()) << "the name exists";
    const auto record = added.open<OdDbLayerTableRecord>(OdDb::kForWrite);
    EXPECT_EQ(record->setName(L"Wall"), Tavo::eDuplicate);
    EXPECT_EQ(record->setName(L"Door"), Tavo::eOk);
    EXPECT_FALSE(layers->has(L"벽"));
    EXPECT_EQ(layers->getAt(L"door"), added);
    // What was written reads back the same.
    const auto again = openText(db->bytes());
    EXPECT_FALSE(again->damaged());
    EXPECT_EQ(again->layers()->getAt(L"DOOR").handle().text(), L"20");
    EXPECT_EQ(record->erase(), Tavo::eOk);
    EXPECT_TRUE(added.isErased());
    EXPECT_FALSE(added.openObject());
    EXPECT_FALSE(layers->has(L"Door"));
    while (db->undo()) {
    }
    EXPECT_EQ(db->bytes(), first);
    EXPECT_FALSE(layers->has(L"Door"));
    while (db->redo()) {
    }
    EXPECT_TRUE(added.isErased());
    EXPECT_TRUE(db->undo());
    EXPECT_EQ(layers->getAt(L"Door"), added);
}

TEST(Tables, HandlesStayUniqueWhenTheSeedLies) {
    for (const char* seed : {"1", "11", "FFFFFFFFFFFFFFFF"}) {
        std::string bytes = lines(kLayered);
        bytes.replace(bytes.find("\n5\n20\n"), 6, "\n5\n" + std::string(seed) + "\n");
        const auto db = openText(bytes);
        const auto layers = db->layers(OdDb::kForWrite);
        const OdDbHandle a = layers->add(L"a").handle();
        const OdDbHandle b = layers->add(L"b").handle();
        EXPECT_FALSE(a.isNull());
        EXPECT_NE(a, b);
        EXPECT_EQ(db->getOdDbObjectId(a), layers->getAt(L"a"));
        EXPECT_EQ(db->getOdDbObjectId(0x11), layers->getAt(L"Wall"));
    }
}

TEST(Tables, OldVersionsRefuseWhatTheyCannotHold) {
    const auto db = OdDbDatabase::create(DxfVersion::kR12);
    const std::string first = db->bytes();
    const auto layer = db->layers()->getAt(L"0").open<OdDbLayerTableRecord>(OdDb::kForWrite);
    EXPECT_EQ(layer->setColor(OdCmColor::byRgb(1, 2, 3)), Tavo::eNotHandled);
    EXPECT_EQ(layer->setLineWeight(OdDb::kLnWt025), Tavo::eNotHandled);
    EXPECT_EQ(layer->setIsPlottable(false), Tavo::eNotHandled);
    EXPECT_EQ(layer->setColor(OdCmColor()), Tavo::eInvalidInput);
    EXPECT_EQ(db->bytes(), first);
    EXPECT_TRUE(db->layers(OdDb::kForWrite)->add(L"Plan").handle().isNull());
}

TEST(Tables, NewDrawingsHaveWhatTheirVersionNeeds) {
    const auto db = OdDbDatabase::create();
    EXPECT_EQ(db->versionText(), L"AC1032");
    for (const OdDbObjectId id : {db->getLayerTableId(), db->getLinetypeTableId(), db->getTextStyleTableId(),
                                  db->getDimStyleTableId(), db->getBlockTableId(), db->getRegAppTableId(),
                                  db->getViewTableId(), db->getViewportTableId(), db->getUcsTableId()})
        EXPECT_TRUE(id.open<OdDbSymbolTable>());
    const auto blocks = db->getBlockTableId().open<OdDbBlockTable>();
    const auto model = blocks->getModelSpaceId().open<OdDbBlockTableRecord>();
    ASSERT_TRUE(model);
    EXPECT_TRUE(model->isLayout());
    EXPECT_TRUE(model->entities().empty());
    // Every handle the drawing refers to exists, and none exists twice.
    std::vector<std::uint64_t> handles;
    for (OdDbObjectId id = db->firstObject(); !id.isNull(); id = db->nextObject(id)) {
        handles.push_back(id.handle().value());
        auto tags = id.openObject()->tags();
        for (tv::dwg::Tag tag; tags.next(tag);)
            if ((tag.code >= 330 && tag.code < 370) || tag.code == 390) {
                const auto to = OdDbHandle::fromAscii(tag.value);
                ASSERT_TRUE(to);
                EXPECT_TRUE(to->isNull() || !db->getOdDbObjectId(*to).isNull()) << to->ascii();
            }
    }
    std::sort(handles.begin(), handles.end());
    EXPECT_EQ(std::adjacent_find(handles.begin(), handles.end()), handles.end());
    EXPECT_LT(handles.back(), std::get<OdDbHandle>(db->headerVar(L"HANDSEED")->value).value());

    const auto root = db->getNamedObjectsDictionaryId().open<OdDbDictionary>();
    ASSERT_TRUE(root);
    const auto styles = root->getAt(L"acad_plotstylename").open<OdDbDictionary>(OdDb::kForWrite);
    ASSERT_TRUE(styles);
    EXPECT_EQ(styles->getAt(L"NORMAL"), styles->defaultId());
    const std::string first = db->bytes();
    EXPECT_EQ(styles->setAt(L"Bold", styles->defaultId()), Tavo::eOk);
    EXPECT_EQ(styles->entries().size(), 2u);
    EXPECT_EQ(styles->defaultId(), styles->getAt(L"bold"));
    EXPECT_EQ(styles->remove(L"Bold"), Tavo::eOk);
    EXPECT_EQ(db->bytes(), first);
}

TEST(Tables, ExtendedDataIsReadReplacedAndTakenAway) {
    const auto db = openText(lines(kLayered));
    const std::string first = db->bytes();
    const auto wall = db->layers()->getAt(L"Wall").open<OdDbLayerTableRecord>(OdDb::kForWrite);
    auto chain = OdResBuf::newRb(OdResBuf::kDxfRegAppName, OdString(L"KX"));
    chain->append(OdResBuf::newRb(OdResBuf::kDxfXdAsciiString, OdString(L"old")));
    ASSERT_EQ(wall->setXData(chain.get()), Tavo::eOk);
    chain->setNext(nullptr);
    chain->append(OdResBuf::newRb(OdResBuf::kDxfXdXCoord, OdGePoint3d{1, 2.5, -3}));
    chain->append(OdResBuf::newRb(OdResBuf::kDxfXdInteger16, std::int64_t{392}));
    chain->append(OdResBuf::newRb(OdResBuf::kDxfXdBinaryChunk, tv::dwg::Binary{0, 0xAB}));
    ASSERT_EQ(wall->setXData(chain.get()), Tavo::eOk);
    const OdResBufPtr back = wall->xData(L"kx");
    ASSERT_TRUE(back && back->next());
    EXPECT_EQ(back->next()->getPoint3d(), (OdGePoint3d{1, 2.5, -3}));
    EXPECT_EQ(back->next()->next()->getInt16(), 392);
    EXPECT_EQ(back->last().getBinary(), (tv::dwg::Binary{0, 0xAB}));
    EXPECT_EQ(wall->description(), L"outer walls");
    EXPECT_EQ(wall->xData(L"")->getString(), L"AcAecLayerStandard");

    chain->setNext(OdResBuf::newRb(OdResBuf::kDxfXdInteger16, std::int64_t{99999}));
    EXPECT_EQ(wall->setXData(chain.get()), Tavo::eWrongType);
    EXPECT_EQ(wall->xData(L"KX")->next()->getPoint3d().y, 2.5) << "a refused chain changes nothing";
    chain->setNext(nullptr);
    EXPECT_EQ(wall->setXData(chain.get()), Tavo::eOk);
    EXPECT_EQ(db->bytes(), first);
}
