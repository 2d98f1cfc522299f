// Drawings without a table of block records, with a part of it, without a version, and with tables in pieces.

#include "tests/drawing/Drawings.h"

#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdDbLayout.h"
#include "platform/drawing/entities/NewEntity.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace drawings;
using namespace tv::dwg;
using testing::HasSubstr;
using testing::Not;

namespace {

// Four definitions: both spaces, one whose record is gone and one that never named any.
const char* const kDefinitions =
    "0|SECTION|2|BLOCKS|0|BLOCK|5|20|330|1F|100|AcDbEntity|8|0|100|AcDbBlockBegin|2|*Model_Space|70|0|"
    "0|ENDBLK|5|21|330|1F|100|AcDbEntity|8|0|100|AcDbBlockEnd|"
    "0|BLOCK|5|22|100|AcDbEntity|67|1|8|0|100|AcDbBlockBegin|2|*Paper_Space|70|0|"
    "0|ENDBLK|5|23|100|AcDbEntity|8|0|100|AcDbBlockEnd|"
    "0|BLOCK|5|24|330|1E|100|AcDbEntity|8|0|100|AcDbBlockBegin|2|Door|70|0|10|0.0|20|0.0|30|0.0|"
    "0|LINE|5|25|330|1E|100|AcDbEntity|8|0|100|AcDbLine|10|0.0|20|0.0|11|1.0|21|0.0|"
    "0|ENDBLK|5|26|330|1E|100|AcDbEntity|8|0|100|AcDbBlockEnd|"
    "0|BLOCK|5|27|100|AcDbEntity|8|0|100|AcDbBlockBegin|2|Cha\\U+00EEr|70|0|"
    "0|ENDBLK|5|28|102|{ACAD_REACTORS|330|20|102|}|100|AcDbEntity|8|0|100|AcDbBlockEnd|0|ENDSEC|"
    "0|SECTION|2|ENTITIES|0|LINE|5|30|330|1F|100|AcDbEntity|8|0|100|AcDbLine|10|0.0|20|0.0|11|1.0|21|0.0|"
    "0|LINE|5|31|330|1D|100|AcDbEntity|67|1|8|0|100|AcDbLine|10|0.0|20|0.0|11|1.0|21|0.0|0|ENDSEC|";
const char* const kObjects =
    "0|SECTION|2|OBJECTS|0|DICTIONARY|5|C|330|0|100|AcDbDictionary|3|ACAD_LAYOUT|350|1A|"
    "0|DICTIONARY|5|1A|330|C|100|AcDbDictionary|3|Model|350|2A|"
    "0|LAYOUT|5|2A|330|1A|100|AcDbPlotSettings|70|1024|100|AcDbLayout|1|Model|71|0|330|1F|0|ENDSEC|0|EOF";

OdDbDatabasePtr drawing(const std::string& version, const std::string& records = {}) {
    return openText(lines("0|SECTION|2|HEADER|9|$ACADVER|1|" + version + "|9|$HANDSEED|5|100|0|ENDSEC|" +
                          "0|SECTION|2|TABLES|" + records + "0|ENDSEC|" + kDefinitions + kObjects));
}

std::vector<std::wstring> namesIn(const OdDbSymbolTable& table) {
    std::vector<std::wstring> out;
    table.forEach([&](OdDbObjectId id) { out.push_back(table.nameOf(id).wstr()); });
    return out;
}

const std::vector<std::wstring> kAll = {L"*Model_Space", L"*Paper_Space", L"Door", L"Cha\u00EEr"};

} // namespace

TEST(BlockRecords, MakingTheTableRecordsEveryDefinitionInOneStep) {
    const auto db = drawing("AC1015");
    const std::string first = db->bytes();
    EXPECT_EQ(namesIn(*db->getBlockTableId().open<OdDbBlockTable>()), kAll);
    EXPECT_EQ(db->bytes(), first);

    const auto table = db->getTableId(L"BLOCK_RECORD", true).open<OdDbBlockTable>();
    ASSERT_TRUE(table);
    EXPECT_EQ(namesIn(*table), kAll);
    table->forEach([&](OdDbObjectId id) {
        const auto record = id.open<OdDbBlockTableRecord>();
        EXPECT_EQ(record->isA(), L"BLOCK_RECORD");
        EXPECT_EQ(record->ownerId(), table->objectId());
        const OdDbObjectId begin = record->blockBeginId();
        EXPECT_EQ(begin.openObject()->ownerId(), id);
        for (const OdDbObjectId entity : record->entities())
            EXPECT_EQ(entity.openObject()->ownerId(), id);
    });
    EXPECT_EQ(table->getAt(L"Door").handle(), OdDbHandle(0x1E)) << "the owner it names is back";
    const auto model = table->getModelSpaceId().open<OdDbBlockTableRecord>();
    EXPECT_EQ(model->getLayoutId().handle(), OdDbHandle(0x2A));
    EXPECT_EQ(db->getOdDbObjectId(0x2A).open<OdDbLayout>()->getBlockTableRecordId(), model->objectId());
    const std::string chair = table->getAt(L"CHA\\U+00EER").handle().ascii();
    EXPECT_THAT(db->bytes(), HasSubstr(lines("5|27|330|" + chair + "|100|AcDbEntity")));
    EXPECT_THAT(db->bytes(), HasSubstr(lines("330|20|102|}|330|" + chair + "|100|AcDbEntity")));
    EXPECT_THAT(db->bytes(), HasSubstr(lines("2|Cha\\U+00EEr|340|0")));
    EXPECT_TRUE(db->undo());
    EXPECT_FALSE(db->hasUndo());
    EXPECT_EQ(db->bytes(), first);

    // R13 and R14 note no owners, R12 has no such table.
    const auto r14 = drawing("AC1014");
    const std::string before = r14->bytes();
    r14->getTableId(L"BLOCK_RECORD", true);
    EXPECT_EQ(r14->bytes().substr(r14->bytes().find("BLOCKS")), before.substr(before.find("BLOCKS")));
    EXPECT_EQ(drawing("AC1009")->getTableId(L"BLOCK_RECORD", true).openObject()->isA(), L"SECTION");
}

TEST(BlockRecords, NewBlocksAndWhatOnlyRecordsKeepMakeThem) {
    const auto db = drawing("AC1032");
    const std::string first = db->bytes();
    const auto definitions = db->getBlockTableId().open<OdDbBlockTable>(OdDb::kForWrite);
    EXPECT_TRUE(definitions->add(L"DO\\U+004FR").isNull()) << "it is there under its own name";
    EXPECT_EQ(db->bytes(), first);
    const OdDbObjectId added = definitions->add(L"Window");
    auto all = kAll;
    all.push_back(L"Window");
    EXPECT_EQ(namesIn(*db->getBlockTableId().open<OdDbBlockTable>()), all);
    EXPECT_EQ(added.open<OdDbBlockTableRecord>()->blockBeginId().openObject()->ownerId(), added);
    EXPECT_TRUE(db->undo());
    EXPECT_EQ(db->bytes(), first);

    // Some records only: the other definitions are listed behind them and get theirs when something needs it.
    const auto part =
        drawing("AC1032", "0|TABLE|2|BLOCK_RECORD|5|1|330|0|100|AcDbSymbolTable|70|1|0|BLOCK_RECORD|"
                          "5|1E|330|1|100|AcDbSymbolTableRecord|100|AcDbBlockTableRecord|2|Door|"
                          "340|0|0|ENDTAB|");
    const std::string bytes = part->bytes();
    const auto table = part->getBlockTableId().open<OdDbBlockTable>(OdDb::kForWrite);
    EXPECT_EQ(namesIn(*table), (std::vector<std::wstring>{kAll[2], kAll[0], kAll[1], kAll[3]}));
    EXPECT_TRUE(table->add(L"*MODEL_SPACE").isNull());
    const auto chair = table->getAt(kAll[3]).open<OdDbBlockTableRecord>(OdDb::kForWrite);
    EXPECT_EQ(chair->setExplodable(true), Tavo::eOk) << "it is already";
    EXPECT_EQ(part->bytes(), bytes);
    EXPECT_EQ(chair->setExplodable(false), Tavo::eOk);
    EXPECT_EQ(chair->setBlockInsertUnits(4), Tavo::eOk);
    EXPECT_FALSE(chair->explodable());
    EXPECT_EQ(table->getAt(kAll[3]).open<OdDbBlockTableRecord>()->blockInsertUnits(), 4);
    EXPECT_EQ(table->getAt(kAll[3]).openObject()->isA(), L"BLOCK_RECORD");
    EXPECT_EQ(chair->setName(L"Door"), Tavo::eDuplicate);
    EXPECT_EQ(chair->setName(L"Stool"), Tavo::eOk);
    EXPECT_EQ(namesIn(*table), (std::vector<std::wstring>{kAll[2], L"Stool", kAll[0], kAll[1]}));
    EXPECT_EQ(chair->erase(), Tavo::eOk);
    EXPECT_FALSE(table->has(L"Stool"));
    while (part->undo())
        ;
    EXPECT_EQ(part->bytes(), bytes);
}

TEST(BlockRecords, TablesOfOneNameAreSeenAsOne) {
    const std::string layers =
        "0|TABLE|2|LAYER|70|1|0|LAYER|2|0|70|0|62|7|6|CONTINUOUS|0|LAYER|2|A|70|0|62|1|"
        "6|CONTINUOUS|0|ENDTAB|0|TABLE|2|STYLE|70|0|0|ENDTAB|0|TABLE|2|LAYER|70|1|0|LAYER|"
        "2|B|70|0|62|2|6|CONTINUOUS|0|LAYER|2|A|70|0|62|3|6|CONTINUOUS|0|ENDTAB|";
    const auto db = drawing("AC1009", layers);
    const auto table = db->layers(OdDb::kForWrite);
    EXPECT_EQ(namesIn(*table), (std::vector<std::wstring>{L"0", L"A", L"B", L"A"}));
    const auto b = table->getAt(L"b").open<OdDbLayerTableRecord>(OdDb::kForWrite);
    ASSERT_TRUE(b);
    EXPECT_TRUE(table->add(L"B").isNull());
    EXPECT_EQ(b->setName(L"a"), Tavo::eDuplicate);
    EXPECT_EQ(table->getAt(L"A").openObject()->integerAt(62), 1);
    EXPECT_EQ(b->setName(L"C"), Tavo::eOk);
    EXPECT_TRUE(table->has(L"C") && !table->has(L"B"));
    EXPECT_EQ(table->getAt(L"A").openObject(OdDb::kForWrite)->erase(), Tavo::eOk);
    EXPECT_EQ(table->getAt(L"A").openObject()->integerAt(62), 3) << "the one it hid";
    EXPECT_EQ(table->next(table->add(L"D")), table->getAt(L"C")) << "new ones stand in the first";
}

TEST(BlockRecords, WithoutAVersionTheFileItselfShowsHowNewThingsLook) {
    const std::string plain =
        "0|SECTION|2|TABLES|0|TABLE|2|LAYER|70|1|0|LAYER|2|0|70|0|62|7|6|CONTINUOUS|0|ENDTAB|"
        "0|ENDSEC|0|SECTION|2|ENTITIES|0|POINT|5|7|8|0|10|0.0|20|0.0|0|ENDSEC|0|EOF";
    const auto old = openText(lines(plain));
    EXPECT_EQ(old->version(), OdDb::DxfVersion::kUnknown);
    EXPECT_EQ(old->form(), OdDb::DxfVersion::kR12);
    const std::string first = old->bytes();
    const auto model = EntityHome::modelSpace(*old);
    EXPECT_EQ(appendEntity(model, MTextGeometry{}).status, Tavo::eNotHandled);
    EXPECT_TRUE(old->getNamedDictionaryId(L"KX", true).isNull());
    EXPECT_EQ(old->require(OdDb::Feature::kTrueColor), Tavo::eNotHandled);
    EXPECT_EQ(old->bytes(), first);
    EXPECT_EQ(appendEntity(model, CircleGeometry{{}, 1, {0, 0, 1}}).status, Tavo::eOk);
    EXPECT_FALSE(old->layers(OdDb::kForWrite)->add(L"New").isNull());
    EXPECT_FALSE(old->getTableId(L"STYLE", true).isNull());
    EXPECT_FALSE(
        old->getTableId(L"BLOCK_RECORD", true).open<OdDbBlockTable>(OdDb::kForWrite)->add(L"B").isNull());
    EXPECT_THAT(old->bytes(), Not(HasSubstr("\n100\n")));
    EXPECT_THAT(old->bytes(), Not(HasSubstr("\n330\n")));

    // One entity with marks is enough, and so is a version nobody knows yet.
    std::string marked = plain;
    marked.insert(marked.find("|8|0|10|"), "|100|AcDbEntity");
    for (const std::string& text : {marked, "0|SECTION|2|HEADER|9|$ACADVER|1|AC1099|0|ENDSEC|" + plain}) {
        const auto modern = openText(lines(text));
        EXPECT_EQ(modern->form(), OdDb::DxfVersion::kR2018);
        EXPECT_EQ(modern->require(OdDb::Feature::kTrueColor), Tavo::eOk);
        const auto blocks = modern->getTableId(L"BLOCK_RECORD", true).open<OdDbBlockTable>(OdDb::kForWrite);
        ASSERT_TRUE(blocks);
        const OdDbObjectId space = blocks->add(L"*Model_Space");
        const auto made = appendEntity(EntityHome::modelSpace(*modern), CircleGeometry{{}, 1, {0, 0, 1}});
        EXPECT_EQ(made.id.openObject()->ownerId(), space);
        const OdDbObjectId layer = modern->layers(OdDb::kForWrite)->add(L"New");
        const OdDbObjectId dictionary = modern->getNamedDictionaryId(L"KX", true);
        for (const OdDbObjectId id : {made.id, layer, dictionary})
            EXPECT_TRUE(id.openObject()->find(100) && !id.handle().isNull());
    }
}
