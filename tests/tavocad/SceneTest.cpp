#include "tavocad/scene/Flatten.h"
#include "tests/tavocad/SceneText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

using namespace tv::scene;

TEST(Scene, LeavesOutWhatIsNotShown) {
    const Scene scene = sceneOf("", "0|LINE|8|RED|" + line + "0|LINE|8|OFF|" + line + "0|LINE|8|ICE|" + line +
                                        "0|LINE|8|0|60|1|" + line);
    const auto shown = shownOf(scene);
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(scene.styleOf(shown[0]).paint, (Paint{0xFF0000, false}));
    EXPECT_EQ(scene.box.right, 2);
}

// By layer, by block and layer 0 inside a block all take what the insert has; the foreground colour is marked.
TEST(Scene, ColoursInsideBlocksComeFromTheInsert) {
    const Scene scene =
        sceneOf(block("B", "0|LINE|8|0|" + line + "0|LINE|8|0|62|0|" + line + "0|LINE|8|0|62|5|" + line +
                               "0|LINE|8|ICE|" + line + "0|INSERT|8|0|2|B|10|0|20|0|"),
                "0|INSERT|8|RED|62|3|2|B|10|0|20|0|0|LINE|8|0|" + line);
    const auto shown = shownOf(scene);
    ASSERT_EQ(shown.size(), 4U) << "the block inside itself is passed over";
    EXPECT_EQ(scene.styleOf(shown[0]).paint.rgb, 0xFF0000U);
    EXPECT_EQ(scene.styleOf(shown[1]).paint.rgb, 0x00FF00U);
    EXPECT_EQ(scene.styleOf(shown[2]).paint.rgb, 0x0000FFU);
    EXPECT_TRUE(scene.styleOf(shown[3]).paint.foreground);
}

// Nested, turned and stretched: the inner line from (0,0) to (2,1) lands where hand calculation puts it.
TEST(Scene, NestedInsertsArePlaced) {
    const Scene scene =
        sceneOf(block("IN", "0|LINE|8|0|" + line) + block("OUT", "0|INSERT|8|0|2|IN|10|10|20|0|41|2|42|3|"),
                "0|INSERT|8|0|2|OUT|10|100|20|50|50|90|0|INSERT|8|0|2|IN|10|0|20|0|70|3|44|5|71|2|45|7|");
    ASSERT_EQ(scene.items.size(), 7U);
    const OdGePoint2d start = scene.points[0], end = scene.points[1];
    EXPECT_NEAR(start.x, 100, 1e-9);
    EXPECT_NEAR(start.y, 60, 1e-9);
    EXPECT_NEAR(end.x, 97, 1e-9);
    EXPECT_NEAR(end.y, 64, 1e-9);
    EXPECT_NEAR(scene.points[scene.items[6].first].x, 10, 1e-9);
    EXPECT_NEAR(scene.points[scene.items[6].first].y, 7, 1e-9);
}

TEST(Scene, CurvesKeepTheirEndsAndRadius) {
    std::vector<OdGePoint3d> points{{0, 0, 0}};
    flattenBulge(points, {0, 0, 0}, {2, 0, 0}, 1); // a half circle below the chord
    EXPECT_EQ(points.back(), (OdGePoint3d{2, 0, 0}));
    double lowest = 0;
    for (const auto& p : points) {
        EXPECT_NEAR(std::hypot(p.x - 1, p.y), 1, 1e-12);
        lowest = std::min(lowest, p.y);
    }
    EXPECT_NEAR(lowest, -1, 1e-3);
    EXPECT_NEAR(angleAfter(350, 10), 350 + std::fmod(10 - 350, 2 * std::numbers::pi) + 2 * std::numbers::pi,
                1e-9);
    EXPECT_NEAR(angleAfter(1, 1), 1 + 2 * std::numbers::pi, 1e-12);
    const Scene scene = sceneOf("", "0|ARC|8|0|10|5|20|5|40|2|50|270|51|90|");
    EXPECT_NEAR(scene.box.left, 5, 1e-9);
    EXPECT_NEAR(scene.box.right, 7, 1e-2);
}

// An L of width 2 has a mitred corner and exactly its outer size; tapering, thin and doubling-back segments and
// a full circle of two arcs with a doubled vertex come out as hand calculation says.
TEST(Scene, PolylinesAreAsWideAsTheySay) {
    auto boxOf = [](const std::string& widths, const std::string& vertices) {
        return sceneOf("", "0|LWPOLYLINE|8|0|90|3|" + widths + vertices).box;
    };
    const std::string corner = "10|0|20|0|10|10|20|0|10|10|20|10|";
    const Box square = boxOf("43|2|", corner);
    EXPECT_NEAR(square.left, 0, 1e-9);
    EXPECT_NEAR(square.right, 11, 1e-9);
    EXPECT_NEAR(square.bottom, -1, 1e-9);
    EXPECT_NEAR(square.top, 10, 1e-9);
    const Scene l = sceneOf("", "0|LWPOLYLINE|8|0|90|3|43|2|" + corner);
    ASSERT_EQ(l.items.size(), 2U);
    EXPECT_EQ(l.items[0].kind, Item::Kind::area);
    EXPECT_EQ(std::count(l.points.begin(), l.points.end(), OdGePoint2d(11, -1)), 2) << "both reach the corner";

    const Scene mixed = sceneOf("", "0|LWPOLYLINE|8|0|90|3|10|0|20|0|40|4|41|0|10|10|20|0|10|20|20|0|");
    ASSERT_EQ(mixed.items.size(), 2U);
    EXPECT_EQ(mixed.items[0].kind, Item::Kind::area);
    EXPECT_EQ(mixed.items[1].kind, Item::Kind::stroke);
    EXPECT_NEAR(mixed.box.top, 2, 1e-9);
    EXPECT_NEAR(mixed.box.left, 0, 1e-9);

    const Box needle = boxOf("43|2|", "10|0|20|0|10|100|20|0|10|0|20|1|");
    EXPECT_LT(needle.right, 102) << "a sharp corner does not stick out";
    const Box ring = boxOf("70|1|43|1|", "10|-2|20|0|42|1|10|2|20|0|10|2|20|0|42|1|");
    EXPECT_NEAR(ring.right, 2.5, 1e-2);
    EXPECT_NEAR(ring.top, 2.5, 1e-2);
    for (const char* width : {"43|-1|", "43|1e999|", "43|0|"})
        EXPECT_NEAR(boxOf(width, corner).right, 10, 1e-9) << width;
}

// Inserts inside of each other come to an end and the scene says which were cut; what stands beside them is
// there, and a block with many inserts is no matter.
TEST(Scene, TooManyInsertsAreCut) {
    const std::string array = "|70|100|71|100|44|1|45|1|", insert = "0|INSERT|8|0|2|";
    const std::string nested = block("empty", "") + block("one", insert + "empty" + array) +
                               block("two", insert + "one" + array + "0|LINE|8|0|" + line);
    const Scene cut = sceneOf(nested, "0|LINE|8|0|" + line + insert + "empty|" + insert + "two" + array +
                                          insert + "two|0|LINE|8|0|" + line);
    EXPECT_EQ(cut.cut.inserts, 2U);
    EXPECT_EQ(cut.cut.block, L"two");
    EXPECT_EQ(cut.items.size(), 2U) << "the lines";

    std::string many;
    for (int i = 0; i < 100'000; ++i)
        many += insert + "one|";
    EXPECT_FALSE(sceneOf(block("one", "0|LINE|8|0|" + line) + block("all", many), insert + "all|").cut.any());
}
