#include "kxgui/layers/LayerCsv.h"

#include "kxgui/layers/CsvText.h"
#include "kxgui/layers/LayerRecord.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/text/MessageManager.h"
#include "platform/text/Unicode.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

using namespace kx::layers;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

constexpr const char* kHeadings = "Status,Name,On,Freeze,Lock,Color,Linetype,Lineweight,Transparency,Plot "
                                  "Style,Plot,New VP Freeze,Description\r\n";

std::vector<std::vector<std::wstring>> fieldsOf(std::string_view bytes) {
    std::vector<std::vector<std::wstring>> out;
    CsvReader reader(bytes);
    for (CsvLine line; reader.next(line);)
        out.push_back(line.broken ? std::vector<std::wstring>{L"broken"} : line.fields);
    return out;
}

struct LayerCsv : testing::Test {
    OdDbDatabasePtr db = OdDbDatabase::create();
    OdDbObjectId add(const wchar_t* name) { return db->layers(OdDb::kForWrite)->add(name); }
    T_LAYER_DATA read(const wchar_t* name) { return readLayer(db->layers()->getAt(name), currentLayer(*db)); }
    // The reason of the first refused line.
    std::wstring refusal(const std::string& bytes) {
        const LayerCsvPlan plan = planLayerImport(*db, bytes);
        for (const LayerCsvLine& line : plan.lines)
            if (line.kind == LayerCsvLine::Kind::refused) return line.refusal;
        return plan.problem.sentence;
    }
};

} // namespace

TEST(CsvText, ReadsWhatProgramsWrite) {
    using Lines = std::vector<std::vector<std::wstring>>;
    EXPECT_EQ(fieldsOf("\xEF\xBB\xBF"
                       "a,b\r\n\"c,\"\"d\"\"\",\r\n"),
              (Lines{{L"a", L"b"}, {L"c,\"d\"", L""}}));
    EXPECT_EQ(fieldsOf("a;b\n\n\"x\ny\";2,5"), (Lines{{L"a", L"b"}, {L"x\ny", L"2,5"}})) << "semicolons";
    EXPECT_EQ(fieldsOf("a\tb,c\td\r1\t2\t3"), (Lines{{L"a", L"b,c", L"d"}, {L"1", L"2", L"3"}})) << "tabs";
    EXPECT_EQ(fieldsOf("a\"b,c"), (Lines{{L"a\"b", L"c"}})) << "a mark within is a character";
    EXPECT_EQ(fieldsOf("a,b\n\"c\"d,e\nf,\"g\nh,i"),
              (Lines{{L"a", L"b"}, {L"broken"}, {L"broken"}, {L"h", L"i"}}))
        << "what is behind a broken line is still read";
    EXPECT_FALSE(CsvReader("a\xFF,b").readable());
    CsvReader lines("a,b\r\n\"1\r\n2\",3\r\n4,5");
    CsvLine line;
    std::vector<int> numbers;
    while (lines.next(line))
        numbers.push_back(line.number);
    EXPECT_THAT(numbers, ElementsAre(1, 2, 4));
}

TEST(CsvText, EveryTextReadsBack) {
    const std::vector<std::wstring> fields = {L"=1+2", L"+a",       L"-",      L"@x", L" b ",
                                              L"a\"b", L"a,b;c\td", L"x\r\ny", L"",   L"벽"};
    const std::wstring line = csvLine(fields);
    EXPECT_THAT(line, testing::StartsWith(L"\"=1+2\",\"+a\",\"-\",\"@x\",")) << "nothing is added to formulas";
    EXPECT_THAT(fieldsOf(tv::text::toUtf8(line)), ElementsAre(fields));
}

TEST_F(LayerCsv, WhatIsExportedChangesNothingWhenItComesBack) {
    const auto wall = add(L"=Wall").open<OdDbLayerTableRecord>(OdDb::kForWrite);
    wall->setColor(OdCmColor::byRgb(30, 144, 255));
    wall->setBookColor(OdCmColor::byRgb(30, 144, 255), L"BOOK$Sky, light");
    wall->setLineWeight(OdDb::kLnWt025);
    wall->setTransparency(OdCmTransparency::byPercent(95));
    wall->setIsFrozen(true);
    wall->setDescription(L"a, \"b\"\n= c");
    const std::string first = db->bytes();
    const std::string list = exportLayers(*db);
    EXPECT_THAT(list, testing::StartsWith(std::string("\xEF\xBB\xBF") + kHeadings));
    EXPECT_THAT(list, HasSubstr(",\"=Wall\",Yes,Yes,No,\"#1E90FF BOOK$Sky, light\",Continuous,0.25,95,"));
    EXPECT_THAT(list, HasSubstr("\r\nCurrent,0,"));

    LayerCsvPlan plan = planLayerImport(*db, list);
    EXPECT_FALSE(plan.problem);
    EXPECT_EQ(plan.same, 2);
    EXPECT_EQ(plan.made + plan.changed + plan.refused, 0) << "also what a person may not enter";
    EXPECT_FALSE(applyLayerImport(*db, plan, false));
    EXPECT_TRUE(db->bytes() == first);
    const auto other = OdDbDatabase::create();
    plan = planLayerImport(*other, exportLayers(*OdDbDatabase::create()));
    EXPECT_EQ(plan.same, 1);
}

TEST_F(LayerCsv, NewLayersAndChangesAreOneStep) {
    add(L"Wall");
    add(L"Door");
    const std::string first = db->bytes();
    LayerCsvPlan plan = planLayerImport(*db, "Name;Color;Freeze;Lineweight;Description;Mine\n"
                                             "wall;red;;0,25 mm;outside;1\nDoor;7;no;;;2\n"
                                             " New ;#0A0B0C;yes;0.50;fresh;3\n벽;3;;Default;;4\n");
    EXPECT_THAT(plan.ignored, ElementsAre(L"Mine"));
    ASSERT_EQ(plan.lines.size(), 4u);
    EXPECT_EQ(plan.made, 2);
    EXPECT_EQ(plan.changed, 1);
    EXPECT_EQ(plan.same, 1);
    std::wstring seen;
    for (const LayerCsvChange& change : plan.lines[0].changes)
        seen += change.before + L">" + change.after + L" ";
    EXPECT_EQ(seen, L"7>1 Default>0.25 >outside ");
    EXPECT_TRUE(db->bytes() == first) << "so far it is a plan";

    ASSERT_FALSE(applyLayerImport(*db, plan, false));
    EXPECT_EQ(read(L"Wall").name, L"Wall") << "the name's letter case stays";
    EXPECT_EQ(read(L"Wall").color, OdCmColor::byIndex(1));
    EXPECT_EQ(read(L"Wall").lineWeight, OdDb::kLnWt025);
    EXPECT_EQ(read(L"New").color, OdCmColor::byRgb(10, 11, 12));
    EXPECT_TRUE(read(L"New").frozen);
    EXPECT_EQ(read(L"New").description, L"fresh");
    EXPECT_EQ(read(L"벽").color, OdCmColor::byIndex(3));
    EXPECT_EQ(db->undoName(), L"_LAYER");
    EXPECT_TRUE(db->undo());
    EXPECT_TRUE(db->bytes() == first);
}

TEST_F(LayerCsv, EveryFaultIsToldWithItsLineAndNothingIsDoneUnlessItIsSkipped) {
    add(L"Wall");
    EXPECT_THAT(refusal("Name,Color\nWall,pink\n"),
                testing::AllOf(HasSubstr(L"2행"), HasSubstr(L"색상"), HasSubstr(L"pink")));
    EXPECT_THAT(refusal("Name,Linetype\nWall,Zigzag\n"), HasSubstr(L"Zigzag"));
    EXPECT_THAT(refusal("Name,Linetype\nWall,ByLayer\n"), HasSubstr(L"ByLayer"));
    EXPECT_THAT(refusal("Name,Lineweight\nWall,0.26\n"), HasSubstr(L"0.26"));
    EXPECT_THAT(refusal("Name,Transparency\nWall,91\n"), HasSubstr(L"0-90"));
    EXPECT_THAT(refusal("Name,Plot\nWall,maybe\n"), HasSubstr(L"maybe"));
    EXPECT_THAT(refusal("Name,Plot Style\nWall,Nobody\n"), HasSubstr(L"Nobody"));
    EXPECT_THAT(refusal("Name,Description\nWall,a=b\n"), HasSubstr(L"유효하지 않은"));
    EXPECT_THAT(refusal("Name,Freeze\n0,Yes\n"), HasSubstr(L"현재 도면층")) << "the current layer";
    EXPECT_THAT(refusal("Name\na|b\n"), HasSubstr(L"유효하지 않은"));
    EXPECT_THAT(refusal("Name\n" + std::string(101, 'x') + "\n"), HasSubstr(L"길게"));
    EXPECT_THAT(refusal("Name,On\n,Yes\n"), HasSubstr(L"이름을 입력"));
    EXPECT_THAT(refusal("Name\nDoor\nDOOR\n"), testing::AllOf(HasSubstr(L"3행"), HasSubstr(L"2행에 이미")));
    EXPECT_THAT(refusal("Name,On\nWall\n"), HasSubstr(L"필드가 1개"));
    EXPECT_THAT(refusal("Name,On\n\"Wall,Yes\n"), HasSubstr(L"따옴표"));
    EXPECT_THAT(refusal("Color\n1\n"), HasSubstr(L"\"Name\"")) << "the whole list";
    EXPECT_THAT(refusal("Name,On,name\nWall,Yes,x\n"), HasSubstr(L"두 번"));
    EXPECT_FALSE(refusal("").empty());
    EXPECT_THAT(refusal("Name\n\xC3\x28\n"), HasSubstr(L"UTF-8"));

    LayerCsvPlan plan = planLayerImport(*db, "Name,Color\nWall,1\nWall,2\nDoor,x\nGate,5\n");
    const std::string first = db->bytes();
    EXPECT_TRUE(applyLayerImport(*db, plan, false));
    EXPECT_TRUE(db->bytes() == first);
    EXPECT_FALSE(applyLayerImport(*db, plan, true));
    EXPECT_EQ(read(L"Wall").color, OdCmColor::byIndex(1));
    EXPECT_FALSE(read(L"Gate").id.isNull());
    EXPECT_TRUE(read(L"Door").id.isNull());
}

TEST_F(LayerCsv, TenThousandBadLinesAreToldAHundredTimes) {
    std::string list = "Name,Color\n";
    for (int i = 0; i < 10000; ++i)
        list += "L" + std::to_string(i) + ",none\n";
    const LayerCsvPlan plan = planLayerImport(*db, list + "Good,1\n");
    EXPECT_EQ(plan.refused, 10000);
    EXPECT_EQ(plan.lines.size(), 101u);
    EXPECT_EQ(plan.made, 1);
}

TEST(LayerCsvVersions, WhatADrawingCannotHoldIsRefusedBeforehand) {
    const auto old = OdDbDatabase::create(OdDb::DxfVersion::kR12);
    const LayerCsvPlan plan = planLayerImport(
        *old, "Name,Color,Lineweight,Transparency,Plot\na,#010203,,,\nb,,0.25,,\nc,,,10,\nd,,,,No\n" +
                  std::string(32, 'e') + ",,,,\nf,3,Default,0,Yes\n");
    EXPECT_EQ(plan.refused, 5);
    EXPECT_EQ(plan.made, 1);
    LayerCsvPlan good = plan;
    EXPECT_FALSE(applyLayerImport(*old, good, true)) << "what is left can be held";
    EXPECT_FALSE(old->layers()->getAt(L"f").isNull());
    old->setReadOnly(true);
    EXPECT_EQ(applyLayerImport(*old, good, true).status, Tavo::eReadOnly);
}
