#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdDbLayout.h"
#include "platform/drawing/entities/NewEntity.h"
#include "tavocad/DrawingScenes.h"
#include "tavocad/scene/SceneBuilder.h"
#include "tests/drawing/RandomEdits.h"
#include "tests/tavocad/SceneText.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>

using namespace tv::dwg;

namespace {

const Box everywhere{-1e6, -1e6, 1e6, 1e6};

std::string recordsOf(const Scene& scene, const std::vector<std::uint32_t>& entities) {
    std::ostringstream out;
    for (const std::uint32_t entity : entities)
        out << ' ' << scene.entities[entity].record;
    return out.str();
}

// Everything a scene answers, in words.
std::string answersOf(const Scene& scene) {
    std::ostringstream out;
    out.precision(17);
    auto tell = [&](OdGePoint2d p) { out << ' ' << p.x << ',' << p.y; };
    Scene::Seen seen;
    scene.look(everywhere, -1, seen);
    for (const std::uint32_t number : seen.items) {
        const Item& item = scene.items[number];
        const Style& style = scene.styleOf(item);
        out << scene.entities[item.entity].record << " kind " << int(item.kind) << " flags " << int(item.flags)
            << " paint " << style.paint.rgb << style.paint.foreground << " weight " << style.lineweight
            << " alpha " << int(style.alpha) << " dashes";
        for (const double dash : scene.styles.patterns()[style.pattern].dashes)
            out << ' ' << dash;
        if (item.kind == Item::Kind::text) {
            const Text& text = scene.texts[item.first];
            for (const wchar_t c : scene.lettersOf(text))
                out << ' ' << static_cast<unsigned>(c);
            for (const OdGePoint2d& corner : scene.cornersOf(text))
                tell(corner);
        } else {
            for (const OdGePoint2d& point : scene.pointsOf(item))
                tell(point);
        }
        out << '\n';
    }
    for (const Box& box : {scene.box, scene.extents})
        if (!box.empty()) {
            tell({box.left, box.bottom});
            tell({box.right, box.top});
        }
    for (int i = 0; i < 12; ++i) {
        const OdGePoint2d at{i * 3.0 - 4, (i * 7) % 12 - 1.0};
        if (const auto hit = scene.pick(at, 2))
            out << "\npick " << scene.entities[hit->entity].record << ' ' << hit->distance;
        const Box box{at.x - 3, at.y - 2, at.x + 3, at.y + 2};
        out << "\ncrossing" << recordsOf(scene, scene.crossing(box)) << "\ninside"
            << recordsOf(scene, scene.inside(box));
    }
    return out.str();
}

// A new drawing with those entities; every one stays where the random edits find it.
OdDbDatabasePtr drawingWith(std::string entities) {
    std::string bytes = OdDbDatabase::create()->bytes();
    std::ranges::replace(entities, '|', '\n');
    bytes.insert(bytes.find('\n', bytes.find("ENTITIES")) + 1, entities);
    return OdDbDatabase::openBytes(bytes).database;
}

OdDbDatabasePtr smallDrawing() {
    std::string entities;
    for (int i = 0; i < 8; ++i) {
        const std::string x = std::to_string(i * 3), handle = std::to_string(i);
        entities += "0|LINE|5|F0" + handle + "|100|AcDbEntity|8|0|100|AcDbLine|10|" + x + "|20|0|11|" + x +
                    ".5|21|9|0|TEXT|5|F1" + handle + "|100|AcDbEntity|8|0|100|AcDbText|10|" + x +
                    "|20|4|40|1|1|Text|100|AcDbText|0|CIRCLE|5|F2" + handle +
                    "|100|AcDbEntity|8|0|100|AcDbCircle|10|" + x + "|20|5|40|2|";
    }
    for (int i = 0; i < 3; ++i) {
        const std::string handle = "F3" + std::to_string(i), place = "|10|" + std::to_string(i * 9) + "|20|2|";
        entities += "0|INSERT|5|" + handle + "|100|AcDbEntity|8|0|100|AcDbBlockReference|66|1|2|B" + place +
                    "0|ATTRIB|5|A" + handle + "|100|AcDbEntity|8|0|100|AcDbText" + place +
                    "40|1|1|Value|100|AcDbAttribute|2|TAG|70|0|0|SEQEND|5|E" + handle + "|100|AcDbEntity|8|0|";
    }
    const auto database = drawingWith(entities);
    const auto blocks = database->getTableId(L"BLOCK_RECORD").open<OdDbSymbolTable>(OdDb::kForWrite);
    const PolylineGeometry corner{.vertices = {{{0, 0, 0}}, {{2, 0, 0}}, {{2, 3, 0}}}};
    EXPECT_EQ(appendEntity(EntityHome::block(blocks->add(L"B")), corner).status, Tavo::eOk);
    return database;
}

} // namespace

// Whatever was edited, undone and redone, in the model and through a sheet: the scene brought up to date
// answers what one made anew does, and one somebody held on to is still what it was.
TEST(LiveScene, AnswersWhatOneMadeAnewDoes) {
    std::size_t pieceByPiece = 0;
    for (unsigned seed = 0; seed < 12; ++seed) {
        std::mt19937 generator(seed);
        const drawings::Random random = [&](unsigned below) { return below ? generator() % below : 0; };
        const auto database = smallDrawing();
        ASSERT_TRUE(database);
        DrawingScenes scenes;
        (void)scenes.sceneOf(database);
        for (int step = 0; step < 150; ++step) {
            std::shared_ptr<const Scene> held;
            if (random(3) == 0) held = scenes.sceneOf(database);
            const std::string before = held ? answersOf(*held) : "";
            for (unsigned edits = 1 + random(3); edits > 0; --edits)
                switch (random(5)) {
                case 0:
                    database->undo();
                    break;
                case 1:
                    database->redo();
                    break;
                default:
                    drawings::editAnything(*database, random);
                }
            const auto updated = scenes.sceneOf(database);
            pieceByPiece += !updated->loose.empty();
            const Scene anew = buildScene(*database, scenes.layoutOf(database));
            ASSERT_EQ(answersOf(*updated), answersOf(anew)) << "seed " << seed << ", step " << step;
            ASSERT_EQ(updated->viewports.size(), anew.viewports.size());
            for (std::size_t i = 0; i < anew.viewports.size(); ++i)
                ASSERT_EQ(answersOf(*updated->viewports[i].model), answersOf(*anew.viewports[i].model));
            ASSERT_EQ(held ? answersOf(*held) : "", before) << "seed " << seed << ", step " << step;
        }
    }
    EXPECT_GT(pieceByPiece, 100U) << "not all of it was by making new ones";
}

// Edits that go to and fro keep to the pieces concerned: nothing else is drawn again.
TEST(LiveScene, RedrawsNothingElse) {
    const auto database = smallDrawing();
    DrawingScenes scenes;
    const std::size_t items = scenes.sceneOf(database)->items.size();
    int told = 0;
    const auto subscription = scenes.outdated.connect([&] { ++told; });
    const OdDbObjectId first = *database->modelSpace().begin();
    const std::string before = answersOf(*scenes.sceneOf(database));

    ASSERT_EQ(first.open<OdDbEntity>(OdDb::kForWrite)->setColor(OdCmColor::byIndex(1)), Tavo::eOk);
    ASSERT_EQ(first.open<OdDbEntity>(OdDb::kForWrite)->setLinetypeScale(2), Tavo::eOk);
    EXPECT_EQ(told, 1) << "once until somebody looks";
    EXPECT_EQ(scenes.sceneOf(database)->items.size(), items + 1);
    ASSERT_EQ(first.open<OdDbEntity>(OdDb::kForWrite)->erase(), Tavo::eOk);
    EXPECT_FALSE(scenes.sceneOf(database)->entityOf(first));
    EXPECT_GT(scenes.sceneOf(database)->box.left, -3) << "what is gone takes no room";
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(database->undo());
    EXPECT_EQ(answersOf(*scenes.sceneOf(database)), before);
    EXPECT_EQ(scenes.sceneOf(database)->loose.size(), 1U);

    const auto layer = database->layers()->getAt(L"0").open<OdDbLayerTableRecord>(OdDb::kForWrite);
    const std::size_t known = scenes.sceneOf(database)->items.size();
    ASSERT_EQ(layer->setIsOff(true), Tavo::eOk);
    EXPECT_TRUE(scenes.sceneOf(database)->box.empty());
    EXPECT_TRUE(database->undo());
    EXPECT_EQ(answersOf(*scenes.sceneOf(database)), before);
    EXPECT_EQ(scenes.sceneOf(database)->items.size(), known) << "a layer is no geometry";
}
