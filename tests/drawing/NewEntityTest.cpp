#include "tests/drawing/Drawings.h"

#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/entities/NewEntity.h"
#include "platform/drawing/entities/OdDbBlockReference.h"
#include "platform/drawing/entities/OdDbDimension.h"
#include "platform/drawing/entities/OdDbText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

using namespace drawings;
using namespace tv::dwg;
using testing::HasSubstr;
using testing::Not;

namespace {

TextGeometry text(const wchar_t* value) {
    TextGeometry out;
    out.text = OdString(value);
    out.height = 2.5;
    out.horizontal = 1;
    out.vertical = 2;
    out.rotation = 0.5;
    out.alignment = OdGePoint3d{3, 4, 0};
    return out;
}

PolylineGeometry polyline(bool is3d) {
    PolylineGeometry out;
    out.vertices = {{{0, 0, 7}, 0, 0, 0.5}, {{4, 0, 7}, 0.1, 0.2, 0}, {{4, 3, 7}}};
    out.closed = true;
    out.is3d = is3d;
    return out;
}

std::vector<NewEntity> everything() {
    MTextGeometry mtext;
    mtext.contents = OdString(std::wstring(600, L'\xAC00') + L"\\Pend");
    mtext.height = 2.5;
    mtext.rotation = 1;
    InsertGeometry grid;
    grid.block = OdString(L"DOOR");
    grid.columns = 2;
    grid.columnSpacing = 5;
    InsertGeometry once;
    once.block = OdString(L"door");
    once.scale = {2, 2, 2};
    SolidGeometry solid;
    solid.corners[1] = {1, 0, 0};
    solid.corners[2] = {1, 1, 0};
    return {LineGeometry{{1, 2, 3}, {4, 5, 6}},
            PointGeometry{{1, 1, 1}},
            CircleGeometry{{1, 2, 0}, 3, {0, 0, -1}},
            ArcGeometry{{1, 2, 0}, 3, 0.5, 1.5},
            EllipseGeometry{{1, 2, 0}, {3, 0, 0}, 0.5, 0, 6},
            polyline(false),
            polyline(true),
            solid,
            text(L"one"),
            mtext,
            NewInsert{grid, {}},
            NewInsert{once, {{OdString(L"TAG"), text(L"value")}}},
            NewAttributeDefinition{OdString(L"TAG"), OdString(L"Which?"), text(L"x"), false, true, false},
            NewDimension{false, {0, 0, 0}, {10, 5, 0}, {0, 20, 0}, 0, OdString(L"<> m"), {}},
            NewFill{{polyline(false)}}};
}

void addBlock(const OdDbDatabasePtr& db, const wchar_t* name) {
    ASSERT_FALSE(db->getBlockTableId().open<OdDbBlockTable>(OdDb::kForWrite)->add(name).isNull());
}

OdDbObjectId block(const OdDbDatabasePtr& db, const wchar_t* name) {
    return db->getBlockTableId().open<OdDbBlockTable>()->getAt(name);
}

std::size_t count(const OdDbEntityRange& range) {
    return static_cast<std::size_t>(std::distance(range.begin(), range.end()));
}

} // namespace

TEST(NewEntities, AreReadBackInEveryVersionAndPlace) {
    for (const auto version : {OdDb::DxfVersion::kR12, OdDb::DxfVersion::kR2000, OdDb::DxfVersion::kR2018}) {
        SCOPED_TRACE(versionText(version));
        const auto db = OdDbDatabase::create(version);
        addBlock(db, L"DOOR");
        addBlock(db, L"HOME");
        const std::string first = db->bytes();
        const bool old = version == OdDb::DxfVersion::kR12;
        std::size_t made = 0;
        for (const EntityHome& home : {EntityHome::modelSpace(*db), EntityHome::paperSpace(*db),
                                       EntityHome::block(block(db, L"HOME"))}) {
            made = 0;
            for (const NewEntity& shape : everything()) {
                const std::string before = db->bytes();
                const AppendResult result = appendEntity(home, shape);
                if (result.status == Tavo::eNotHandled) {
                    EXPECT_TRUE(old);
                    EXPECT_EQ(db->bytes(), before);
                    continue;
                }
                ASSERT_EQ(result.status, Tavo::eOk) << shape.index();
                ++made;
                const auto entity = result.id.open<OdDbEntity>();
                ASSERT_TRUE(entity);
                EXPECT_EQ(entity->isInPaperSpace(), home.isPaper());
                EXPECT_EQ(db->getOdDbObjectId(entity->handle()), result.id);
            }
            EXPECT_EQ(made, old ? 12u : 15u);
        }
        const auto again = OdDbDatabase::openBytes(db->bytes(), "again.dxf");
        ASSERT_TRUE(again.database && again.problems.empty());
        EXPECT_EQ(count(again.database->modelSpace()), made);
        EXPECT_EQ(count(again.database->paperSpace()), made);
        const auto home = block(again.database, L"HOME").open<OdDbBlockTableRecord>();
        EXPECT_EQ(count(home->entities()), made);
        EXPECT_TRUE(home->hasAttributeDefinitions());
        for (const OdDbObjectId id : again.database->modelSpace()) {
            const EntityGeometry shape = geometryOf(id);
            if (const auto* circle = std::get_if<CircleGeometry>(&shape)) {
                EXPECT_EQ(circle->normal.z, -1);
            }
            if (const auto* line = std::get_if<PolylineGeometry>(&shape)) {
                EXPECT_EQ(line->vertices.size(), 3u);
                EXPECT_EQ(line->vertices[1].position, (OdGePoint3d{4, 0, 7}));
                EXPECT_EQ(line->vertices[0].bulge, line->is3d ? 0 : 0.5);
            }
            if (const auto* mtext = std::get_if<MTextGeometry>(&shape)) {
                EXPECT_EQ(mtext->plain.getLength(), 604);
            }
            if (const auto* single = std::get_if<TextGeometry>(&shape)) {
                EXPECT_EQ(single->vertical, 2);
                EXPECT_EQ(single->alignment, (OdGePoint3d{3, 4, 0}));
            }
            if (const auto insert = id.open<OdDbBlockReference>(); insert && insert->columns() == 1) {
                ASSERT_FALSE(insert->attribute(L"tag").isNull());
                EXPECT_EQ(insert->attribute(L"tag").open<OdDbAttribute>()->textString(), L"value");
            }
            if (const auto dimension = id.open<OdDbDimension>()) {
                EXPECT_EQ((OdGePoint2d{dimension->realAt(10), dimension->realAt(20)}), (OdGePoint2d{10, 20}));
                const auto shown = dimension->dimBlockId().open<OdDbBlockTableRecord>();
                ASSERT_TRUE(shown);
                EXPECT_TRUE(shown->isAnonymous());
                std::wstring said;
                for (const OdDbObjectId part : shown->entities())
                    if (const auto number = part.open<OdDbText>()) said = number->textString().wstr();
                EXPECT_EQ(said, L"10.0000 m");
            }
        }
        while (db->undo())
            if (db->bytes() == first) break;
        EXPECT_EQ(db->bytes(), first);
    }
}

TEST(NewEntities, TakeTheCurrentPropertiesTheVersionHas) {
    const auto db = OdDbDatabase::create(OdDb::DxfVersion::kR2018);
    db->setHeaderVar(L"CECOLOR", HeaderValue::integer(3));
    db->setHeaderVar(L"CELTSCALE", HeaderValue::real(2));
    db->setHeaderVar(L"CELWEIGHT", HeaderValue::integer(50));
    db->setHeaderVar(L"CLAYER", HeaderValue::text(L"Gone"));
    const auto line = appendEntity(EntityHome::modelSpace(*db), LineGeometry{}).id.open<OdDbEntity>();
    EXPECT_EQ(line->color(), OdCmColor::byIndex(3));
    EXPECT_EQ(line->linetypeScale(), 2);
    EXPECT_EQ(line->lineWeight(), OdDb::kLnWt050);
    EXPECT_EQ(line->layer(), L"0") << "a layer the drawing lacks is nobody's";
    EXPECT_EQ(line->ownerId(), block(db, L"*Model_Space"));
    EXPECT_EQ(db->undoName(), L"LINE");

    // In a drawing without handles there are none, and without a section for them one is made.
    const auto bare = openText(lines("0|SECTION|2|HEADER|9|$ACADVER|1|AC1009|9|$HANDLING|70|0|0|ENDSEC|0|EOF"));
    const std::string first = bare->bytes();
    EXPECT_EQ(appendEntity(EntityHome::modelSpace(*bare), PointGeometry{{1, 2, 3}}).status, Tavo::eOk);
    EXPECT_THAT(
        bare->bytes(),
        HasSubstr(lines("0|ENDSEC|0|SECTION|2|ENTITIES|0|POINT|8|0|10|1.0|20|2.0|30|3.0|0|ENDSEC|0|EOF")));
    EXPECT_TRUE(bare->undo());
    EXPECT_EQ(bare->bytes(), first);
}

TEST(NewEntities, WhatMakesNoSenseIsRefusedAndLeavesNothing) {
    const auto db = OdDbDatabase::create(OdDb::DxfVersion::kR2018);
    addBlock(db, L"A");
    addBlock(db, L"B");
    const auto insert = [](const wchar_t* name) {
        NewInsert out;
        out.insert.block = OdString(name);
        return out;
    };
    const auto a = EntityHome::block(block(db, L"A"));
    const auto b = EntityHome::block(block(db, L"B"));
    EXPECT_EQ(appendEntity(a, insert(L"B")).status, Tavo::eOk);
    const std::string first = db->bytes();
    EXPECT_EQ(appendEntity(b, insert(L"a")).status, Tavo::eInvalidInput) << "B is in A already";
    EXPECT_EQ(appendEntity(b, insert(L"B")).status, Tavo::eInvalidInput);
    EXPECT_EQ(appendEntity(b, insert(L"C")).status, Tavo::eKeyNotFound);
    const auto model = EntityHome::modelSpace(*db);
    EXPECT_EQ(appendEntity(model, CircleGeometry{{}, 0}).status, Tavo::eOutOfRange);
    EXPECT_EQ(appendEntity(model, LineGeometry{{std::numeric_limits<double>::infinity(), 0, 0}, {}}).status,
              Tavo::eOutOfRange);
    EXPECT_EQ(appendEntity(model, PolylineGeometry{}).status, Tavo::eInvalidInput);
    TextGeometry odd = text(L"x");
    odd.style = OdString(L"None");
    EXPECT_EQ(appendEntity(model, odd).status, Tavo::eKeyNotFound);
    EXPECT_EQ(appendEntity(model, NewAttributeDefinition{OdString(L"TWO WORDS"), {}, text(L"")}).status,
              Tavo::eInvalidInput);
    EXPECT_EQ(appendEntity(EntityHome::block({}), LineGeometry{}).status, Tavo::eKeyNotFound);
    EXPECT_EQ(db->bytes(), first);
}

TEST(NewEntities, CopiesLeaveTheirTiesBehind) {
    const auto db = openText(lines(
        "0|SECTION|2|HEADER|9|$ACADVER|1|AC1032|9|$HANDSEED|5|100|0|ENDSEC|0|SECTION|2|ENTITIES|"
        "0|INSERT|5|1|102|{ACAD_XDICTIONARY|360|AA|102|}|102|{ACAD_REACTORS|330|AB|102|}|330|1F|100|AcDbEntity|"
        "8|Wall|62|7|100|AcDbBlockReference|66|1|2|DOOR|10|0.50|1001|TIES|1005|1|1001|ACAD|1000|kept|"
        "0|ATTRIB|5|2|330|1|100|AcDbEntity|8|0|100|AcDbText|1|v|100|AcDbAttribute|2|T|0|SEQEND|5|3|330|1|8|0|"
        "0|HATCH|5|4|330|1F|100|AcDbEntity|8|0|100|AcDbHatch|2|SOLID|71|1|91|1|97|1|330|1|75|0|"
        "0|VIEWPORT|5|5|8|0|0|3DSOLID|5|6|100|AcDbEntity|8|0|100|AcDbModelerGeometry|290|1|2|{1}|100|"
        "AcDb3dSolid|"
        "350|0|0|REGION|5|7|100|AcDbEntity|8|0|100|AcDbModelerGeometry|70|1|1|nonsense|0|ENDSEC|0|EOF"));
    const std::string first = db->bytes();
    const auto model = EntityHome::modelSpace(*db);
    const AppendResult copy = copyEntity(db->getOdDbObjectId(1), model);
    ASSERT_EQ(copy.status, Tavo::eOk);
    EXPECT_THAT(db->bytes(),
                HasSubstr(lines("0|INSERT|5|100|330|1F|100|AcDbEntity|8|Wall|62|7|100|AcDbBlockReference|66|1|"
                                "2|DOOR|10|0.50|1001|ACAD|1000|kept|0|ATTRIB|5|101|330|100|100|AcDbEntity")));
    EXPECT_EQ(copy.id.open<OdDbBlockReference>()->attributes().size(), 1u);
    const AppendResult hatch = copyEntity(db->getOdDbObjectId(4), EntityHome::paperSpace(*db));
    EXPECT_TRUE(hatch.id.open<OdDbEntity>()->isInPaperSpace());
    EXPECT_THAT(db->bytes(), HasSubstr(lines("67|1|8|0|100|AcDbHatch|2|SOLID|71|0|91|1|97|0|75|0")));
    EXPECT_EQ(copyEntity(db->getOdDbObjectId(5), model).status, Tavo::eNotHandled);
    EXPECT_EQ(copyEntity(db->getOdDbObjectId(2), model).status, Tavo::eNotHandled);
    EXPECT_EQ(copyEntity(db->getOdDbObjectId(6), model).status, Tavo::eNotHandled) << "its shape is elsewhere";
    EXPECT_EQ(copyEntity(db->getOdDbObjectId(7), model).status, Tavo::eOk);
    while (db->undo()) {
    }
    EXPECT_EQ(db->bytes(), first);
}
