#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayout.h"
#include "tavocad/DrawingScenes.h"
#include "tavocad/scene/SceneBuilder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace tv::scene;

namespace {

// Entities in the "group|value" form put into a new drawing.
OdDbDatabasePtr drawingWith(std::string entities) {
    std::string bytes = OdDbDatabase::create(OdDb::DxfVersion::kR2000)->bytes();
    const std::size_t section = bytes.find("ENTITIES");
    const std::size_t at = bytes.find('\n', section) + 1;
    std::ranges::replace(entities, '|', '\n');
    bytes.insert(at, entities);
    auto opened = OdDbDatabase::openBytes(bytes);
    EXPECT_TRUE(opened.problems.empty());
    return opened.database;
}

std::string viewport(int number, const std::string& rest) {
    return "0|VIEWPORT|5|F0" + std::to_string(number) + "|100|AcDbEntity|67|1|8|0|100|AcDbViewport|" + rest +
           "69|" + std::to_string(number) + "|";
}

} // namespace

// The model lands where hand calculation puts it: scaled by the heights, moved, and turned by the twist; a
// viewport that is off or has no height shows only its frame.
TEST(LayoutScene, TheModelIsSeenThroughViewports) {
    const std::string plan = "10|100|20|50|40|20|41|10|68|2|12|3|22|4|16|0|26|0|36|1|45|5|";
    const auto database = drawingWith(
        "0|LINE|5|E1|100|AcDbEntity|8|0|100|AcDbLine|10|3|20|4|11|4|21|4|"
        "0|CIRCLE|5|E2|100|AcDbEntity|67|1|8|0|100|AcDbCircle|10|100|20|50|40|3|" +
        viewport(1, "10|0|20|0|40|1|41|1|68|1|") + viewport(2, plan) + viewport(3, plan + "51|90|") +
        viewport(4, "10|0|20|0|40|2|41|2|68|2|12|0|22|0|16|0|26|0|36|1|45|0|") +
        viewport(5, "10|1e300|20|0|40|-1|41|nan|68|2|45|1|") + viewport(6, plan + "90|65536|340|E2|"));
    DrawingScenes scenes;
    const auto model = scenes.sceneOf(database);
    EXPECT_EQ(model->entities.size(), 1U);
    const auto layouts = database->layoutIds();
    ASSERT_GE(layouts.size(), 2U);
    ASSERT_EQ(scenes.showLayout(database, layouts[1]), Tavo::eOk);
    const auto sheet = scenes.sceneOf(database);
    ASSERT_EQ(sheet->viewports.size(), 3U);
    EXPECT_EQ(sheet->viewports[0].model, sheet->viewports[1].model);
    const OdGePoint2d middle = sheet->viewports[0].toLayout({3, 4}),
                      right = sheet->viewports[0].toLayout({4, 4});
    EXPECT_NEAR(middle.x, 100, 1e-9);
    EXPECT_NEAR(middle.y, 50, 1e-9);
    EXPECT_NEAR(right.x, 102, 1e-9);
    const OdGePoint2d turned = sheet->viewports[1].toLayout({4, -3});
    EXPECT_NEAR(turned.x, 100, 1e-9) << "the view's centre is the turned view's";
    EXPECT_NEAR(turned.y, 50, 1e-9);
    EXPECT_EQ(sheet->items.size(), 4U) << "a circle and the frames of those it does not clip";
    EXPECT_GT(sheet->viewports[2].clip.size(), 20U);
    for (const OdGePoint2d& corner : sheet->viewports[2].clip)
        EXPECT_NEAR(std::hypot(corner.x - 100, corner.y - 50), 3, 1e-9);
    EXPECT_TRUE(sheet->pick({90, 47}, 0.5)) << "and they can be picked";

    EXPECT_EQ(scenes.showLayout(database, layouts[0]), Tavo::eOk);
    EXPECT_EQ(scenes.sceneOf(database)->entities.size(), 1U);
    database->setReadOnly(true);
    EXPECT_EQ(scenes.showLayout(database, layouts[1]), Tavo::eOk) << "looking is no edit";
    EXPECT_EQ(scenes.sceneOf(database)->viewports.size(), 3U);
}

// An empty sheet is its paper: turned, in inches and off the plot's origin.
TEST(LayoutScene, SheetsShowTheirPaper) {
    const auto database = OdDbDatabase::create(OdDb::DxfVersion::kR2000);
    const OdDbObjectId id = database->layoutIds().at(1);
    const auto layout = id.open<OdDbLayout>(OdDb::kForWrite);
    ASSERT_EQ(layout->setPlotPaperSize({254, 508}), Tavo::eOk);
    ASSERT_EQ(layout->setPlotPaperMargins({25.4, 50.8, 0, 12.7}), Tavo::eOk);
    ASSERT_EQ(layout->setPlotPaperUnits(OdDbPlotSettings::kInches), Tavo::eOk);
    ASSERT_EQ(layout->setPlotRotation(OdDbPlotSettings::k90degrees), Tavo::eOk);
    ASSERT_EQ(layout->setPlotOrigin({25.4, 0}), Tavo::eOk);
    const Scene sheet = buildScene(*database, id);
    ASSERT_EQ(sheet.paper.size(), 4U);
    EXPECT_NEAR(sheet.extents.left, -1.5, 1e-9);
    EXPECT_NEAR(sheet.extents.bottom, -1, 1e-9);
    EXPECT_NEAR(sheet.extents.width(), 20, 1e-9);
    EXPECT_NEAR(sheet.extents.height(), 10, 1e-9);
    ASSERT_EQ(layout->setPlotPaperSize({0, 0}), Tavo::eOk);
    ASSERT_EQ(layout->setLimits({1, 2}, {10, 20}), Tavo::eOk);
    EXPECT_EQ(buildScene(*database, id).extents.width(), 9);
    ASSERT_EQ(layout->setLimits({0, 0}, {0, 0}), Tavo::eOk);
    EXPECT_TRUE(buildScene(*database, id).paper.empty());
}
