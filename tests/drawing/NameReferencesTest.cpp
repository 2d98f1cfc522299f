#include "tests/drawing/Drawings.h"

#include "platform/drawing/NameReferences.h"
#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdDbStyleTables.h"
#include "platform/drawing/OdDbViewport.h"
#include "platform/drawing/UsageData.h"
#include "platform/drawing/dxf/RecordStore.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace drawings;
using tv::dwg::NamedKind;

namespace {

// A drawing where everything refers to everything, one spelling in other letters, and where the same words also
// stand where they are no references.
const char* const kBusy =
    "0|SECTION|2|HEADER|9|$ACADVER|1|AC1024|9|$CLAYER|8|Wall|9|$CELTYPE|6|DASHED|9|$TEXTSTYLE|7|notes|"
    "9|$DIMSTYLE|2|Site|9|$DIMBLK|1|Tick|9|$USERI1|70|1|9|$HANDSEED|5|90|0|ENDSEC|0|SECTION|2|TABLES|"
    "0|TABLE|2|LTYPE|5|1|100|AcDbSymbolTable|70|1|"
    "0|LTYPE|5|11|100|AcDbSymbolTableRecord|100|AcDbLinetypeTableRecord|2|Dashed|70|0|"
    "0|LTYPE|5|12|100|AcDbSymbolTableRecord|100|AcDbLinetypeTableRecord|2|Idle|70|0|0|ENDTAB|"
    "0|TABLE|2|LAYER|5|2|102|{ACAD_XDICTIONARY|360|60|102|}|100|AcDbSymbolTable|70|1|"
    "0|LAYER|5|20|100|AcDbSymbolTableRecord|100|AcDbLayerTableRecord|2|0|70|0|62|7|6|Dashed|"
    "0|LAYER|5|21|100|AcDbSymbolTableRecord|100|AcDbLayerTableRecord|2|Wall|70|0|62|7|6|Idle2|"
    "0|LAYER|5|22|100|AcDbSymbolTableRecord|100|AcDbLayerTableRecord|2|Door|70|0|62|7|6|Idle2|"
    "0|LAYER|5|23|100|AcDbSymbolTableRecord|100|AcDbLayerTableRecord|2|Idle|70|0|62|7|6|Idle2|"
    "0|LAYER|5|24|100|AcDbSymbolTableRecord|100|AcDbLayerTableRecord|2|Tagged|70|0|62|7|6|Idle2|0|ENDTAB|"
    "0|TABLE|2|STYLE|5|3|100|AcDbSymbolTable|70|1|"
    "0|STYLE|5|31|100|AcDbSymbolTableRecord|100|AcDbTextStyleTableRecord|2|Notes|70|0|"
    "0|STYLE|5|32|100|AcDbSymbolTableRecord|100|AcDbTextStyleTableRecord|2|Pointed|70|0|"
    "0|STYLE|5|33|100|AcDbSymbolTableRecord|100|AcDbTextStyleTableRecord|2|Idle|70|0|0|ENDTAB|"
    "0|TABLE|2|DIMSTYLE|5|4|100|AcDbSymbolTable|70|1|"
    "0|DIMSTYLE|105|41|100|AcDbSymbolTableRecord|100|AcDbDimStyleTableRecord|2|Site|70|0|340|32|342|53|"
    "0|DIMSTYLE|105|42|100|AcDbSymbolTableRecord|100|AcDbDimStyleTableRecord|2|Site$0|70|0|0|ENDTAB|"
    "0|TABLE|2|BLOCK_RECORD|5|5|100|AcDbSymbolTable|70|1|"
    "0|BLOCK_RECORD|5|51|100|AcDbSymbolTableRecord|100|AcDbBlockTableRecord|2|Door|"
    "0|BLOCK_RECORD|5|52|100|AcDbSymbolTableRecord|100|AcDbBlockTableRecord|2|Self|"
    "0|BLOCK_RECORD|5|53|100|AcDbSymbolTableRecord|100|AcDbBlockTableRecord|2|Tick|0|ENDTAB|0|ENDSEC|"
    "0|SECTION|2|BLOCKS|"
    "0|BLOCK|5|71|100|AcDbEntity|8|0|100|AcDbBlockBegin|2|Door|70|0|3|Door|1||"
    "0|LINE|5|72|100|AcDbEntity|8|Door|6|Dashed|100|AcDbLine|10|0|20|0|11|1|21|1|"
    "0|ENDBLK|5|73|100|AcDbEntity|8|0|100|AcDbBlockEnd|"
    "0|BLOCK|5|74|100|AcDbEntity|8|0|100|AcDbBlockBegin|2|Self|70|0|3|Self|1||"
    "0|INSERT|5|75|100|AcDbEntity|8|0|100|AcDbBlockReference|2|Self|10|0|20|0|"
    "0|ENDBLK|5|76|100|AcDbEntity|8|0|100|AcDbBlockEnd|0|ENDSEC|0|SECTION|2|ENTITIES|"
    "0|TEXT|5|81|100|AcDbEntity|8|WALL|100|AcDbText|10|0|20|0|40|1|1|Wall|7|Notes|100|AcDbText|"
    "0|HATCH|5|82|100|AcDbEntity|8|0|100|AcDbHatch|2|Door|70|1|"
    "0|INSERT|5|83|100|AcDbEntity|8|0|100|AcDbBlockReference|2|DOOR|10|0|20|0|66|1|"
    "0|ATTRIB|5|84|100|AcDbEntity|8|Wall|100|AcDbText|1|Notes|7|Notes|100|AcDbAttribute|2|DOOR|"
    "0|SEQEND|5|85|100|AcDbEntity|8|Wall|"
    "0|DIMENSION|5|86|100|AcDbEntity|8|0|100|AcDbDimension|2|Tick|3|SITE|1|Site|"
    "0|LINE|5|87|100|AcDbEntity|8|0|100|AcDbLine|10|0|20|0|11|1|21|1|1001|KX|1003|tagged|1000|Tagged|"
    "0|ENDSEC|0|SECTION|2|OBJECTS|0|DICTIONARY|5|6F|100|AcDbDictionary|"
    "0|DICTIONARY|5|60|100|AcDbDictionary|3|ACAD_LAYERSTATES|360|61|"
    "0|DICTIONARY|5|61|100|AcDbDictionary|3|Plan|360|62|"
    "0|XRECORD|5|62|100|AcDbXrecord|302|Wall|8|Wall|90|1|6|Dashed|8|Idle|90|0|6|Idle|"
    "0|XRECORD|5|63|100|AcDbXrecord|8|Wall|6|Dashed|0|ENDSEC|0|EOF";

// The group codes and values that differ, as "8 Wall", with the handle of their record before them.
std::vector<std::string> changes(const std::string& before, const std::string& after) {
    const auto a = split(before);
    const auto b = split(after);
    std::vector<std::string> out;
    if (a.size() != b.size()) return {"other count of lines"};
    std::string handle;
    for (std::size_t i = 0; i + 1 < a.size(); i += 2) {
        if (a[i] == "9") handle = a[i + 1];
        if (a[i] == "5" || a[i] == "105") handle = a[i + 1];
        if (a[i + 1] != b[i + 1]) out.push_back(handle + ": " + b[i] + " " + b[i + 1]);
    }
    return out;
}

std::vector<std::string> renaming(std::uint64_t handle, const wchar_t* name) {
    const auto db = openText(lines(kBusy));
    const std::string first = db->bytes();
    const auto record = db->getOdDbObjectId(handle).open<OdDbSymbolTableRecord>(OdDb::kForWrite);
    EXPECT_EQ(record->setName(name), Tavo::eOk);
    EXPECT_EQ(record->getName(), name);
    auto out = changes(first, db->bytes());
    const std::string renamed = db->bytes();
    EXPECT_TRUE(db->undo());
    EXPECT_FALSE(db->hasUndo()) << "one step";
    EXPECT_EQ(db->bytes(), first);
    EXPECT_TRUE(db->redo());
    EXPECT_EQ(db->bytes(), renamed);
    return out;
}

} // namespace

TEST(NameReferences, RenamingCarriesEveryReferenceAndNothingElse) {
    using testing::ElementsAre;
    EXPECT_THAT(renaming(0x21, L"벽"), ElementsAre("$CLAYER: 8 벽", "21: 2 벽", "81: 8 벽", "84: 8 벽",
                                                   "85: 8 벽", "62: 302 벽", "62: 8 벽"));
    EXPECT_THAT(renaming(0x24, L"T"), ElementsAre("24: 2 T", "87: 1003 T"));
    EXPECT_THAT(renaming(0x11, L"D"), ElementsAre("$CELTYPE: 6 D", "11: 2 D", "20: 6 D", "72: 6 D", "62: 6 D"));
    EXPECT_THAT(renaming(0x31, L"N"), ElementsAre("$TEXTSTYLE: 7 N", "31: 2 N", "81: 7 N", "84: 7 N"));
    EXPECT_THAT(renaming(0x41, L"S"), ElementsAre("$DIMSTYLE: 2 S", "41: 2 S", "42: 2 S$0", "86: 3 S"));
    EXPECT_THAT(renaming(0x51, L"Gate"), ElementsAre("51: 2 Gate", "71: 2 Gate", "71: 3 Gate", "83: 2 Gate"));
    EXPECT_THAT(renaming(0x53, L"_Tick"), ElementsAre("$DIMBLK: 1 _Tick", "53: 2 _Tick", "86: 2 _Tick"));
    EXPECT_THAT(renaming(0x21, L"wall"), ElementsAre("$CLAYER: 8 wall", "21: 2 wall", "81: 8 wall",
                                                     "84: 8 wall", "85: 8 wall", "62: 302 wall", "62: 8 wall"))
        << "other letters of the same name";
}

TEST(NameReferences, NamesThatCannotBeAreRefused) {
    const auto db = openText(lines(kBusy));
    const std::string first = db->bytes();
    const auto wall = db->getOdDbObjectId(0x21).open<OdDbLayerTableRecord>(OdDb::kForWrite);
    EXPECT_EQ(wall->setName(L""), Tavo::eInvalidInput);
    EXPECT_EQ(wall->setName(L"a\nb"), Tavo::eInvalidInput);
    EXPECT_EQ(wall->setName(L"door"), Tavo::eDuplicate);
    EXPECT_EQ(wall->setName(std::wstring(256, L'x')), Tavo::eNotHandled);
    EXPECT_EQ(db->getOdDbObjectId(0x21).open<OdDbLayerTableRecord>()->setName(L"x"), Tavo::eNotOpenForWrite);
    EXPECT_EQ(db->getOdDbObjectId(0x51).open<OdDbBlockTableRecord>(OdDb::kForWrite)->setName(L"SELF"),
              Tavo::eDuplicate);
    EXPECT_EQ(db->bytes(), first);
    const auto old = OdDbDatabase::create(OdDb::DxfVersion::kR12);
    EXPECT_TRUE(old->layers(OdDb::kForWrite)->add(std::wstring(32, L'x')).isNull());
    EXPECT_FALSE(old->layers(OdDb::kForWrite)->add(std::wstring(31, L'x')).isNull());
}

TEST(NameReferences, MergingPointsEverythingToTheOtherRecord) {
    const auto db = openText(lines(kBusy));
    const std::string first = db->bytes();
    const auto id = [&](std::uint64_t handle) { return db->getOdDbObjectId(handle); };
    EXPECT_EQ(tv::dwg::retargetReferences(id(0x21), id(0x22)), 5u);
    EXPECT_EQ(id(0x21).open<OdDbLayerTableRecord>()->getName(), L"Wall");
    EXPECT_THAT(changes(first, db->bytes()), testing::ElementsAre("$CLAYER: 8 Door", "81: 8 Door", "84: 8 Door",
                                                                  "85: 8 Door", "62: 302 Door", "62: 8 Door"));
    EXPECT_TRUE(db->undo());
    EXPECT_EQ(tv::dwg::retargetReferences(id(0x32), id(0x33)), 1u);
    EXPECT_THAT(changes(first, db->bytes()), testing::ElementsAre("41: 340 33")) << "by handle";
    EXPECT_TRUE(db->undo());
    EXPECT_EQ(tv::dwg::retargetReferences(id(0x21), id(0x11)), 0u) << "another kind";
    EXPECT_EQ(tv::dwg::retargetReferences(id(0x51), id(0x53)), 1u) << "the definition keeps its name";
    EXPECT_TRUE(db->undo());
    EXPECT_EQ(db->bytes(), first);
}

TEST(NameReferences, MergingLayersReachesTheListsOfHandles) {
    const auto db = openText(lines(
        "0|SECTION|2|HEADER|9|$ACADVER|1|AC1027|0|ENDSEC|0|SECTION|2|TABLES|"
        "0|TABLE|2|LAYER|5|2|102|{ACAD_XDICTIONARY|360|60|102|}|100|AcDbSymbolTable|70|3|"
        "0|LAYER|5|21|100|AcDbSymbolTableRecord|100|AcDbLayerTableRecord|2|Old|70|0|62|7|6|Continuous|"
        "0|LAYER|5|22|100|AcDbSymbolTableRecord|100|AcDbLayerTableRecord|2|New|70|0|62|7|6|Continuous|0|ENDTAB|"
        "0|ENDSEC|0|SECTION|2|ENTITIES|0|VIEWPORT|5|31|330|1F|100|AcDbEntity|8|0|100|AcDbViewport|69|2|331|21|"
        "0|VIEWPORT|5|32|330|1F|100|AcDbEntity|8|0|100|AcDbViewport|69|3|331|22|341|21|90|0|0|ENDSEC|"
        "0|SECTION|2|OBJECTS|0|DICTIONARY|5|60|100|AcDbDictionary|3|ACAD_LAYERSTATES|360|61|"
        "0|DICTIONARY|5|61|100|AcDbDictionary|3|One|360|62|3|Two|360|63|"
        "0|XRECORD|5|62|102|{ACAD_REACTORS|330|21|102|}|330|61|100|AcDbXrecord|302|Old|330|21|90|1|62|1|"
        "0|XRECORD|5|63|330|61|100|AcDbXrecord|330|22|90|1|62|1|330|21|90|2|62|2|1001|KX|1070|1|"
        "0|XRECORD|5|64|330|60|100|AcDbXrecord|1|AcLyLayerGroup|90|1|330|21|330|22|"
        "0|XRECORD|5|65|330|60|100|AcDbXrecord|1|Mine|330|21|0|ENDSEC|0|EOF"));
    const std::string first = db->bytes();
    const auto text = [&](std::uint64_t handle) {
        std::string out(db->store().text(db->getOdDbObjectId(handle).record()));
        for (char& c : out)
            if (c == '\n') c = '|';
        return out.substr(out.rfind("|100|") + 5);
    };
    EXPECT_EQ(tv::dwg::retargetReferences(db->getOdDbObjectId(0x21), db->getOdDbObjectId(0x22)), 5u);
    EXPECT_EQ(text(0x31), "AcDbViewport|69|2|331|22|");
    EXPECT_EQ(text(0x32), "AcDbViewport|69|3|331|22|90|0|") << "once is enough";
    EXPECT_EQ(text(0x62), "AcDbXrecord|302|New|330|22|90|1|62|1|");
    EXPECT_EQ(text(0x63), "AcDbXrecord|330|22|90|1|62|1|1001|KX|1070|1|") << "what was said of the other goes";
    EXPECT_EQ(text(0x64), "AcDbXrecord|1|AcLyLayerGroup|90|1|330|22|");
    EXPECT_EQ(text(0x65), "AcDbXrecord|1|Mine|330|21|") << "nobody knows what that means";
    EXPECT_TRUE(db->undo());
    EXPECT_EQ(db->bytes(), first);
}

TEST(NameReferences, ManyLayersBecomeOneInOnePass) {
    const auto db = openText(
        lines("0|SECTION|2|HEADER|9|$ACADVER|1|AC1027|0|ENDSEC|0|SECTION|2|TABLES|"
              "0|TABLE|2|LAYER|5|2|100|AcDbSymbolTable|70|4|"
              "0|LAYER|5|21|100|AcDbSymbolTableRecord|100|AcDbLayerTableRecord|2|A|70|0|62|7|6|Continuous|"
              "0|LAYER|5|22|100|AcDbSymbolTableRecord|100|AcDbLayerTableRecord|2|B|70|0|62|7|6|Continuous|"
              "0|LAYER|5|23|100|AcDbSymbolTableRecord|100|AcDbLayerTableRecord|2|C|70|0|62|7|6|Continuous|"
              "0|LAYER|5|24|100|AcDbSymbolTableRecord|100|AcDbLayerTableRecord|2|T|70|0|62|7|6|Continuous|"
              "0|ENDTAB|0|ENDSEC|0|SECTION|2|ENTITIES|"
              "0|POINT|5|31|330|1F|100|AcDbEntity|8|a|100|AcDbPoint|10|0|20|0|30|0|"
              "0|POINT|5|32|330|1F|100|AcDbEntity|8|T|100|AcDbPoint|10|0|20|0|30|0|"
              "0|INSERT|5|33|330|1F|100|AcDbEntity|8|B|66|1|100|AcDbBlockReference|2|X|10|0|20|0|30|0|"
              "0|ATTRIB|5|34|330|33|100|AcDbEntity|8|C|100|AcDbText|10|0|20|0|30|0|1|x|0|SEQEND|8|C|"
              "0|VIEWPORT|5|35|330|1F|100|AcDbEntity|8|0|100|AcDbViewport|69|2|331|21|331|22|331|23|"
              "0|VIEWPORT|5|36|330|1F|100|AcDbEntity|8|0|100|AcDbViewport|69|3|331|23|331|24|331|21|"
              "0|ENDSEC|0|EOF"));
    const std::string first = db->bytes();
    const auto id = [&](std::uint64_t handle) { return db->getOdDbObjectId(handle); };
    const auto layerOf = [&](std::uint64_t handle) { return id(handle).open<OdDbEntity>()->layer(); };
    const std::vector<OdDbObjectId> from = {id(0x21), id(0x22), id(0x23), id(0x24), id(0x31), {}};
    EXPECT_EQ(tv::dwg::countEntitiesNaming(std::span(from).first(3)), 2u) << "attributes go with their insert";
    EXPECT_EQ(tv::dwg::retargetReferences(from, id(0x24)), 6u) << "the target and what is no layer stay out";
    for (const std::uint64_t entity : {0x31, 0x32, 0x33, 0x34})
        EXPECT_EQ(layerOf(entity), L"T");
    const std::vector<OdDbObjectId> one = {id(0x24)};
    EXPECT_EQ(id(0x35).open<OdDbViewport>()->frozenLayers(), one) << "three become one";
    EXPECT_EQ(id(0x36).open<OdDbViewport>()->frozenLayers(), one) << "two join one that was there";
    EXPECT_EQ(db->undoName(), L"RENAME");
    EXPECT_TRUE(db->undo());
    EXPECT_EQ(db->bytes(), first);
}

TEST(NameReferences, SomeRecordsKeepTheirNames) {
    const auto db = OdDbDatabase::create(OdDb::DxfVersion::kR12);
    const std::string first = db->bytes();
    const auto layers = db->layers(OdDb::kForWrite);
    const auto linetypes = db->getLinetypeTableId().open<OdDbSymbolTable>();
    const auto zero = layers->getAt(L"0").open<OdDbLayerTableRecord>(OdDb::kForWrite);
    for (const OdDbObjectId id : {layers->getAt(L"0"), linetypes->getAt(L"continuous")}) {
        const auto record = id.open<OdDbSymbolTableRecord>(OdDb::kForWrite);
        EXPECT_EQ(record->setName(L"Other"), Tavo::eInvalidInput);
        EXPECT_EQ(record->erase(), Tavo::eInvalidInput);
        EXPECT_EQ(record->setName(record->getName().view()), Tavo::eOk);
    }
    EXPECT_EQ(zero->setLinetypeName(L"Nowhere"), Tavo::eKeyNotFound);
    EXPECT_EQ(db->bytes(), first);

    // A name counts as what it reads back as, and a renamed record is found by its new name only.
    const OdDbObjectId a = layers->add(L"\\U+0041");
    EXPECT_EQ(layers->nameOf(a), L"A");
    EXPECT_TRUE(layers->add(L"a").isNull());
    const OdDbObjectId b = layers->add(L"B");
    EXPECT_EQ(b.open<OdDbLayerTableRecord>(OdDb::kForWrite)->setName(L"\\U+0041"), Tavo::eDuplicate);
    ASSERT_EQ(a.open<OdDbLayerTableRecord>(OdDb::kForWrite)->setName(L"C"), Tavo::eOk);
    EXPECT_FALSE(layers->has(L"A"));
    EXPECT_TRUE(layers->getAt(L"c") == a);
    EXPECT_EQ(b.open<OdDbLayerTableRecord>(OdDb::kForWrite)->setName(L"A"), Tavo::eOk);
    ASSERT_TRUE(db->undo() && db->undo());
    EXPECT_TRUE(layers->getAt(L"A") == a && layers->getAt(L"B") == b && !layers->has(L"C"));
    EXPECT_EQ(a.open<OdDbLayerTableRecord>(OdDb::kForWrite)->erase(), Tavo::eOk);
    EXPECT_FALSE(layers->has(L"A"));
}

TEST(UsageData, RecordsAreInUseWhenSomethingRefersToThem) {
    const auto db = openText(lines(kBusy));
    const auto used = [&](NamedKind kind, std::initializer_list<std::uint64_t> handles) {
        db->usageData().generate(*db, kind);
        std::string out;
        for (const std::uint64_t handle : handles)
            out += db->getOdDbObjectId(handle).open<OdDbSymbolTableRecord>()->isInUse() ? '1' : '0';
        return out;
    };
    const auto wall = db->getOdDbObjectId(0x21).open<OdDbLayerTableRecord>();
    EXPECT_FALSE(wall->isInUse()) << "nothing was generated";
    db->layers()->generateUsageData();
    EXPECT_TRUE(wall->isInUse());
    // In a block only; named by a layer state only; in extended data only.
    EXPECT_EQ(used(NamedKind::kLayer, {0x20, 0x21, 0x22, 0x23, 0x24}), "11101");
    EXPECT_EQ(used(NamedKind::kLinetype, {0x11, 0x12}), "10") << "a layer state names the second";
    EXPECT_EQ(used(NamedKind::kTextStyle, {0x31, 0x32, 0x33}), "110") << "the second by a handle";
    EXPECT_EQ(used(NamedKind::kDimStyle, {0x41, 0x42}), "11") << "with its parent";
    EXPECT_EQ(used(NamedKind::kBlock, {0x51, 0x52, 0x53}), "101") << "not by its own contents";

    // Edits are seen by the next call.
    const OdDbObjectId added = db->layers(OdDb::kForWrite)->add(L"New");
    EXPECT_FALSE(added.open<OdDbLayerTableRecord>()->isInUse());
    EXPECT_EQ(db->getOdDbObjectId(0x82).open<OdDbEntity>(OdDb::kForWrite)->setLayer(L"New"), Tavo::eOk);
    db->layers()->generateUsageData();
    EXPECT_TRUE(added.open<OdDbLayerTableRecord>()->isInUse());
    auto data = OdResBuf::newRb(OdResBuf::kDxfRegAppName, OdString(L"KX"));
    data->append(OdResBuf::newRb(OdResBuf::kDxfXdLayerName, OdString(L"idle")));
    EXPECT_EQ(db->getOdDbObjectId(0x82).openObject(OdDb::kForWrite)->setXData(data.get()), Tavo::eOk);
    EXPECT_EQ(used(NamedKind::kLayer, {0x23}), "1");
    EXPECT_TRUE(db->undo());
    EXPECT_EQ(used(NamedKind::kLayer, {0x23}), "0");
}

// However the lines of an entity look, the layer it is on is the first tag 8 of its own.
TEST(UsageData, ReadsTheLayerOfOddlyWrittenEntities) {
    const char* const entities[] = {
        "0|LINE|8|A|62|8",                       // as usual
        "  0|LINE|  8|A|100|8",                  // padded
        "0|LINE|\t8 |A|62|1",                    // otherwise
        "0|LINE|5|8|6|8|8|A",                    // as the last, behind values that look like it
        "0|LINE|102|{X|8|B|102|}|8|A",           // behind a group
        "0|LINE|5|1|8|A|1001|KX|1003|A|1003|A",  // with data that name it again
        "0|LINE|100|AcDbEntity with a name|8|A", // behind a long line
        "0|LINE|8||8|B|5|2",                     // of no name
        "0|LINE|1001|X|8|B",                     // in data
    };
    for (const char* const entity : entities)
        for (const char* const lineEnd : {"\n", "\r\n", "\r"}) {
            const auto db = openText(lines(
                std::string(
                    "0|SECTION|2|TABLES|0|TABLE|2|LAYER|70|2|0|LAYER|2|0|70|0|0|LAYER|2|A|70|0|0|LAYER|2|B|") +
                    "70|0|0|ENDTAB|0|ENDSEC|0|SECTION|2|ENTITIES|" + entity + "|0|ENDSEC|0|EOF",
                lineEnd));
            db->layers()->generateUsageData();
            const auto used = [&](const wchar_t* name) {
                return db->layers()->getAt(name).open<OdDbSymbolTableRecord>()->isInUse();
            };
            const bool names = std::string_view(entity).find('A') != std::string_view::npos;
            EXPECT_EQ(used(L"A"), names) << entity;
            EXPECT_FALSE(used(L"B")) << entity;
        }
}
