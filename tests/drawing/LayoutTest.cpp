#include "tests/drawing/Drawings.h"

#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/OdDbGroup.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdDbLayout.h"
#include "platform/drawing/OdDbScale.h"
#include "platform/drawing/OdDbViewport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numbers>

using namespace drawings;
using OdDb::DxfVersion;

namespace {

std::string layout(const char* handle, const char* block, const char* name, int tab, const char* more = "") {
    return std::string("0|LAYOUT|5|") + handle +
           "|102|{ACAD_REACTORS|330|50|102|}|330|50|100|AcDbPlotSettings|1|setup|2|printer|4|A4|6||40|7.5|44|"
           "210.0|"
           "45|297.0|70|688|7|mono.ctb|75|16|100|AcDbLayout|1|" +
           name + "|70|1|71|" + std::to_string(tab) + "|10|0.0|20|0.0|11|277.0|21|202.5|330|" + block + "|" +
           more;
}

std::string viewport(const char* handle, const char* owner, int number) {
    const std::string id = std::to_string(number);
    return std::string("0|VIEWPORT|5|") + handle + "|330|" + owner +
           "|100|AcDbEntity|67|1|8|0|100|AcDbViewport|10|5.0|20|6.0|30|0.0|40|100.0|41|50.0|68|" + id + "|69|" +
           id +
           "|12|1.0|22|2.0|16|0.0|26|0.0|36|1.0|17|7.0|27|8.0|37|9.0|42|50.0|45|500.0|51|90.0|72|100|331|11|"
           "331|99|"
           "90|32864|1||281|0|";
}

// The model, a sheet kept with the entities and one kept with the blocks.
std::string sheets() {
    std::string out = "0|SECTION|2|HEADER|9|$ACADVER|1|AC1024|9|$HANDSEED|5|100|9|$TILEMODE|70|1|0|ENDSEC|"
                      "0|SECTION|2|TABLES|0|TABLE|2|LAYER|5|2|330|0|100|AcDbSymbolTable|70|3|";
    for (const char* name : {"0", "Wall", "Door"})
        out += std::string("0|LAYER|5|") +
               (*name == '0'   ? "10"
                : *name == 'W' ? "11"
                               : "12") +
               "|330|2|100|AcDbSymbolTableRecord|100|AcDbLayerTableRecord|2|" + name +
               "|70|0|62|7|6|CONTINUOUS|";
    out += "0|ENDTAB|0|TABLE|2|BLOCK_RECORD|5|3|330|0|100|AcDbSymbolTable|70|3|";
    const char* const blocks[] = {"*Model_Space", "*Paper_Space", "*Paper_Space0"};
    for (int i = 0; i < 3; ++i)
        out += "0|BLOCK_RECORD|5|2" + std::to_string(i) +
               "|330|3|100|AcDbSymbolTableRecord|100|AcDbBlockTableRecord|2|" + blocks[i] + "|340|6" +
               std::to_string(i) + "|";
    out += "0|ENDTAB|0|ENDSEC|0|SECTION|2|BLOCKS|";
    for (int i = 0; i < 3; ++i) {
        out += "0|BLOCK|5|3" + std::to_string(i) + "|330|2" + std::to_string(i) +
               "|100|AcDbEntity|8|0|100|AcDbBlockBegin|2|" + blocks[i] + "|70|0|10|0.0|20|0.0|30|0.0|3|" +
               blocks[i] + "|1||";
        if (i == 2) out += viewport("40", "22", 1) + viewport("41", "22", 2);
        out += "0|ENDBLK|5|3" + std::to_string(i + 3) + "|330|2" + std::to_string(i) + "|100|AcDbEntity|8|0|";
    }
    out +=
        "0|ENDSEC|0|SECTION|2|ENTITIES|0|LINE|5|42|330|20|100|AcDbEntity|8|0|100|AcDbLine|10|0.0|20|0.0|11|1.0|"
        "21|1.0|0|LINE|5|45|330|20|100|AcDbEntity|8|0|100|AcDbLine|10|0.0|20|0.0|11|1.0|21|1.0|" +
        viewport("43", "21", 1) + viewport("44", "21", 2) +
        "0|ENDSEC|0|SECTION|2|OBJECTS|0|DICTIONARY|5|C|330|0|100|AcDbDictionary|281|1|3|ACAD_LAYOUT|350|50|"
        "0|DICTIONARY|5|50|330|C|100|AcDbDictionary|281|1|3|Model|350|60|3|Second|350|62|3|First|350|61|";
    out += layout("60", "20", "Model", 0) + layout("61", "21", "First", 1, "331|44|") +
           layout("62", "22", "Second", 2);
    return lines(out + "0|ENDSEC|0|EOF");
}

std::vector<std::string> handlesOf(const std::vector<OdDbObjectId>& ids) {
    std::vector<std::string> out;
    for (const OdDbObjectId id : ids)
        out.push_back(id.handle().ascii());
    return out;
}

void undoAll(OdDbDatabase& db) {
    while (db.undo()) {
    }
}

} // namespace

TEST(Layouts, AreFoundWhereverTheFileKeepsThem) {
    const auto db = openText(sheets());
    const std::string first = db->bytes();
    EXPECT_THAT(handlesOf(db->layoutIds()), testing::ElementsAre("60", "61", "62"));
    const auto at = [&](std::uint64_t handle) { return db->getOdDbObjectId(handle); };
    const auto model = at(0x60).open<OdDbLayout>();
    const auto one = at(0x61).open<OdDbLayout>(OdDb::kForWrite);
    const auto two = at(0x62).open<OdDbLayout>(OdDb::kForWrite);
    ASSERT_TRUE(model && one && two);
    EXPECT_TRUE(model->isModelLayout() && !two->isModelLayout());
    EXPECT_THAT(handlesOf({model->entities().begin(), model->entities().end()}),
                testing::ElementsAre("42", "45"));
    EXPECT_THAT(handlesOf(one->viewports()), testing::ElementsAre("43", "44"));
    EXPECT_THAT(handlesOf(two->viewports()), testing::ElementsAre("40", "41"));
    EXPECT_EQ(db->layoutOfBlock(two->getBlockTableRecordId()), two->objectId());

    EXPECT_EQ(db->currentLayoutId(), model->objectId());
    EXPECT_EQ(db->setCurrentLayout(two->objectId()), Tavo::eOk);
    EXPECT_EQ(db->headerVar(L"TILEMODE")->asInteger(), 0);
    EXPECT_EQ(db->currentLayoutId(), two->objectId());
    EXPECT_EQ(db->activeViewportId().handle().text(), L"40") << "the sheet itself";
    EXPECT_EQ(db->setActiveViewport(at(0x44)), Tavo::eInvalidInput) << "of the other sheet";
    EXPECT_EQ(db->setActiveViewport(at(0x41)), Tavo::eOk);
    EXPECT_EQ(db->activeViewportId(), at(0x41));
    EXPECT_EQ(db->setCurrentLayout(one->objectId()), Tavo::eOk);
    EXPECT_EQ(db->activeViewportId(), at(0x44)) << "as the layout says";
    undoAll(*db);
    EXPECT_EQ(db->currentLayoutId(), model->objectId());

    EXPECT_EQ(two->setLayoutName(L"first"), Tavo::eDuplicate);
    EXPECT_EQ(two->setLayoutName(L"Plan"), Tavo::eOk);
    EXPECT_EQ(db->getLayoutDictionaryId().open<OdDbDictionary>()->getAt(L"plan"), two->objectId());
    EXPECT_EQ(two->setTabOrder(0), Tavo::eOutOfRange);
    EXPECT_EQ(one->setTabOrder(3), Tavo::eOk);
    EXPECT_THAT(handlesOf(db->layoutIds()), testing::ElementsAre("60", "62", "61"));
    undoAll(*db);
    EXPECT_EQ(db->bytes(), first);
}

// Both parts of a layout use group codes 1, 70 and others.
TEST(Layouts, PlotSettingsAndLayoutKeepApart) {
    const auto db = openText(sheets());
    const std::string first = db->bytes();
    const auto sheet = db->getOdDbObjectId(0x61).open<OdDbLayout>(OdDb::kForWrite);
    EXPECT_EQ(sheet->getPlotSettingsName(), L"setup");
    EXPECT_EQ(sheet->getLayoutName(), L"First");
    EXPECT_EQ(sheet->getCurrentStyleSheet(), L"mono.ctb");
    EXPECT_TRUE(sheet->plotFlag(OdDbPlotSettings::kUseStandardScale) && sheet->psLtScale());
    EXPECT_EQ(sheet->setPlotFlag(OdDbPlotSettings::kPlotCentered, true), Tavo::eOk);
    EXPECT_EQ(sheet->setLimitsCheck(true), Tavo::eOk);
    EXPECT_EQ(sheet->plotFlags(), 692);
    EXPECT_TRUE(sheet->limitsCheck() && sheet->psLtScale());
    EXPECT_EQ(sheet->setCustomPrintScale(0, 1), Tavo::eOutOfRange);
    EXPECT_EQ(sheet->setCustomPrintScale(1, 50), Tavo::eOk);
    EXPECT_FALSE(sheet->plotFlag(OdDbPlotSettings::kUseStandardScale));
    EXPECT_EQ(sheet->setStdScaleType(33), Tavo::eOutOfRange);
    EXPECT_EQ(sheet->setStdScaleType(5), Tavo::eOk);
    EXPECT_EQ(sheet->stdScale(), 1.0 / 128) << "3/32 inch to the foot";
    EXPECT_EQ(sheet->setPlotPaperMargins({1, 2, 3, 4}), Tavo::eOk);
    EXPECT_EQ(sheet->setPlotWindowArea({-1, -2}, {3, 4}), Tavo::eOk);
    EXPECT_EQ(sheet->setPlotRotation(OdDbPlotSettings::k90degrees), Tavo::eOk);
    EXPECT_EQ(sheet->setExtents({0, 0, 0}, {5, 6, 7}), Tavo::eOk);

    // A setup made new takes it all, and what comes back from the file is the same.
    const OdDbObjectId made = tv::dwg::addPlotSettings(*db, L"Big", false);
    ASSERT_FALSE(made.isNull());
    EXPECT_TRUE(tv::dwg::addPlotSettings(*db, L"BIG", false).isNull());
    EXPECT_EQ(made.open<OdDbPlotSettings>(OdDb::kForWrite)->copyFrom(*sheet), Tavo::eOk);
    const auto again = openText(db->bytes());
    for (const OdDbHandle handle : {OdDbHandle(0x61), made.handle()}) {
        const auto read = again->getOdDbObjectId(handle).open<OdDbPlotSettings>();
        ASSERT_TRUE(read);
        EXPECT_EQ(read->getPlotPaperMargins(), (OdDbPlotSettings::Margins{1, 2, 3, 4}));
        EXPECT_EQ(read->plotWindowMax(), (OdGePoint2d{3, 4}));
        EXPECT_EQ(read->plotRotation(), OdDbPlotSettings::k90degrees);
        EXPECT_EQ(read->customScaleDenominator(), 50);
        EXPECT_EQ(read->getCurrentStyleSheet(), L"mono.ctb");
    }
    EXPECT_EQ(again->getOdDbObjectId(0x61).open<OdDbLayout>()->extentsMax(), (OdGePoint3d{5, 6, 7}));
    EXPECT_EQ(again->getOdDbObjectId(made.handle()).open<OdDbPlotSettings>()->getPlotSettingsName(), L"Big");
    undoAll(*db);
    EXPECT_EQ(db->bytes(), first);
}

TEST(Layouts, ViewportsReadAndChangeInBothForms) {
    const auto newer = openText(sheets());
    const auto older = openText(lines(
        "0|SECTION|2|HEADER|9|$ACADVER|1|AC1009|0|ENDSEC|0|SECTION|2|TABLES|0|TABLE|2|LAYER|70|3|"
        "0|LAYER|2|0|70|0|62|7|6|CONTINUOUS|0|LAYER|2|Wall|70|0|62|7|6|CONTINUOUS|"
        "0|LAYER|2|Door|70|0|62|7|6|CONTINUOUS|0|ENDTAB|0|ENDSEC|0|SECTION|2|ENTITIES|"
        "0|VIEWPORT|8|0|67|1|10|5.0|20|6.0|30|0.0|40|100.0|41|50.0|68|2|69|2|1001|ACAD|1000|MVIEW|1002|{|"
        "1070|16|1010|7.0|1020|8.0|1030|9.0|1010|0.0|1020|0.0|1030|1.0|1040|1.5707963267948966|1040|500.0|"
        "1040|1.0|1040|2.0|1040|50.0|1040|0.0|1040|0.0|1070|0|1070|100|1070|1|1070|0|1070|0|1070|0|1070|0|"
        "1070|0|1040|0.0|1040|0.0|1040|0.0|1040|1.0|1040|1.0|1040|1.0|1040|1.0|1070|0|1002|{|1003|Wall|"
        "1003|Gone|1002|}|1002|}|0|ENDSEC|0|EOF"));
    for (const auto& db : {newer, older}) {
        const std::string first = db->bytes();
        const bool old = db == older;
        const auto view =
            (old ? *db->paperSpace().begin() : db->getOdDbObjectId(0x44)).open<OdDbViewport>(OdDb::kForWrite);
        ASSERT_TRUE(view);
        EXPECT_EQ(view->number(), 2);
        EXPECT_EQ(view->viewTarget(), (OdGePoint3d{7, 8, 9}));
        EXPECT_EQ(view->viewDirection(), (OdGeVector3d{0, 0, 1}));
        EXPECT_EQ(view->viewCenter(), (OdGePoint2d{1, 2}));
        EXPECT_DOUBLE_EQ(view->twistAngle(), std::numbers::pi / 2);
        EXPECT_DOUBLE_EQ(view->customScale(), 0.1);
        EXPECT_TRUE(view->isOn());
        const auto layers = db->layers();
        const OdDbObjectId wall = layers->getAt(L"Wall");
        const OdDbObjectId door = layers->getAt(L"Door");
        EXPECT_EQ(view->frozenLayers(), std::vector{wall}) << "what the drawing lacks is left out";
        EXPECT_EQ(view->freezeLayersInViewport(std::vector{wall, door, door}), Tavo::eOk);
        EXPECT_EQ(view->frozenLayers(), (std::vector{wall, door}));
        EXPECT_EQ(view->freezeLayersInViewport(std::vector{view->objectId()}), Tavo::eInvalidInput);
        EXPECT_EQ(view->thawLayersInViewport(std::vector{wall}), Tavo::eOk);
        EXPECT_TRUE(view->isLayerFrozenInViewport(door) && !view->isLayerFrozenInViewport(wall));
        EXPECT_EQ(view->setCustomScale(0.5), Tavo::eOk);
        EXPECT_DOUBLE_EQ(view->viewHeight(), 100);
        EXPECT_EQ(view->setViewCenter({3, 4}), Tavo::eOk);
        EXPECT_EQ(view->setLocked(!view->isLocked()), old ? Tavo::eNotHandled : Tavo::eOk);
        EXPECT_EQ(view->setOn(false), Tavo::eOk);
        const auto again = openText(db->bytes());
        EXPECT_FALSE(again->damaged());
        const auto read =
            (old ? *again->paperSpace().begin() : again->getOdDbObjectId(0x44)).open<OdDbViewport>();
        EXPECT_EQ(read->viewCenter(), (OdGePoint2d{3, 4}));
        EXPECT_EQ(read->frozenLayers(), std::vector{again->layers()->getAt(L"Door")});
        EXPECT_FALSE(read->isOn());
        EXPECT_EQ(view->thawAllLayersInViewport(), Tavo::eOk);
        EXPECT_TRUE(view->frozenLayers().empty());
        undoAll(*db);
        EXPECT_EQ(db->bytes(), first);
    }
}

TEST(Groups, MembersAndTheirGroupKnowEachOther) {
    const auto db = openText(sheets());
    const std::string first = db->bytes();
    const std::vector<OdDbObjectId> both(db->modelSpace().begin(), db->modelSpace().end());
    const OdDbObjectId id = tv::dwg::addGroup(*db, L"Frame", L"the border");
    const auto group = id.open<OdDbGroup>(OdDb::kForWrite);
    ASSERT_TRUE(group);
    EXPECT_EQ(group->append(both), Tavo::eOk);
    EXPECT_EQ(group->append(std::vector{both[0]}), Tavo::eOk);
    EXPECT_EQ(group->append(std::vector{id}), Tavo::eInvalidInput);
    EXPECT_EQ(group->entities(), both);
    EXPECT_EQ(group->setName(L"Border"), Tavo::eOk);
    EXPECT_EQ(group->setSelectable(false), Tavo::eOk);
    const auto again = openText(db->bytes());
    const auto read = again->getOdDbObjectId(id.handle()).open<OdDbGroup>();
    EXPECT_EQ(read->getName(), L"Border");
    EXPECT_EQ(read->description(), L"the border");
    EXPECT_THAT(handlesOf(read->entities()), testing::ElementsAre("42", "45"));
    EXPECT_NE(db->bytes().find("42\n102\n{ACAD_REACTORS\n330\n" + id.handle().ascii()), std::string::npos);
    EXPECT_EQ(group->remove(std::vector{both[0]}), Tavo::eOk);
    EXPECT_EQ(group->entities(), std::vector{both[1]});
    EXPECT_EQ(group->erase(), Tavo::eOk);
    EXPECT_EQ(db->getGroupDictionaryId().open<OdDbDictionary>()->numEntries(), 0u);
    EXPECT_EQ(db->bytes().find(id.handle().ascii() + "\n102\n}\n330\n20"), std::string::npos)
        << "no reactor left";
    undoAll(*db);
    EXPECT_EQ(db->bytes(), first);
}

TEST(Groups, LoseWhatIsErasedInTheSameStep) {
    const auto db = openText(sheets());
    const auto at = [&](std::uint64_t handle) { return db->getOdDbObjectId(handle); };
    const auto erase = [&](std::uint64_t handle) { return at(handle).openObject(OdDb::kForWrite)->erase(); };
    const auto group = [&](const wchar_t* name, std::vector<OdDbObjectId> members) {
        const auto made = tv::dwg::addGroup(*db, name).open<OdDbGroup>(OdDb::kForWrite);
        made->append(members);
        return made;
    };
    const auto both = group(L"Both", {at(0x42), at(0x45)});
    const auto one = group(L"One", {at(0x45), at(0x43)});
    const std::string first = db->bytes();
    EXPECT_EQ(erase(0x45), Tavo::eOk);
    EXPECT_EQ(both->entities(), std::vector{at(0x42)});
    EXPECT_THAT(db->bytes(), testing::Not(testing::HasSubstr("340\n45\n")));
    EXPECT_TRUE(db->undo());
    EXPECT_EQ(db->bytes(), first);
    EXPECT_TRUE(one->has(at(0x45)));
    {
        const OdDbUndoScope step(*db, L"ERASE");
        EXPECT_EQ(erase(0x42), Tavo::eOk);
        EXPECT_EQ(erase(0x45), Tavo::eOk);
        EXPECT_EQ(both->append(std::vector{at(0x44)}), Tavo::eOk) << "what joins meanwhile stays";
    }
    EXPECT_EQ(both->entities(), std::vector{at(0x44)});
    EXPECT_EQ(one->entities(), std::vector{at(0x43)});
    EXPECT_THAT(db->bytes(), testing::Not(testing::ContainsRegex("340\n4[25]\n")));
    EXPECT_TRUE(db->undo());
    EXPECT_EQ(db->bytes(), first);
    EXPECT_TRUE(db->redo());
    EXPECT_EQ(one->entities(), std::vector{at(0x43)});
}

TEST(Layouts, RenamingReachesTheEntitiesThatSayWhoseTheyAre) {
    std::string text = sheets();
    // Viewport 40 says its sheet, 41 another one, and one of the other sheet says this one.
    for (const auto& [handle, name] : {std::pair("40", "SECOND"), {"41", "First"}, {"44", "Second"}}) {
        const std::string mark = std::string("VIEWPORT\n5\n") + handle + "\n";
        text.insert(text.find("67\n1\n", text.find(mark)) + 5, std::string("410\n") + name + "\n");
    }
    const auto db = openText(text);
    ASSERT_EQ(db->getOdDbObjectId(0x62).open<OdDbLayout>(OdDb::kForWrite)->setLayoutName(L"Plan"), Tavo::eOk);
    const auto said = [&](std::uint64_t handle) {
        return db->getOdDbObjectId(handle).openObject()->textAt(410);
    };
    EXPECT_EQ(said(0x40), L"Plan");
    EXPECT_EQ(said(0x41), L"First");
    EXPECT_EQ(said(0x44), L"Second");
    EXPECT_TRUE(db->undo());
    EXPECT_EQ(db->bytes(), text);
}

TEST(Scales, KeepTheListsOrder) {
    const auto db = OdDbDatabase::create();
    const std::string first = db->bytes();
    const std::size_t before = tv::dwg::scalesOf(*db).size();
    for (int i = 1; i <= 12; ++i)
        ASSERT_FALSE(tv::dwg::addScale(*db, L"1:" + std::to_wstring(1000 + i), 1, 1000 + i).isNull());
    EXPECT_TRUE(tv::dwg::addScale(*db, L"1:1003", 2, 3).isNull());
    EXPECT_TRUE(tv::dwg::addScale(*db, L"none", 1, 0).isNull());
    const auto all = tv::dwg::scalesOf(*db);
    ASSERT_EQ(all.size(), before + 12);
    EXPECT_EQ(all.back().open<OdDbScale>()->scaleName(), L"1:1012");
    EXPECT_EQ(all[before].open<OdDbScale>()->drawingUnits(), 1001);
    EXPECT_EQ(tv::dwg::removeScale(all[before + 3]), Tavo::eOk);
    EXPECT_EQ(tv::dwg::scalesOf(*db).size(), before + 11);
    undoAll(*db);
    EXPECT_EQ(db->bytes(), first);
}
