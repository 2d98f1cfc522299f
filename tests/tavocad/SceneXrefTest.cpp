#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "tavocad/DrawingScenes.h"
#include "tavocad/scene/SceneBuilder.h"
#include "tests/tavocad/SceneText.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

class SceneXref : public testing::Test {
  protected:
    ~SceneXref() override { fs::remove_all(m_folder); }
    fs::path write(const std::string& name, const std::string& layers, const std::string& blocks,
                   const std::string& entities) {
        std::string text = "0|SECTION|2|HEADER|9|$ACADVER|1|AC1015|0|ENDSEC|"
                           "0|SECTION|2|TABLES|0|TABLE|2|LAYER|70|9|" +
                           layers + "0|ENDTAB|0|ENDSEC|0|SECTION|2|BLOCKS|" + blocks +
                           "0|ENDSEC|0|SECTION|2|ENTITIES|" + entities + "0|ENDSEC|0|EOF|";
        std::ranges::replace(text, '|', '\n');
        std::ranges::replace(text, '&', '|');
        fs::create_directories(m_folder);
        std::ofstream(m_folder / name, std::ios::binary) << text;
        return m_folder / name;
    }
    static std::string layer(const std::string& name, int color) {
        return "0|LAYER|2|" + name + "|70|0|62|" + std::to_string(color) + "|6|CONTINUOUS|";
    }
    static std::string reference(const std::string& name, const std::string& path, int flags = 4) {
        return "0|BLOCK|8|0|2|" + name + "|70|" + std::to_string(flags) + "|10|0|20|0|3|" + name + "|1|" +
               path + "|0|ENDBLK|8|0|";
    }
    static std::uint32_t colorAt(const Scene& scene, OdGePoint2d at) {
        const auto hit = scene.pick(at, 0.1);
        return hit ? scene.styleOf(scene.items[hit->item]).paint.rgb : 0xBAD;
    }
    const fs::path m_folder = fs::path(testing::TempDir()) / ("kx_scene_xref_" + std::to_string(::getpid()));
};

} // namespace

// Two deep, scaled and moved by both inserts; what the drawing itself records of a dependent layer counts, else
// what the drawing behind it says; a missing drawing, one that refers back and an overlay below draw nothing.
TEST_F(SceneXref, DrawsTheDrawingsReferredTo) {
    write("tree.dxf", layer("Leaf", 3) + layer("Root", 1), reference("site", "site.dxf"),
          "0|LINE|8|Leaf|10|0|20|0|11|1|21|0|0|LINE|8|Root|10|0|20|1|11|1|21|1|0|INSERT|8|0|2|site|10|0|20|0|");
    write("plot.dxf", layer("Walls", 5) + layer("tree&Root", 2),
          reference("tree", "tree.dxf") + reference("over", "tree.dxf", 8),
          "0|LINE|8|Walls|10|0|20|5|11|9|21|5|0|LINE|8|0|10|0|20|6|11|9|21|6|"
          "0|INSERT|8|0|2|tree|10|3|20|0|0|INSERT|8|0|2|over|10|3|20|-50|");
    const auto opened =
        OdDbDatabase::open(write("site.dxf", layer("Mine", 6) + layer("plot&Walls", 4),
                                 reference("plot", "plot.dxf") + reference("gone", "gone.dxf"),
                                 "0|INSERT|8|Mine|2|plot|10|100|20|0|41|2|42|2|0|INSERT|8|0|2|gone|10|0|20|0|"
                                 "0|LINE|8|Mine|10|0|20|0|11|1|21|0|"));
    ASSERT_TRUE(opened.database);
    OdDbDatabase& database = *opened.database;
    DrawingScenes scenes;
    const auto check = [&](std::uint32_t walls) {
        const auto scene = scenes.sceneOf(opened.database);
        EXPECT_EQ(colorAt(*scene, {105, 10}), walls) << "as the drawing itself says";
        EXPECT_EQ(colorAt(*scene, {105, 12}), 0xFF00FFU) << "layer 0 is the insert's";
        EXPECT_EQ(colorAt(*scene, {107, 0}), 0x00FF00U) << "as the innermost says";
        EXPECT_EQ(colorAt(*scene, {107, 2}), 0xFFFF00U) << "as the one between says";
        EXPECT_EQ(scene->entities.size(), 2U);
        EXPECT_EQ(shownOf(*scene).size(), 5U);
    };
    check(0x00FFFF);

    const auto open = [&](OdDbObjectId id) { return id.open<OdDbEntity>(OdDb::kForWrite); };
    ASSERT_EQ(open(*database.modelSpace().begin())->setLinetypeScale(3), Tavo::eOk);
    check(0x00FFFF);
    EXPECT_FALSE(scenes.sceneOf(opened.database)->loose.empty()) << "drawn anew alone";
    const auto walls = database.layers()->getAt(L"plot|Walls").open<OdDbLayerTableRecord>(OdDb::kForWrite);
    ASSERT_EQ(walls->setColor(OdCmColor::byIndex(1)), Tavo::eOk);
    check(0xFF0000);
    EXPECT_FALSE(scenes.sceneOf(opened.database)->loose.empty()) << "switched in the table";

    write("plot.dxf", "", "", "0|LINE|8|0|10|0|20|6|11|9|21|6|");
    scenes.forget(&database);
    EXPECT_EQ(shownOf(*scenes.sceneOf(opened.database)).size(), 2U) << "the file is read again";
    EXPECT_EQ(buildScene(database).items.size(), 1U) << "nothing is followed unasked";
}
