#include "tests/drawing/Drawings.h"

#include "platform/drawing/entities/EntityTexts.h"
#include "platform/drawing/entities/OdDbBlockReference.h"
#include "platform/drawing/entities/OdDbDimension.h"
#include "platform/drawing/entities/OdDbHatch.h"
#include "platform/drawing/entities/OdDbLeader.h"
#include "platform/drawing/entities/OdDbMText.h"
#include "platform/drawing/entities/OdDbTable.h"
#include "platform/drawing/entities/OdDbText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numbers>

using namespace drawings;
using namespace tv::dwg;
using testing::HasSubstr;
using testing::Not;

namespace {

OdDbDatabasePtr drawing(const std::string& entities, const std::string& version = "AC1032",
                        const std::string& blocks = {}) {
    return openText(lines("0|SECTION|2|HEADER|9|$ACADVER|1|" + version +
                          "|9|$DWGCODEPAGE|3|ANSI_949|0|ENDSEC|" + "0|SECTION|2|BLOCKS|" + blocks +
                          "0|ENDSEC|0|SECTION|2|ENTITIES|" + entities + "0|ENDSEC|0|EOF"));
}

template <class T>
std::shared_ptr<T> at(const OdDbDatabasePtr& db, std::uint64_t handle) {
    return db->getOdDbObjectId(handle).open<T>(OdDb::kForWrite);
}

std::wstring all(const OdDbDatabasePtr& db, std::uint64_t handle) {
    std::wstring out;
    for (const TextField& field : textFieldsOf(db->getOdDbObjectId(handle)))
        out += std::to_wstring(static_cast<int>(field.kind)) + L"=" + field.value.wstr() + L" ";
    return out;
}

void undoAll(const OdDbDatabasePtr& db, const std::string& first) {
    while (db->undo()) {
    }
    EXPECT_EQ(db->bytes(), first);
}

const std::string kLeader =
    "0|MULTILEADER|5|5|100|AcDbEntity|8|0|100|AcDbMLeader|270|2|300|CONTEXT_DATA{|40|1.0|290|1|"
    "304|says {\\C1;this}|340|60|302|LEADER{|290|1|304|LEADER_LINE{|10|1.0|305|}|303|}|301|}|"
    "340|61|172|2|";
const std::string kCell = "171|1|172|0|173|0|145|0.0|301|CELL_VALUE|93|";

} // namespace

TEST(EntityTexts, EveryKindIsFoundAndReplaced) {
    const auto db =
        drawing("0|TEXT|5|1|8|0|1|one|40|2.5|"
                "0|MTEXT|5|2|100|AcDbEntity|8|0|100|AcDbMText|40|1.0|71|1|3|a {\\C1;b}|1| c|7|S|"
                "0|INSERT|5|3|8|0|66|1|2|DOOR|0|ATTRIB|5|31|8|0|100|AcDbText|40|1.0|1|value|100|"
                "AcDbAttribute|2|TAG|70|0|0|SEQEND|5|32|8|0|"
                "0|DIMENSION|5|4|100|AcDbEntity|8|0|100|AcDbDimension|2|*D1|70|33|1|<> mm|3|ISO|100|"
                "AcDbAlignedDimension|13|1.0|" +
                kLeader +
                "0|ATTDEF|5|6|8|0|40|1.0|1|default|3|Prompt?|2|TAG|70|1|"
                "0|TOLERANCE|5|7|8|0|3|ISO|1|{\\Fgdt;j}%%v0.1|"
                "0|LINE|5|8|8|0|1001|PE_URL|1000|www|1002|{|1000|said|1002|}|");
    const std::string first = db->bytes();
    EXPECT_EQ(all(db, 1), L"0=one ");
    EXPECT_EQ(all(db, 2), L"1=a {\\C1;b} c ");
    EXPECT_EQ(all(db, 3), L"3=TAG 2=value ");
    EXPECT_EQ(all(db, 4), L"5=<> mm ");
    EXPECT_EQ(all(db, 5), L"6=says {\\C1;this} ");
    EXPECT_EQ(all(db, 6), L"3=TAG 4=Prompt? 2=default ");
    EXPECT_EQ(all(db, 7), L"8={\\Fgdt;j}%%v0.1 ");
    EXPECT_EQ(all(db, 8), L"9=www 10=said ");
    const std::vector<std::string> before = split(first);
    for (std::uint64_t handle = 1; handle <= 8; ++handle)
        for (const TextField& field : textFieldsOf(db->getOdDbObjectId(handle))) {
            EXPECT_EQ(setTextField(field, L"New"), Tavo::eOk) << all(db, handle).c_str();
            EXPECT_EQ(split(db->bytes()).size(), before.size() - (handle >= 2 ? 2 : 0));
        }
    for (std::uint64_t handle = 1; handle <= 8; ++handle)
        for (const TextField& field : textFieldsOf(db->getOdDbObjectId(handle)))
            EXPECT_EQ(field.value, L"New");
    EXPECT_EQ(at<OdDbDimension>(db, 4)->dimensionKind(), OdDbDimension::kAligned);
    EXPECT_TRUE(at<OdDbAttributeDefinition>(db, 6)->isInvisible());
    EXPECT_EQ(at<OdDbMLeader>(db, 5)->contentType(), OdDbMLeader::kMTextContent);
    undoAll(db, first);
}

TEST(EntityTexts, MultilineContentsAreCutIntoPieces) {
    const std::string head = "0|MTEXT|5|2|100|AcDbEntity|8|0|100|AcDbMText|40|1.0|71|1|";
    const std::string tail = "7|S|101|Embedded Object|70|1|1001|ACAD|1070|3|";
    for (const char* version : {"AC1015", "AC1032"}) {
        const auto db = drawing(head + "3|x|3|y|1|z|" + tail, version);
        const std::string first = db->bytes();
        const auto mtext = at<OdDbMText>(db, 2);
        std::wstring text;
        for (int i = 0; i < 200; ++i)
            text += L"\xAC00^\t\x1F600";
        ASSERT_EQ(mtext->setContents(text), Tavo::eOk);
        EXPECT_EQ(mtext->contents().view(), text);
        for (const std::string& line : split(db->bytes()))
            EXPECT_LE(line.size(), 250u);
        EXPECT_EQ(mtext->setContents(L"short"), Tavo::eOk);
        EXPECT_THAT(db->bytes(),
                    HasSubstr(lines("71|1|1|short|7|S|101|Embedded Object|70|1|1001|ACAD|1070|3")));
        undoAll(db, first);
    }
    // A character parted between two pieces is one.
    const auto parted = drawing(head + "3|a\xB0|1|\xA1z|" + tail, "AC1015");
    EXPECT_EQ(at<OdDbMText>(parted, 2)->contents(), L"a\xAC00z");
    const auto none = drawing("0|MTEXT|5|2|8|0|40|1.0|71|1|7|S|");
    EXPECT_EQ(at<OdDbMText>(none, 2)->setContents(L"new"), Tavo::eOk);
    EXPECT_THAT(none->bytes(), HasSubstr(lines("71|1|1|new|7|S")));
}

TEST(EntityTexts, AttributesOfSeveralLinesChangeTwice) {
    const auto db =
        drawing("0|ATTRIB|5|1|8|0|100|AcDbText|40|1.0|1|a\\Pb|100|AcDbAttribute|280|0|2|TAG|70|0|71|2|"
                "101|Embedded Object|70|1|40|1.0|1|a\\Pb|7|S|");
    const auto attribute = at<OdDbAttribute>(db, 1);
    ASSERT_TRUE(attribute);
    EXPECT_TRUE(attribute->isMultiline());
    EXPECT_EQ(attribute->setTextString(L"c"), Tavo::eOk);
    EXPECT_EQ(attribute->setTag(L"TWO WORDS"), Tavo::eInvalidInput);
    EXPECT_THAT(db->bytes(), HasSubstr(lines("40|1.0|1|c|7|S")));
    EXPECT_THAT(db->bytes(), Not(HasSubstr("a\\Pb")));
    EXPECT_TRUE(db->undo());
    EXPECT_FALSE(db->hasUndo()) << "both are one step";
}

TEST(EntityTexts, TableCellsOldAndNew) {
    const std::string old =
        "0|ACAD_TABLE|5|1|8|0|100|AcDbBlockReference|2|*T1|100|AcDbTable|91|1|92|2|141|9.0|142|4.0|"
        "142|5.0|171|1|173|0|2|long |1|text|171|2|340|7|";
    const std::string fresh = "0|ACAD_TABLE|5|2|8|0|100|AcDbBlockReference|2|*T2|100|AcDbTable|91|2|92|1|" +
                              kCell + "2|90|2|140|1.5|94|0|300||302|1.50|304|ACVALUE_END|" + kCell +
                              "3|90|0|91|0|94|0|300||302||304|ACVALUE_END|";
    const auto db =
        drawing(old + fresh, "AC1024", "0|BLOCK|8|0|2|*T2|70|1|0|MTEXT|5|A|8|0|40|1.0|1|1.50|0|ENDBLK|8|0|");
    const std::string first = db->bytes();
    const auto a = at<OdDbTable>(db, 1);
    const auto b = at<OdDbTable>(db, 2);
    ASSERT_TRUE(a && b);
    EXPECT_EQ(a->textString(0, 0), L"long text");
    EXPECT_EQ(a->columnWidths(), (std::vector<double>{4, 5}));
    EXPECT_EQ(a->setTextString(0, 1, L"x"), Tavo::eWrongType);
    EXPECT_EQ(a->setTextString(1, 0, L"x"), Tavo::eOutOfRange);
    EXPECT_EQ(a->setTextString(0, 0, std::wstring(400, L'w')), Tavo::eOk);
    EXPECT_EQ(a->textString(0, 0).getLength(), 400);
    EXPECT_EQ(b->textString(0, 0), L"1.50");
    EXPECT_EQ(b->setTextString(0, 0, L"two"), Tavo::eOk);
    EXPECT_EQ(b->setTextString(1, 0, L"new"), Tavo::eOk);
    EXPECT_THAT(db->bytes(), HasSubstr(lines(kCell + "2|90|4|1|two|94|0|300||302|two|304|ACVALUE_END|" + kCell +
                                             "2|90|4|1|new|94|0|300||302|new|304|ACVALUE_END")));
    EXPECT_EQ(at<OdDbMText>(db, 0xA)->contents(), L"two") << "the block shows it, too";
    EXPECT_EQ(textFieldsOf(db->getOdDbObjectId(2)).at(1).row, 1);
    undoAll(db, first);
    // Counts that lie make nothing.
    const auto lying = drawing("0|ACAD_TABLE|5|1|8|0|91|2000000000|92|2000000000|171|1|1|x|");
    EXPECT_EQ(at<OdDbTable>(lying, 1)->cells().size(), 1u);
    EXPECT_EQ(at<OdDbTable>(lying, 1)->textString(1999999999, 1999999999), L"");
}

TEST(EntityTexts, HatchPatternsTurnAndGrowWithTheirLines) {
    const auto db =
        drawing("0|HATCH|5|1|8|0|2|ANSI31|70|0|71|0|91|0|75|0|76|1|52|0.0|41|2.0|77|0|78|1|53|45.0|43|1.0|"
                "44|0.0|45|0.0|46|2.0|79|1|49|0.5|98|0|"
                "0|HATCH|5|2|8|0|2|SOLID|70|1|");
    const auto hatch = at<OdDbHatch>(db, 1);
    EXPECT_EQ(hatch->setPatternScale(4), Tavo::eOk);
    EXPECT_THAT(db->bytes(),
                HasSubstr(lines("41|4.0|77|0|78|1|53|45.0|43|2.0|44|0.0|45|0.0|46|4.0|79|1|49|1.0")));
    EXPECT_EQ(hatch->setPatternAngle(std::numbers::pi / 2), Tavo::eOk);
    EXPECT_DOUBLE_EQ(hatch->patternAngle(), std::numbers::pi / 2);
    EXPECT_NEAR(hatch->realAt(45), -4, 1e-9);
    EXPECT_DOUBLE_EQ(hatch->realAt(53), 135);
    EXPECT_EQ(at<OdDbHatch>(db, 2)->setPatternScale(2), Tavo::eNotHandled);
}

TEST(EntityTexts, RealDrawingsSayWhatTheyDid) {
    const auto files = realDrawings();
    if (files.empty()) GTEST_SKIP() << "no drawings on this machine";
    std::size_t count = 0;
    for (const auto& file : files) {
        const auto db = OdDbDatabase::open(file).database;
        ASSERT_TRUE(db) << file;
        if (db->isReadOnly()) continue;
        const std::string first = db->bytes();
        for (OdDbObjectId id = db->firstObject(); !id.isNull(); id = db->nextObject(id)) {
            if (!id.open<OdDbEntity>() || id.open<OdDbAttribute>()) continue;
            for (const TextField& field : textFieldsOf(id)) {
                ++count;
                EXPECT_EQ(setTextField(field, field.value.view()), Tavo::eOk);
                ASSERT_FALSE(db->hasUndo()) << "the same text is no change: " << file << id.handle().ascii();
                const std::wstring changed =
                    field.kind == TextFieldKind::kAttributeTag ? L"T" : L"x" + field.value.wstr();
                if (setTextField(field, changed) != Tavo::eOk) continue;
                std::wstring now;
                for (const TextField& again : textFieldsOf(id))
                    if (again.kind == field.kind && again.entity == field.entity && again.row == field.row &&
                        again.column == field.column)
                        now = again.value.wstr();
                EXPECT_EQ(now, changed) << file << id.handle().ascii();
                while (db->undo()) {
                }
            }
        }
        EXPECT_TRUE(db->bytes() == first) << file;
    }
    EXPECT_GT(count, 0u);
}
