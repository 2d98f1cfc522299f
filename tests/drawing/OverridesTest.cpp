#include "tests/drawing/Drawings.h"

#include "platform/drawing/LayerOverrides.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdDbPlaceHolder.h"
#include "platform/drawing/OdDbViewport.h"
#include "platform/drawing/OdDbXrecord.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace drawings;
using namespace tv::dwg;

namespace {

OdDbDatabasePtr twoViewports(const char* version) {
    std::string out = "0|SECTION|2|HEADER|9|$ACADVER|1|" + std::string(version) +
                      "|9|$HANDSEED|5|100|0|ENDSEC|0|SECTION|2|TABLES|0|TABLE|2|LTYPE|5|3|330|0|"
                      "100|AcDbSymbolTable|70|1|0|LTYPE|5|15|330|3|100|AcDbSymbolTableRecord|"
                      "100|AcDbLinetypeTableRecord|2|Dashed|70|0|3||72|65|73|0|40|0.0|0|ENDTAB|"
                      "0|TABLE|2|LAYER|5|2|330|0|100|AcDbSymbolTable|70|2|";
    for (const char* layer : {"10|0", "11|Wall"})
        out += "0|LAYER|5|" + std::string(layer).substr(0, 2) +
               "|330|2|100|AcDbSymbolTableRecord|100|AcDbLayerTableRecord|2" + std::string(layer).substr(2) +
               "|70|0|62|7|6|Dashed|";
    out += "0|ENDTAB|0|ENDSEC|0|SECTION|2|ENTITIES|";
    for (const char* handle : {"20", "21"})
        out += std::string("0|VIEWPORT|5|") + handle +
               "|330|1F|100|AcDbEntity|67|1|8|0|100|AcDbViewport|10|0.0|20|0.0|30|0.0|40|1.0|41|1.0|69|2|";
    return openText(lines(out + "0|ENDSEC|0|EOF"));
}

void undoAll(OdDbDatabase& db) {
    while (db.undo()) {
    }
}

} // namespace

TEST(LayerOverrides, EveryPropertyPerViewport) {
    const auto db = twoViewports("AC1024");
    const std::string first = db->bytes();
    const OdDbObjectId wall = db->layers()->getAt(L"Wall");
    const OdDbObjectId one = db->getOdDbObjectId(0x20);
    const OdDbObjectId two = db->getOdDbObjectId(0x21);
    const OdDbObjectId dashed = db->getOdDbObjectId(0x15);
    const OdDbObjectId fine = addPlaceHolder(db->getPlotStyleNameDictionaryId(true), L"Fine");
    const std::string styled = db->bytes();

    EXPECT_EQ(overrideColor(wall, one, OdCmColor::byRgb(1, 2, 3)), Tavo::eOk);
    EXPECT_EQ(overrideColor(wall, two, OdCmColor::byIndex(30)), Tavo::eOk);
    EXPECT_EQ(overrideLinetype(wall, one, dashed), Tavo::eOk);
    EXPECT_EQ(overrideLineWeight(wall, one, OdDb::kLnWt050), Tavo::eOk);
    EXPECT_EQ(overrideTransparency(wall, one, OdCmTransparency::byPercent(40)), Tavo::eOk);
    EXPECT_EQ(overridePlotStyle(wall, one, fine), Tavo::eOk);
    EXPECT_EQ(overrideColor(wall, one, OdCmColor()), Tavo::eInvalidInput);
    EXPECT_EQ(overrideColor(wall, dashed, OdCmColor::byIndex(1)), Tavo::eInvalidInput);
    EXPECT_EQ(overrideLinetype(wall, one, wall), Tavo::eInvalidInput);
    EXPECT_EQ(overridePlotStyle(wall, one, dashed), Tavo::eInvalidInput);
    const std::string all = db->bytes();
    EXPECT_EQ(overrideColor(wall, one, OdCmColor::byRgb(1, 2, 3)), Tavo::eOk);
    EXPECT_EQ(db->bytes(), all) << "the same again is no change";

    const auto again = openText(all);
    const LayerOverrideMap read = overridesOf(again->layers()->getAt(L"wall"));
    ASSERT_EQ(read.size(), 2u);
    LayerOverrides wanted;
    wanted.color = OdCmColor::byRgb(1, 2, 3);
    wanted.linetype = again->getOdDbObjectId(0x15);
    wanted.lineWeight = OdDb::kLnWt050;
    wanted.transparency = OdCmTransparency::byPercent(40);
    wanted.plotStyle = again->getOdDbObjectId(fine.handle());
    EXPECT_EQ(read.at(again->getOdDbObjectId(0x20)), wanted);
    EXPECT_EQ(
        overridesInViewport(*again, again->getOdDbObjectId(0x21)).at(again->layers()->getAt(L"Wall")).color,
        OdCmColor::byIndex(30));
    EXPECT_FALSE(hasOverrides(again->layers()->getAt(L"0")));

    EXPECT_EQ(overrideColor(wall, one, std::nullopt), Tavo::eOk);
    EXPECT_FALSE(overridesOf(wall, one).color);
    EXPECT_EQ(overridesOf(wall, two).color, OdCmColor::byIndex(30));
    EXPECT_EQ(removeViewportOverrides(one), Tavo::eOk);
    EXPECT_FALSE(overridesOf(wall, one).any());
    EXPECT_EQ(removeOverrides(wall), Tavo::eOk);
    // What was made for them is gone but for the handles taken.
    EXPECT_TRUE(wall.openObject()->extensionDictionary().isNull());
    db->setHeaderVar(L"HANDSEED", openText(styled)->headerVar(L"HANDSEED").value());
    EXPECT_EQ(db->bytes(), styled);
    undoAll(*db);
    EXPECT_EQ(db->bytes(), first);
}

TEST(LayerOverrides, ForeignDataStayAndOldVersionsRefuse) {
    const auto old = twoViewports("AC1018");
    const std::string untouched = old->bytes();
    EXPECT_EQ(overrideColor(old->layers()->getAt(L"0"), old->getOdDbObjectId(0x20), OdCmColor::byIndex(1)),
              Tavo::eNotHandled);
    EXPECT_EQ(old->bytes(), untouched);

    // A group of somebody else's and one of a viewport that is gone stand between ours.
    const auto db = twoViewports("AC1032");
    const auto layer = db->layers()->getAt(L"0").openObject(OdDb::kForWrite);
    layer->createExtensionDictionary();
    const OdResBufPtr chain = OdResBuf::newRb(102, OdString(L"{ADSK_LYR_COLOR_OVERRIDE"));
    chain->append(OdResBuf::newRb(335, OdDbHandle(0xFFF)));
    chain->append(OdResBuf::newRb(420, std::int64_t{-1023409664}));
    chain->append(OdResBuf::newRb(102, OdString(L"}")));
    chain->append(OdResBuf::newRb(102, OdString(L"{OTHER")));
    chain->append(OdResBuf::newRb(335, OdDbHandle(0x20)));
    chain->append(OdResBuf::newRb(102, OdString(L"}")));
    chain->append(OdResBuf::newRb(102, OdString(L"{ADSK_LYR_COLOR_OVERRIDE"))); // not closed
    const OdDbObjectId record =
        addXrecord(layer->extensionDictionary(), L"ADSK_XREC_LAYER_COLOR_OVR", chain.get());
    EXPECT_FALSE(hasOverrides(layer->objectId()));
    const std::string before = db->bytes();
    EXPECT_EQ(overrideColor(layer->objectId(), db->getOdDbObjectId(0x20), OdCmColor::byIndex(5)), Tavo::eOk);
    EXPECT_EQ(removeViewportOverrides(db->getOdDbObjectId(0x20)), Tavo::eOk);
    EXPECT_FALSE(record.isErased());
    EXPECT_NE(db->bytes().find("{OTHER"), std::string::npos);
    EXPECT_NE(db->bytes().find("FFF"), std::string::npos);
    EXPECT_EQ(db->bytes(), before);
}
