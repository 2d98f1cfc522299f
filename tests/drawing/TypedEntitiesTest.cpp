#include "tests/drawing/Drawings.h"

#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbSymbolTable.h"
#include "platform/drawing/entities/EntityProperties.h"
#include "platform/drawing/entities/EntityTexts.h"
#include "platform/drawing/entities/Hyperlink.h"
#include "platform/drawing/entities/NewEntity.h"
#include "platform/drawing/entities/OdDbBlockReference.h"
#include "platform/drawing/entities/OdDbDimension.h"
#include "platform/drawing/entities/OdDbHatch.h"
#include "platform/drawing/entities/OdDbLeader.h"
#include "platform/drawing/entities/OdDbMText.h"
#include "platform/drawing/entities/OdDbRasterImage.h"
#include "platform/drawing/entities/OdDbTable.h"
#include "platform/drawing/entities/OdDbText.h"
#include "platform/drawing/entities/TagAccess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numbers>

using namespace drawings;
using namespace tv::dwg;
using testing::HasSubstr;
using testing::Not;

namespace {

constexpr double kPi = std::numbers::pi;

OdDbDatabasePtr drawing(const std::string& entities, const std::string& rest = {}) {
    return openText(
        lines("0|SECTION|2|HEADER|9|$ACADVER|1|AC1032|9|$HANDSEED|5|FFFF|0|ENDSEC|0|SECTION|2|TABLES|"
              "0|TABLE|2|STYLE|5|90|70|1|0|STYLE|5|91|2|Title|70|0|0|ENDTAB|"
              "0|TABLE|2|DIMSTYLE|5|92|70|1|0|DIMSTYLE|105|93|2|ISO|70|0|0|ENDTAB|0|ENDSEC|" +
              rest + "0|SECTION|2|ENTITIES|" + entities + "0|ENDSEC|0|EOF"));
}

template <class T>
std::shared_ptr<T> at(const OdDbDatabasePtr& db, std::uint64_t handle, OdDb::OpenMode mode = OdDb::kForWrite) {
    return db->getOdDbObjectId(handle).open<T>(mode);
}

} // namespace

TEST(TypedEntities, TextsSayAndTakeTheirProperties) {
    const auto db =
        drawing("0|TEXT|5|1|100|AcDbEntity|8|0|100|AcDbText|10|1|20|2|30|0|40|2.5|1|a|72|4|11|3|21|4|31|0|"
                "100|AcDbText|73|2|"
                "0|ATTRIB|5|2|100|AcDbEntity|8|0|100|AcDbText|10|0|40|1|1|v|100|AcDbAttribute|2|T|70|8|74|3|");
    const std::string first = db->bytes();
    const auto text = at<OdDbText>(db, 1);
    EXPECT_EQ(text->horizontalMode(), 4);
    EXPECT_EQ(text->verticalMode(), 2);
    EXPECT_EQ(text->alignmentPoint(), (OdGePoint3d{3, 4, 0}));
    EXPECT_EQ(text->textStyleName(), L"STANDARD");
    EXPECT_EQ(text->setTextStyle(L"None"), Tavo::eKeyNotFound);
    EXPECT_EQ(text->setTextStyle(L"title"), Tavo::eOk);
    EXPECT_EQ(text->setRotation(kPi / 2), Tavo::eOk);
    EXPECT_DOUBLE_EQ(text->rotation(), kPi / 2);
    EXPECT_EQ(text->setHeight(0), Tavo::eOutOfRange);
    EXPECT_EQ(text->setHeight(5), Tavo::eOk);
    EXPECT_THAT(db->bytes(),
                HasSubstr(lines("40|5.0|1|a|50|90.0|7|title|72|4|11|3|21|4|31|0|100|AcDbText|73|2")));
    const auto attribute = at<OdDbAttribute>(db, 2);
    EXPECT_EQ(attribute->verticalMode(), 3);
    EXPECT_TRUE(attribute->isPreset());
    EXPECT_EQ(attribute->setInvisible(true), Tavo::eOk);
    EXPECT_EQ(attribute->setInvisible(true), Tavo::eOk);
    EXPECT_TRUE(attribute->isPreset() && attribute->isInvisible()) << "one bit of several";
    EXPECT_EQ(at<OdDbAttribute>(db, 2, OdDb::kForRead)->setInvisible(false), Tavo::eNotOpenForWrite);
    while (db->undo()) {
    }
    EXPECT_EQ(db->bytes(), first);
}

TEST(TypedEntities, InsertsKnowTheirBlocks) {
    const std::string blocks =
        "0|SECTION|2|BLOCKS|0|BLOCK|5|A1|8|0|2|DOOR|70|0|0|INSERT|5|A2|8|0|2|LEAF|0|ENDBLK|5|A3|8|0|"
        "0|BLOCK|5|B1|8|0|2|*U1|70|1|0|ENDBLK|5|B2|8|0|0|BLOCK|5|C1|8|0|2|SITE|70|4|1|site.dxf|0|ENDBLK|5|C2|8|"
        "0|0|ENDSEC|";
    const auto records = [](const std::string& more) {
        return "0|SECTION|2|TABLES|0|TABLE|2|BLOCK_RECORD|5|80|70|3|0|BLOCK_RECORD|5|81|2|DOOR|0|BLOCK_RECORD|"
               "5|82|2|*U1|" +
               more + "0|BLOCK_RECORD|5|83|2|SITE|0|ENDTAB|0|ENDSEC|";
    };
    const std::string head = "0|SECTION|2|HEADER|9|$ACADVER|1|AC1032|0|ENDSEC|";
    const std::string entities =
        "0|SECTION|2|ENTITIES|0|INSERT|5|1|8|0|2|*U1|50|180|0|INSERT|5|2|8|0|2|SITE|0|INSERT|5|3|8|0|"
        "2|GONE|41|2|70|-5|0|ENDSEC|0|EOF";
    const auto db =
        openText(lines(head + records("1001|AcDbBlockRepBTag|1070|1|1005|81|") + blocks + entities));
    const auto dynamic = at<OdDbBlockReference>(db, 1);
    EXPECT_EQ(dynamic->blockName(), L"*U1");
    EXPECT_EQ(dynamic->effectiveName(), L"DOOR");
    EXPECT_DOUBLE_EQ(dynamic->rotation(), kPi);
    EXPECT_FALSE(dynamic->isExternalReference());
    EXPECT_TRUE(at<OdDbBlockReference>(db, 2)->isExternalReference());
    const auto gone = at<OdDbBlockReference>(db, 3);
    EXPECT_TRUE(gone->blockTableRecordId().isNull());
    EXPECT_EQ(gone->effectiveName(), L"GONE");
    EXPECT_EQ(gone->setBlock(L"NOWHERE"), Tavo::eKeyNotFound);
    EXPECT_EQ(gone->setBlock(L"DOOR"), Tavo::eOk);
    EXPECT_EQ(at<OdDbBlockReference>(db, 0xA2)->setBlock(L"DOOR"), Tavo::eInvalidInput);
    // A record that names something else, or itself, is what it is.
    for (const char* tie : {"1001|AcDbBlockRepBTag|1005|1|", "1001|AcDbBlockRepBTag|1005|82|", ""}) {
        const auto other = openText(lines(head + records(tie) + blocks + entities));
        EXPECT_EQ(at<OdDbBlockReference>(other, 1)->effectiveName(), L"*U1");
    }
    EXPECT_EQ(appendEntity(EntityHome::block(db->getOdDbObjectId(0x83)), LineGeometry{}).status,
              Tavo::eNotHandled)
        << "what another drawing defines isn't added to here";
}

TEST(TypedEntities, MultilineTextsTurnByDirectionOrAngle) {
    const auto db =
        drawing("0|MTEXT|5|1|100|AcDbEntity|8|0|100|AcDbMText|40|1|71|5|1|a|11|0|21|1|31|0|"
                "0|MTEXT|5|2|100|AcDbEntity|8|0|100|AcDbMText|40|1|1|b|11|0|21|1|31|0|50|0.5|"
                "0|MTEXT|5|3|100|AcDbEntity|8|0|100|AcDbMText|40|1|1|c|7|Title|210|0|220|0|230|1|42|9|");
    EXPECT_DOUBLE_EQ(at<OdDbMText>(db, 1)->rotation(), kPi / 2);
    EXPECT_DOUBLE_EQ(at<OdDbMText>(db, 2)->rotation(), 0.5) << "the last one counts";
    EXPECT_EQ(at<OdDbMText>(db, 1)->attachment(), 5);
    for (std::uint64_t handle = 1; handle <= 3; ++handle) {
        const OdDbObjectId id = db->getOdDbObjectId(handle);
        const EntityProperty* rotation = findProperty(entityKindOf(id), L"Rotation");
        EXPECT_EQ(setPropertyValue(id, *rotation, 1.25), Tavo::eOk);
        EXPECT_NEAR(at<OdDbMText>(db, handle)->rotation(), 1.25, 1e-12);
        // A shape drawn of it turns, too.
        EXPECT_NEAR(std::get<MTextGeometry>(geometryOf(id)).rotation, 1.25, 1e-12);
        EXPECT_TRUE(db->undo());
    }
    EXPECT_FALSE(db->hasUndo()) << "each was one step";
}

TEST(TypedEntities, TheContentsBesideATableChangeWithIt) {
    const std::string cell =
        "1|LINKEDTABLEDATACELL_BEGIN|90|0|301|CUSTOMDATA|1|DATAMAP_BEGIN|309|DATAMAP_END|95|1|302|CONTENT|"
        "1|CELLCONTENT_BEGIN|90|1|300|VALUE|93|2|90|4|1|one|94|0|300||302|one|304|ACVALUE_END|91|0|"
        "309|CELLCONTENT_END|309|LINKEDTABLEDATACELL_END|";
    const std::string empty = "1|LINKEDTABLEDATACELL_BEGIN|90|0|95|0|309|LINKEDTABLEDATACELL_END|";
    const std::string shown = "171|1|173|0|301|CELL_VALUE|93|2|90|4|1|one|94|0|300||302|one|304|ACVALUE_END|";
    const auto db =
        openText(lines("0|SECTION|2|HEADER|9|$ACADVER|1|AC1032|0|ENDSEC|0|SECTION|2|ENTITIES|0|ACAD_TABLE|5|1|"
                       "102|{ACAD_XDICTIONARY|360|20|"
                       "102|}|100|AcDbEntity|8|0|100|AcDbBlockReference|2|*T1|100|AcDbTable|91|1|92|2|" +
                       shown + "171|1|173|0|301|CELL_VALUE|93|3|90|0|91|0|94|0|300||302||304|ACVALUE_END|" +
                       "0|ENDSEC|0|SECTION|2|OBJECTS|0|DICTIONARY|5|C|100|AcDbDictionary|0|DICTIONARY|5|20|330|"
                       "1|100|AcDbDictionary|"
                       "3|ACAD_XREC_ROUNDTRIP|360|21|0|XRECORD|5|21|330|20|100|AcDbXrecord|102|ACAD_ROUNDTRIP_"
                       "2008_TABLE_ENTITY|360|22|"
                       "0|TABLECONTENT|5|22|330|21|100|AcDbLinkedData|" +
                       cell + empty + "0|ENDSEC|0|EOF"));
    const std::string first = db->bytes();
    const auto table = at<OdDbTable>(db, 1);
    EXPECT_EQ(table->setTextString(0, 0, L"two"), Tavo::eOk);
    EXPECT_THAT(db->bytes(), Not(HasSubstr("one")));
    EXPECT_THAT(db->bytes(),
                HasSubstr(lines("300|VALUE|93|2|90|4|1|two|94|0|300||302|two|304|ACVALUE_END|91|0")));
    EXPECT_EQ(table->setTextString(0, 1, L"new"), Tavo::eNotHandled) << "those contents have no place for it";
    EXPECT_TRUE(db->undo());
    EXPECT_EQ(db->bytes(), first);
}

TEST(TypedEntities, ImagesDimensionsAndLeaders) {
    const auto db = drawing(
        "0|IMAGE|5|1|100|AcDbEntity|8|0|100|AcDbRasterImage|90|0|10|1|20|2|30|0|11|0|21|0.5|31|0|12|-0.5|22|0|"
        "32|0|13|640|23|480|340|30|70|7|280|1|281|60|71|2|91|3|14|0|24|0|14|5|24|0|14|5|24|5|"
        "0|ARC_DIMENSION|5|2|100|AcDbEntity|8|0|100|AcDbDimension|2|*D9|70|37|3|ISO|"
        "0|DIMENSION|5|3|100|AcDbEntity|8|0|100|AcDbDimension|70|6|"
        "0|LEADER|5|4|100|AcDbEntity|8|0|100|AcDbLeader|3|ISO|71|1|72|1|76|2|10|1|20|2|30|3|10|4|20|5|340|1|",
        "0|SECTION|2|OBJECTS|0|IMAGEDEF|5|30|100|AcDbRasterImageDef|90|0|1|a.png|10|640|0|ENDSEC|");
    const auto image = at<OdDbRasterImage>(db, 1);
    EXPECT_EQ(image->width(), 320);
    EXPECT_EQ(image->height(), 240);
    EXPECT_DOUBLE_EQ(image->rotation(), kPi / 2);
    EXPECT_EQ(image->clipBoundary().size(), 3u);
    EXPECT_EQ(image->sourceFileName(), L"a.png");
    EXPECT_EQ(image->setFade(101), Tavo::eOutOfRange);
    EXPECT_EQ(image->setFade(20), Tavo::eOk);
    EXPECT_EQ(image->setSourceFileName(L"..\\b.png"), Tavo::eOk);
    EXPECT_THAT(db->bytes(), HasSubstr(lines("280|1|281|60|283|20|71|2")));
    EXPECT_THAT(db->bytes(), HasSubstr(lines("90|0|1|..\\b.png|10|640")));
    const auto arc = at<OdDbDimension>(db, 2);
    EXPECT_EQ(arc->dimensionKind(), OdDbDimension::kArcLength);
    EXPECT_EQ(arc->dimensionStyleName(), L"ISO");
    EXPECT_TRUE(arc->dimBlockId().isNull());
    EXPECT_FALSE(arc->measurement().has_value());
    EXPECT_EQ(at<OdDbDimension>(db, 3)->dimensionKind(), OdDbDimension::kOrdinate);
    EXPECT_EQ(at<OdDbDimension>(db, 3)->setDimensionStyle(L"none"), Tavo::eKeyNotFound);
    EXPECT_EQ(at<OdDbDimension>(db, 3)->setDimensionStyle(L"ISO"), Tavo::eOk);
    const auto leader = at<OdDbLeader>(db, 4);
    EXPECT_EQ(leader->vertices(), (std::vector<OdGePoint3d>{{1, 2, 3}, {4, 5, 0}}));
    EXPECT_TRUE(leader->isSplined() && leader->hasArrowHead());
    EXPECT_EQ(leader->annotationId(), image->objectId());
}

// A dimension whose file does not say what it measures is measured by its points.
TEST(TypedEntities, DimensionsMeasureThemselves) {
    auto measured = [](const std::string& own) {
        const auto db = drawing("0|DIMENSION|5|1|100|AcDbEntity|8|0|100|AcDbDimension|" + own);
        return at<OdDbDimension>(db, 1)->measurement();
    };
    const std::string ends = "13|1|23|2|33|0|14|4|24|6|34|0|";
    EXPECT_DOUBLE_EQ(measured("70|0|" + ends).value(), 3);
    EXPECT_DOUBLE_EQ(measured("70|32|50|90|" + ends).value(), 4);
    EXPECT_DOUBLE_EQ(measured("70|33|" + ends).value(), 5);
    EXPECT_DOUBLE_EQ(measured("70|33|42|7.5|" + ends).value(), 7.5) << "what the file says goes first";
    EXPECT_DOUBLE_EQ(measured("70|33|210|0|220|-1|230|0|" + ends).value(), 3) << "as seen from the front";
    EXPECT_DOUBLE_EQ(measured("70|35|10|0|20|0|15|6|25|8|").value(), 10);
    EXPECT_DOUBLE_EQ(measured("70|36|10|0|20|0|15|3|25|4|").value(), 5);
    EXPECT_DOUBLE_EQ(measured("70|102|10|1|20|1|13|5|23|9|").value(), 4) << "along x";
    EXPECT_DOUBLE_EQ(measured("70|38|10|1|20|1|13|5|23|9|").value(), 8) << "along y";
    EXPECT_NEAR(measured("70|38|10|1|20|1|13|5|23|9|51|90|").value(), 4, 1e-12) << "along a turned y";

    const std::string cross = "13|-1|23|0|14|1|24|0|15|-1|25|-1|10|1|20|1|";
    EXPECT_NEAR(measured("70|34|16|5|26|1|" + cross).value(), kPi / 4, 1e-12);
    EXPECT_NEAR(measured("70|34|16|0|26|5|" + cross).value(), kPi * 3 / 4, 1e-12);
    EXPECT_NEAR(measured("70|34|16|-5|26|-1|" + cross).value(), kPi / 4, 1e-12);
    EXPECT_FALSE(measured("70|34|16|0|26|5|13|0|23|0|14|1|24|0|15|0|25|3|10|1|20|3|")) << "parallel lines";
    const std::string corner = "15|0|25|0|13|2|23|0|14|0|24|2|";
    EXPECT_NEAR(measured("70|37|10|1|20|1|" + corner).value(), kPi / 2, 1e-12);
    EXPECT_NEAR(measured("70|37|10|-1|20|-1|" + corner).value(), kPi * 3 / 2, 1e-12);

    EXPECT_FALSE(measured("70|0|13|1|23|2|"));
    const auto db = drawing("0|DIMENSION|5|1|100|AcDbEntity|8|0|100|AcDbDimension|70|0|13|1|");
    const OdDbObjectId id = at<OdDbDimension>(db, 1)->objectId();
    const EntityProperty* property = findProperty(entityKindOf(id), L"Measurement");
    ASSERT_TRUE(property);
    EXPECT_TRUE(std::holds_alternative<std::monostate>(propertyValue(id, *property))) << "and not 0";
}

TEST(TypedEntities, TagsAreFoundBySubclassWithAndWithoutMarks) {
    const auto db = drawing(
        "0|ATTDEF|5|1|100|AcDbEntity|8|0|100|AcDbText|1|value|70|9|100|AcDbAttributeDefinition|3|ask|2|T|70|4|"
        "0|ATTDEF|5|2|8|0|1|value|3|ask|2|T|70|4|"
        "0|ATTDEF|5|3|100|AcDbEntity|8|0|70|9|100|AcDbOdd|1|value|3|ask|2|T|70|4|"
        "0|ATTDEF|5|4|100|AcDbEntity|8|0|1|value|3|ask|2|T|70|4|1001|X|1000|y|");
    for (std::uint64_t handle = 1; handle <= 4; ++handle) {
        const auto definition = at<OdDbAttributeDefinition>(db, handle);
        EXPECT_TRUE(definition->isVerifiable()) << handle;
        EXPECT_FALSE(definition->isInvisible()) << handle << ": the other subclass's flags";
        EXPECT_EQ(definition->prompt(), L"ask");
        EXPECT_EQ(definition->setPrompt(L"again"), Tavo::eOk);
        EXPECT_EQ(definition->prompt(), L"again");
        EXPECT_EQ(writeTag(*definition, {"AcDbAttributeDefinition", 70, 3}, std::int64_t{1}),
                  Tavo::eKeyNotFound);
        EXPECT_EQ(removeTag(*definition, {"AcDbAttributeDefinition", 70}), Tavo::eOk);
        EXPECT_FALSE(definition->isVerifiable());
    }
    EXPECT_THAT(db->bytes(), HasSubstr(lines("1001|X|1000|y")));
}

TEST(TypedEntities, BinaryDrawingsTakeTheSameEdits) {
    // The bytes of a small binary drawing: group codes of two bytes, texts closed by a zero.
    std::string bytes("AutoCAD Binary DXF\r\n\x1A\0", 22);
    const auto text = [&](int code, std::string_view value) {
        bytes += static_cast<char>(code & 0xFF);
        bytes += static_cast<char>(code >> 8);
        bytes += value;
        bytes += '\0';
    };
    for (const auto& [code, value] : std::vector<std::pair<int, const char*>>{{0, "SECTION"},
                                                                              {2, "HEADER"},
                                                                              {9, "$ACADVER"},
                                                                              {1, "AC1015"},
                                                                              {0, "ENDSEC"},
                                                                              {0, "SECTION"},
                                                                              {2, "ENTITIES"},
                                                                              {0, "MTEXT"},
                                                                              {5, "1"},
                                                                              {100, "AcDbEntity"},
                                                                              {8, "0"},
                                                                              {100, "AcDbMText"},
                                                                              {1, "short"},
                                                                              {0, "ENDSEC"},
                                                                              {0, "EOF"}})
        text(code, value);
    const auto db = openText(bytes);
    ASSERT_TRUE(db && db->isBinary());
    const auto mtext = at<OdDbMText>(db, 1);
    ASSERT_TRUE(mtext);
    const std::wstring longer(700, L'\xE9');
    EXPECT_EQ(mtext->setContents(longer), Tavo::eOk);
    EXPECT_EQ(setHyperlink(mtext->objectId(), {L"www", L"said", L""}), Tavo::eOk);
    EXPECT_EQ(mtext->setLinetypeScale(2), Tavo::eOk);
    EXPECT_EQ(appendEntity(EntityHome::modelSpace(*db), CircleGeometry{{1, 2, 3}, 4}).status, Tavo::eOk);
    const auto again = OdDbDatabase::openBytes(db->bytes(), "again.dxf");
    ASSERT_TRUE(again.database && again.problems.empty());
    const auto same = at<OdDbMText>(again.database, 1);
    EXPECT_EQ(same->contents().view(), longer);
    EXPECT_EQ(same->linetypeScale(), 2);
    EXPECT_EQ(hyperlinkOf(same->objectId()), (Hyperlink{L"www", L"said", L""}));
    EXPECT_EQ(std::get<CircleGeometry>(geometryOf(*++again.database->modelSpace().begin())).radius, 4);
    while (db->undo()) {
    }
    EXPECT_TRUE(db->bytes() == bytes);
}

TEST(TypedEntities, HostileRecordsAreReadInVain) {
    // Every kind with tags that say nonsense: huge counts, numbers that are none, brackets that never close.
    const std::string nonsense =
        "70|-32768|71|99999999999|72|x|73|nan|90|2147483647|91|-1|92|2000000000|93|9|40|inf|41|-1e308|"
        "42|1e400|50|nan|10|1e308|20|nan|11|-1e308|1||3|\\S|2||300|CONTEXT_DATA{|302|LEADER{|304|x{|"
        "301|CELL_VALUE|340|FFFFFFFFFFFFFFFF|171|1|171|2|1001|ACAD|1000|DSTYLE|1002|{|1070|41|1070|40|"
        "1002|}|1001|PE_URL|1002|{|1002|{|1002|{|1002|}|1002|}|1002|}|1002|}|";
    std::size_t texts = 0;
    for (const EntityKind& kind : entityKinds()) {
        const auto db =
            drawing("0|" + std::string(kind.type) + "|5|1|" + nonsense + "0|VERTEX|5|2|10|nan|42|1e308|");
        const std::string first = db->bytes();
        const OdDbObjectId id = db->getOdDbObjectId(1);
        for (const EntityProperty* property : propertiesOf(entityKindOf(id))) {
            propertyValue(id, *property);
            setPropertyValue(id, *property, 1.5);
            setPropertyValue(id, *property, std::int64_t{1});
            setPropertyValue(id, *property, OdString(L"x"));
        }
        for (const TextField& field : textFieldsOf(id)) {
            setTextField(field, L"y");
            ++texts;
        }
        copyEntity(id, EntityHome::paperSpace(*db));
        while (db->undo()) {
        }
        EXPECT_EQ(db->bytes(), first) << std::string(kind.type);
    }
    EXPECT_GT(texts, 0u);
}
