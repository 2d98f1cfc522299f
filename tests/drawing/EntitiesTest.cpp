#include "tests/drawing/Drawings.h"

#include "platform/drawing/AciPalette.h"
#include "platform/drawing/EntityGeometry.h"
#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/entities/Hyperlink.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numbers>

using namespace drawings;
using namespace tv::dwg;

namespace {

OdDbDatabasePtr entities(const std::string& bars, const char* version = "AC1032") {
    return openText(lines("0|SECTION|2|HEADER|9|$ACADVER|1|" + std::string(version) +
                          "|0|ENDSEC|0|SECTION|2|ENTITIES|" + bars + "0|ENDSEC|0|EOF"));
}

template <class T>
T only(const OdDbDatabasePtr& db) {
    return std::get<T>(geometryOf(*db->modelSpace().begin()));
}

} // namespace

TEST(Entities, GeometryIsDecodedFromTheTags) {
    const auto arc =
        only<ArcGeometry>(entities("0|ARC|8|0|10|1.0|20|2.0|30|3.0|40|5|50|90|51|180|210|0|220|0|230|-1|"));
    EXPECT_EQ(arc.center, (OdGePoint3d{1, 2, 3}));
    EXPECT_DOUBLE_EQ(arc.startAngle, std::numbers::pi / 2);
    EXPECT_EQ(arc.normal, (OdGeVector3d{0, 0, -1}));

    const auto light = only<PolylineGeometry>(
        entities("0|LWPOLYLINE|8|0|90|2|70|1|38|4.0|10|1|20|2|42|0.5|10|3|20|4|40|0.2|"));
    ASSERT_EQ(light.vertices.size(), 2u);
    EXPECT_TRUE(light.closed);
    EXPECT_EQ(light.vertices[1].position, (OdGePoint3d{3, 4, 4}));
    EXPECT_EQ(light.vertices[0].bulge, 0.5);

    const auto old =
        only<PolylineGeometry>(entities("0|POLYLINE|8|0|66|1|30|7|40|0.5|0|VERTEX|8|0|10|1|20|2|30|7|"
                                        "0|VERTEX|8|0|10|9|20|9|70|16|0|VERTEX|8|0|10|3|20|4|30|7|0|SEQEND|8|0|"
                                        "0|LINE|8|0|10|1|20|1|11|2|21|2|"));
    EXPECT_EQ(old.vertices.size(), 2u) << "neither the frame's point nor the line behind it";
    EXPECT_EQ(old.vertices[1].startWidth, 0.5);

    const auto solid = only<SolidGeometry>(entities("0|SOLID|8|0|10|0|20|0|11|1|21|0|12|0|22|1|13|1|23|1|"));
    EXPECT_EQ(solid.corners[2], (OdGePoint3d{1, 1, 0}));
    EXPECT_EQ(solid.corners[3], (OdGePoint3d{0, 1, 0}));

    const auto mtext = only<MTextGeometry>(
        entities("0|MTEXT|8|0|10|1|20|2|40|2.5|71|5|3|{\\fArial;Wide} |1|a\\Pb \\S1^2; \\U+AC00 \\\\|11|0|21|1|"
                 "101|Embedded Object|40|99.0|10|7|"));
    EXPECT_EQ(mtext.plain, L"Wide a\nb 1/2 가 \\");
    EXPECT_EQ(mtext.height, 2.5) << "the embedded object's values are its own";
    EXPECT_DOUBLE_EQ(mtext.rotation, std::numbers::pi / 2);

    const auto insert =
        only<InsertGeometry>(entities("0|INSERT|8|0|66|1|2|DOOR|10|5|20|6|41|-1|50|30|70|2|71|3|"));
    EXPECT_EQ(insert.block, L"DOOR");
    EXPECT_EQ(insert.scale, (OdGeVector3d{-1, 1, 1}));
    EXPECT_EQ(insert.columns * insert.rows, 6);
    EXPECT_TRUE(std::holds_alternative<std::monostate>(
        geometryOf(*entities("0|ODDITY|8|0|10|1|")->modelSpace().begin())));
}

TEST(Entities, PlanesFollowTheArbitraryAxisRule) {
    const OdGePoint3d flipped = toWorld({1, 2, 3}, {0, 0, -1});
    EXPECT_DOUBLE_EQ(flipped.x, -1);
    EXPECT_DOUBLE_EQ(flipped.y, 2);
    EXPECT_DOUBLE_EQ(flipped.z, -3);
    // A plane seen from the x axis: its x axis is the world's y axis.
    const OdGePoint3d side = toWorld({1, 2, 3}, {5, 0, 0});
    EXPECT_DOUBLE_EQ(side.x, 3);
    EXPECT_DOUBLE_EQ(side.y, 1);
    EXPECT_DOUBLE_EQ(side.z, 2);
    EXPECT_EQ(toWorld({1, 2, 3}, {0, 0, 0}), (OdGePoint3d{1, 2, 3}));
}

TEST(Entities, SpacesBlocksAndSubEntitiesAreWalkedInFileOrder) {
    const std::string bars =
        "0|SECTION|2|HEADER|9|$ACADVER|1|AC1009|0|ENDSEC|0|SECTION|2|BLOCKS|"
        "0|BLOCK|8|0|2|DOOR|70|0|10|1|20|2|30|3|3|DOOR|0|LINE|5|B1|8|0|0|ARC|5|B2|8|0|0|ENDBLK|8|0|"
        "0|ENDSEC|0|SECTION|2|ENTITIES|0|LINE|5|1|8|0|0|INSERT|5|2|8|0|66|1|2|DOOR|"
        "0|ATTRIB|5|3|8|0|1|x|0|SEQEND|5|4|8|0|0|CIRCLE|5|5|67|1|8|0|0|POINT|5|6|8|0|0|ENDSEC|0|EOF";
    const auto db = openText(lines(bars));
    const auto handles = [](const OdDbEntityRange& range) {
        std::string out;
        for (const OdDbObjectId id : range)
            out += id.handle().ascii() + " ";
        return out;
    };
    EXPECT_EQ(handles(db->modelSpace()), "1 2 6 ");
    EXPECT_EQ(handles(db->paperSpace()), "5 ");
    EXPECT_EQ(handles(subEntities(db->getOdDbObjectId(2))), "3 4 ");
    EXPECT_EQ(handles(subEntities(db->getOdDbObjectId(6))), "");
    const auto blocks = db->getBlockTableId().open<OdDbBlockTable>();
    ASSERT_TRUE(blocks);
    const auto door = blocks->getAt(L"door").open<OdDbBlockTableRecord>();
    ASSERT_TRUE(door);
    EXPECT_EQ(handles(door->entities()), "B1 B2 ");
    EXPECT_EQ(door->origin(), (OdGePoint3d{1, 2, 3}));
    EXPECT_EQ(blocks->size(), 1u);
}

TEST(Entities, CommonPropertiesChangeInTheCommonPartOnly) {
    const auto db = entities("0|ODDITY|5|1|100|AcDbEntity|8|0|100|AcDbOddity|8|not mine|62|9|370|1|");
    const std::string first = db->bytes();
    const auto entity = db->getOdDbObjectId(1).open<OdDbEntity>(OdDb::kForWrite);
    ASSERT_TRUE(entity);
    EXPECT_TRUE(entity->color().isByLayer());
    EXPECT_EQ(entity->lineWeight(), OdDb::kLnWtByLayer);
    EXPECT_EQ(entity->setLayer(L"Missing"), Tavo::eKeyNotFound);
    EXPECT_EQ(entity->setColor(OdCmColor::byRgb(255, 0, 1)), Tavo::eOk);
    EXPECT_EQ(entity->setLineWeight(OdDb::kLnWt050), Tavo::eOk);
    EXPECT_THAT(db->bytes(),
                testing::HasSubstr(lines("8|0|62|1|420|16711681|370|50|100|AcDbOddity|8|not mine|62|9|370|1")));
    EXPECT_EQ(entity->setColor(OdCmColor()), Tavo::eOk);
    EXPECT_TRUE(entity->color().isByLayer());
    while (db->undo()) {
    }
    EXPECT_EQ(db->bytes(), first);
    EXPECT_EQ(entities("0|LINE|5|1|8|0|", "AC1015")
                  ->getOdDbObjectId(1)
                  .open<OdDbEntity>(OdDb::kForWrite)
                  ->setColor(OdCmColor::byRgb(1, 2, 3)),
              Tavo::eNotHandled);
}

TEST(Entities, CommonPropertiesStandInTheOrderOfFiles) {
    const std::string before =
        "0|ODDITY|5|1|102|{ACAD_REACTORS|330|9|102|}|330|1F|100|AcDbEntity|8|0|62|3|370|25|100|"
        "AcDbOddity|440|7|390|8|1001|ACAD|1070|1|";
    const auto db = entities(before + "0|PLACEHOLDER|5|A|330|0|");
    const std::string first = db->bytes();
    const auto entity = db->getOdDbObjectId(1).open<OdDbEntity>(OdDb::kForWrite);
    ASSERT_TRUE(entity);
    EXPECT_EQ(entity->plotStyleNameType(), OdDb::kPlotStyleNameByLayer);
    EXPECT_TRUE(entity->transparency().isByLayer());
    EXPECT_EQ(entity->setPlotStyleName(OdDb::kPlotStyleNameById), Tavo::eInvalidInput);
    EXPECT_EQ(entity->setShadowMode(OdDb::kShadowsIgnore), Tavo::eOk);
    EXPECT_EQ(entity->setPlotStyleName(OdDb::kPlotStyleNameById, db->getOdDbObjectId(0xA)), Tavo::eOk);
    EXPECT_EQ(entity->setVisible(false), Tavo::eOk);
    EXPECT_EQ(entity->setTransparency(OdCmTransparency::byPercent(50)), Tavo::eOk);
    EXPECT_EQ(entity->setBookColor(OdCmColor::byRgb(1, 2, 3), L"BOOK$RED"), Tavo::eOk);
    EXPECT_EQ(entity->setMaterial(db->getOdDbObjectId(0xA)), Tavo::eOk);
    EXPECT_THAT(db->bytes(),
                testing::HasSubstr(
                    lines("8|0|347|A|62|178|420|66051|430|BOOK$RED|440|33554559|60|1|370|25|380|3|390|A|284|"
                          "3|100|AcDbOddity|440|7|390|8")));
    EXPECT_EQ(entity->transparency().percent(), 50);
    EXPECT_EQ(entity->plotStyleNameId(), db->getOdDbObjectId(0xA));
    EXPECT_EQ(entity->setColor(OdCmColor::byRgb(1, 2, 4)), Tavo::eOk);
    EXPECT_TRUE(entity->colorBookName().isEmpty()) << "another colour has another name";
    while (db->undo()) {
    }
    EXPECT_EQ(db->bytes(), first);

    // Older drawings have no place for these; what they have already is no change.
    const auto old = entities("0|LINE|5|1|8|0|10|0|", "AC1009");
    const auto line = old->getOdDbObjectId(1).open<OdDbEntity>(OdDb::kForWrite);
    EXPECT_EQ(line->setTransparency(OdCmTransparency::byPercent(1)), Tavo::eNotHandled);
    EXPECT_EQ(line->setPlotStyleName(OdDb::kPlotStyleNameByBlock), Tavo::eNotHandled);
    EXPECT_EQ(line->setVisible(false), Tavo::eNotHandled);
    EXPECT_EQ(line->setShadowMode(OdDb::kShadowsCastAndReceive), Tavo::eOk);
    for (int percent = 0; percent <= 100; ++percent)
        EXPECT_EQ(OdCmTransparency::fromDxf(OdCmTransparency::byPercent(percent).dxfValue()).percent(),
                  percent);
}

TEST(Entities, HyperlinksAreSetLevelByLevel) {
    const std::string flags =
        "0|LINE|5|2|8|0|1001|PE_URL|1000|www|1002|{|1000|said|1002|{|1071|1|1002|}|1002|}|1001|"
        "OTHER|1000|x|";
    const auto db = entities("0|LINE|5|1|8|0|1001|OTHER|1000|x|" + flags);
    const std::string first = db->bytes();
    const OdDbObjectId bare = db->getOdDbObjectId(1);
    const OdDbObjectId linked = db->getOdDbObjectId(2);
    EXPECT_EQ(hyperlinkOf(bare), std::nullopt);
    EXPECT_EQ(hyperlinkOf(linked), (Hyperlink{L"www", L"said", L""}));
    EXPECT_EQ(setHyperlink(linked, {L"www", L"said", L"View"}), Tavo::eOk);
    EXPECT_THAT(db->bytes(),
                testing::HasSubstr(
                    lines("1000|www|1002|{|1000|said|1002|{|1000|View|1071|1|1002|}|1002|}|1001|OTHER")));
    for (const Hyperlink& link :
         {Hyperlink{L"u", L"", L"s"}, Hyperlink{L"u", L"d", L""}, Hyperlink{L"", L"d", L"s"}}) {
        EXPECT_EQ(setHyperlink(bare, link), Tavo::eOk);
        EXPECT_EQ(hyperlinkOf(bare), link);
        EXPECT_EQ(removeHyperlink(bare), Tavo::eOk);
        EXPECT_EQ(hyperlinkOf(bare), std::nullopt);
    }
    while (db->undo()) {
    }
    EXPECT_EQ(db->bytes(), first);
}

TEST(Colors, PaletteAndConversions) {
    EXPECT_EQ(paletteColor(10), (Rgb{255, 0, 0}));
    EXPECT_EQ(paletteColor(20), (Rgb{255, 63, 0}));
    EXPECT_EQ(paletteColor(21), (Rgb{255, 191, 170}));
    EXPECT_EQ(paletteColor(41), (Rgb{255, 234, 170}));
    EXPECT_EQ(paletteColor(72), (Rgb{94, 189, 0}));
    EXPECT_EQ(paletteColor(119), (Rgb{53, 79, 66}));
    EXPECT_EQ(paletteColor(174), (Rgb{0, 0, 129}));
    EXPECT_EQ(paletteColor(256), (Rgb{0, 0, 0}));
    for (int index = 1; index <= 255; ++index) {
        EXPECT_EQ(paletteColor(nearestPaletteIndex(paletteColor(index))), paletteColor(index));
        EXPECT_EQ(OdCmColor::fromDxf(-index, std::nullopt), OdCmColor::byIndex(index));
    }
    const OdCmColor color = OdCmColor::fromDxf(1, 0x123456);
    EXPECT_EQ(color.colorMethod(), 0xC2);
    EXPECT_EQ(color.dxf420(), 0x123456);
    EXPECT_EQ(OdCmColor::byIndex(0).colorMethod(), 0xC1);
    EXPECT_EQ(OdCmColor::byIndex(256), OdCmColor());
    EXPECT_NE(OdCmColor::byIndex(1), OdCmColor::byRgb(255, 0, 0));
}

TEST(Versions, WhatADrawingCannotHoldIsSaidOncePerMatter) {
    struct Listener : OdDbDatabaseReactor {
        std::vector<OdDb::Feature> told;
        void featureRefused(OdDbDatabase&, OdDb::Feature feature) override { told.push_back(feature); }
    } listener;
    const auto old =
        openText(lines("0|SECTION|2|HEADER|9|$ACADVER|1|AC1009|0|ENDSEC|0|SECTION|2|ENTITIES|0|POINT|8|0|"
                       "0|POINT|8|0|0|ENDSEC|0|EOF"));
    const std::string before = old->bytes();
    old->addReactor(&listener);
    for (const OdDbObjectId id : old->modelSpace()) {
        const auto point = id.open<OdDbEntity>(OdDb::kForWrite);
        EXPECT_EQ(point->setColor(OdCmColor::byRgb(1, 2, 3)), Tavo::eNotHandled);
        EXPECT_EQ(point->setLineWeight(OdDb::kLnWt025), Tavo::eNotHandled);
        EXPECT_EQ(point->setColor(OdCmColor()), Tavo::eOk) << "nothing new is nothing to refuse";
    }
    EXPECT_EQ(listener.told, (std::vector{OdDb::Feature::kTrueColor, OdDb::Feature::kLineWeight}));
    EXPECT_EQ(old->bytes(), before);
    EXPECT_NE(tv::dwg::notHeld(*old, OdDb::Feature::kTrueColor).sentence.find(L"AC1009"), std::wstring::npos);
    old->removeReactor(&listener);
}
