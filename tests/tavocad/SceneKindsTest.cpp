#include "tests/tavocad/SceneText.h"

#include <chrono>
#include <cmath>
#include <numbers>

namespace {

std::string tables(const std::string& linetypes) {
    return "0|SECTION|2|HEADER|9|$LTSCALE|40|2|0|ENDSEC|0|SECTION|2|TABLES|0|TABLE|2|LTYPE|70|1|" + linetypes +
           "0|ENDTAB|0|ENDSEC|";
}

Scene sceneOfText(std::string text) {
    std::replace(text.begin(), text.end(), '|', '\n');
    const auto opened = OdDbDatabase::openBytes(text);
    EXPECT_TRUE(opened.database);
    return opened.database ? buildScene(*opened.database) : Scene{};
}

std::string hatch(const std::string& solid, const std::string& loops, const std::string& pattern) {
    return "0|HATCH|8|0|10|0|20|0|30|0|2|P|70|" + solid + "|71|0|" + loops + "75|0|76|1|" + pattern + "98|0|";
}
const std::string square = "92|1|93|4|72|1|10|0|20|0|11|10|21|0|72|1|10|10|20|0|11|10|21|10|"
                           "72|1|10|10|20|10|11|0|21|10|72|1|10|0|20|10|11|0|21|0|97|0|";

} // namespace

// Entities of the space are decoded in a way of their own; in a block they are not. Both see the same.
TEST(SceneKinds, QuickDecodingIsDecoding) {
    const std::string entities =
        "0|LINE|8|RED|62|3|10|1e3|20|+5|11|.5|21|-0.25|0|LINE|8|0|6|DASH|48|3|370|50|10| 7|20|7.|11|x|21|1e400|"
        "0|LINE|8|red|440|33554559|10|123456789.123456789|20|0.1|11|4|21|5|0|CIRCLE|8|0|62|1|10|1|20|2|40|3|"
        "0|ARC|8|0|10|1|20|2|40|3|50|350|51|10|0|POINT|8|0|62|4|10|8|20|9|0|LINE|8|0|60|1|10|1|20|1|"
        "0|LWPOLYLINE|8|0|62|2|90|3|70|1|10|0|20|0|42|1|10|4|20|0|10|4|20|4|42|-0.5|"
        "0|CIRCLE|8|0|62|1|10|1|20|2|40|3|210|0|220|0|230|-1|0|LWPOLYLINE|8|0|62|1|43|2|10|0|20|0|10|5|20|5|";
    const std::string head =
        tables("0|LTYPE|2|DASH|70|0|3||72|65|73|2|40|3|49|2|49|-1|0|ENDTAB|0|TABLE|2|LAYER|70|1|"
               "0|LAYER|2|RED|70|0|62|1|6|DASH|");
    const std::string begin = "0|SECTION|2|BLOCKS|" + block("B", entities) + "0|ENDSEC|0|SECTION|2|ENTITIES|";
    const Scene quick = sceneOfText(head + begin + entities + "0|ENDSEC|0|EOF|");
    const Scene slow = sceneOfText(head + begin + "0|INSERT|8|0|2|B|10|0|20|0|0|ENDSEC|0|EOF|");
    ASSERT_EQ(quick.items.size(), slow.items.size());
    ASSERT_GT(quick.items.size(), 8U);
    for (std::size_t i = 0; i < quick.items.size(); ++i) {
        const Item &a = quick.items[i], &b = slow.items[i];
        ASSERT_EQ(a.kind, b.kind) << i;
        ASSERT_EQ(a.count, b.count) << i;
        for (std::uint32_t k = 0; k < a.count; ++k) {
            EXPECT_DOUBLE_EQ(quick.points[a.first + k].x, slow.points[b.first + k].x) << i;
            EXPECT_DOUBLE_EQ(quick.points[a.first + k].y, slow.points[b.first + k].y) << i;
        }
        const Style &s = quick.styleOf(a), &t = slow.styleOf(b);
        EXPECT_EQ(s.paint, t.paint) << i;
        EXPECT_EQ(s.alpha, t.alpha) << i;
        EXPECT_EQ(s.lineweight, t.lineweight) << i;
        EXPECT_EQ(quick.styles.patterns()[s.pattern].dashes, slow.styles.patterns()[t.pattern].dashes) << i;
    }
    EXPECT_EQ(quick.styles.patterns()[quick.styleOf(quick.items[1]).pattern].dashes,
              (std::vector<double>{12, -6}));
    EXPECT_EQ(quick.styleOf(quick.items[1]).lineweight, 50);
    EXPECT_EQ(quick.styleOf(quick.items[2]).alpha, 127);
}

// Layers are switched in a table; freezing an insert's layer hides what lies on others inside of it.
TEST(SceneKinds, LayersAreSwitchedWithoutDrawingAnew) {
    Scene scene = sceneOf(block("B", "0|LINE|8|RED|" + line + "0|LINE|8|0|62|0|" + line),
                          "0|INSERT|8|ICE|62|5|2|B|10|0|20|0|0|LINE|8|RED|" + line);
    ASSERT_EQ(scene.items.size(), 3U);
    EXPECT_EQ(shownOf(scene).size(), 1U);
    auto layers = scene.styles.layers();
    auto named = [&](const wchar_t* name) -> LayerState& {
        return *std::find_if(layers.begin(), layers.end(), [&](const LayerState& l) { return l.name == name; });
    };
    named(L"ICE").frozen = false;
    named(L"RED").paint = {0x123456, false};
    scene.styles.setLayers(layers);
    EXPECT_EQ(shownOf(scene).size(), 3U);
    EXPECT_EQ(scene.styleOf(scene.items[0]).paint.rgb, 0x123456U);
    EXPECT_EQ(scene.styleOf(scene.items[1]).paint.rgb, 0x0000FFU);
    named(L"ICE").on = false;
    scene.styles.setLayers(layers);
    EXPECT_EQ(shownOf(scene).size(), 2U) << "of an insert that is off only what lies on its layer goes";
}

// A quarter of a circle as a rational spline is one; without usable knots its control points are joined.
TEST(SceneKinds, EndlessLinesDoNotCountForTheExtents) {
    const std::string rays = "0|XLINE|8|0|10|0|20|0|11|1|21|1|0|RAY|8|0|10|3|20|4|11|0|21|-1|";
    const Scene both =
        sceneOfText("0|SECTION|2|ENTITIES|0|LINE|8|0|10|0|20|0|11|10|21|5|" + rays + "0|ENDSEC|0|EOF|");
    EXPECT_EQ(both.extents.right, 10);
    EXPECT_EQ(both.extents.bottom, 0);
    EXPECT_GT(both.box.width(), 10 * both.extents.width());
    EXPECT_TRUE(both.pick({100, 100}, 0.1)) << "it is there all the same";
    const Scene alone = sceneOfText("0|SECTION|2|ENTITIES|" + rays + "0|ENDSEC|0|EOF|");
    EXPECT_FALSE(alone.extents.empty());
}

TEST(SceneKinds, Splines) {
    const std::string points = "10|1|20|0|30|0|10|1|20|1|30|0|10|0|20|1|30|0|";
    const std::string weights = "41|1|41|0.70710678118654752|41|1|";
    const Scene scene = sceneOf("", "0|SPLINE|8|0|70|4|71|2|40|0|40|0|40|0|40|1|40|1|40|1|" + weights + points);
    ASSERT_EQ(scene.items.size(), 1U);
    for (const OdGePoint2d& p : scene.pointsOf(scene.items[0]))
        EXPECT_NEAR(std::hypot(p.x, p.y), 1, 1e-12);
    EXPECT_GT(scene.items[0].count, 8U);
    for (const char* knots :
         {"71|2|40|0|40|5|40|1|40|1|40|1|40|1|", "71|2147483647|40|0|", "71|-1|", "71|2|40|nan|"}) {
        const Scene broken = sceneOf("", std::string("0|SPLINE|8|0|") + knots + points);
        ASSERT_EQ(broken.items.size(), 1U) << knots;
        EXPECT_EQ(broken.items[0].count, 3U) << knots;
    }
    const Scene fit = sceneOf("", "0|SPLINE|8|0|71|3|11|0|21|0|11|5|21|5|11|10|21|0|");
    EXPECT_TRUE(fit.pick({5, 5}, 1e-9)) << "it runs through its fit points";
}

TEST(SceneKinds, Hatches) {
    const std::string hole = "92|2|72|1|73|1|93|2|10|4|20|5|42|1|10|6|20|5|42|1|97|0|";
    const Scene solid = sceneOf("", hatch("1", "91|2|" + square + hole, ""));
    ASSERT_EQ(solid.items.size(), 1U);
    EXPECT_TRUE(solid.pick({2, 5}, 0.1));
    EXPECT_FALSE(solid.pick({5, 5}, 0.1)) << "the hole is free";
    EXPECT_TRUE(solid.pick({5, 6.05}, 0.1)) << "it is a circle";

    // Lines two apart, dashes one long and one apart, beginning at the base point.
    const std::string lines = "52|0|41|1|77|0|78|1|53|0|43|0|44|1|45|0|46|2|79|2|49|1|49|-1|";
    const Scene pattern = sceneOf("", hatch("0", "91|1|" + square, lines));
    ASSERT_EQ(pattern.items.size(), 1U);
    EXPECT_EQ(pattern.items[0].count, 5U * 5 * 3 - 1) << "two ends each, parted by breaks";
    EXPECT_TRUE(pattern.pick({4.5, 3}, 0.1));
    EXPECT_FALSE(pattern.pick({5.5, 3}, 0.1));

    for (const char* much :
         {"53|0|46|1e-9|", "53|0|46|0|", "53|0|46|5|79|2|49|1e-9|49|-1e-9|", "53|1e300|46|1|"}) {
        const Scene fine = sceneOf("", hatch("0", "91|1|" + square, "78|1|" + std::string(much)));
        ASSERT_FALSE(fine.items.empty()) << much;
        EXPECT_LT(fine.points.size(), 1000U) << much;
    }
    const std::string arcs =
        "91|1|92|1|93|2|72|2|10|0|20|0|40|5|50|0|51|180|73|1|72|1|10|-5|20|0|11|5|21|0|97|0|";
    const std::string back =
        "91|1|92|1|93|2|72|2|10|0|20|0|40|5|50|0|51|180|73|0|72|1|10|-5|20|0|11|5|21|0|97|0|";
    EXPECT_TRUE(sceneOf("", hatch("1", arcs, "")).pick({0, 3}, 0.1)) << "the upper half";
    EXPECT_TRUE(sceneOf("", hatch("1", back, "")).pick({0, -3}, 0.1)) << "clockwise, the lower half";
}

TEST(SceneKinds, MeshesMultilinesNotesAndFrames) {
    // Two rows of three vertices, closed along the rows.
    std::string mesh = "0|POLYLINE|8|0|66|1|70|48|71|2|72|3|";
    for (int i = 0; i < 6; ++i)
        mesh += "0|VERTEX|8|0|70|64|10|" + std::to_string(i % 3) + "|20|" + std::to_string(i / 3) + "|";
    const Scene net = sceneOf("", mesh + "0|SEQEND|8|0|");
    ASSERT_EQ(net.items.size(), 1U);
    EXPECT_EQ(net.items[0].count, 2U * 4 + 3 * 2 + 4);
    const Scene faces = sceneOf("", "0|3DFACE|8|0|10|0|20|0|11|4|21|0|12|4|22|4|13|0|23|4|70|2|");
    EXPECT_TRUE(faces.pick({2, 0}, 0.1));
    EXPECT_FALSE(faces.pick({4, 2}, 0.1)) << "a hidden edge";
    const std::string vertex = "12|1|22|0|13|0|23|1|74|1|41|0.5|75|0|74|1|41|-0.5|75|0|";
    const Scene rails =
        sceneOf("", "0|MLINE|8|0|70|1|71|1|72|2|73|2|11|0|21|0|" + vertex + "11|10|21|0|" + vertex);
    EXPECT_TRUE(rails.pick({5, 0.5}, 1e-9));
    EXPECT_TRUE(rails.pick({5, -0.5}, 1e-9));
    EXPECT_FALSE(rails.pick({5, 0}, 0.1));
    const Scene note =
        sceneOf("", "0|MULTILEADER|8|0|300|CONTEXT_DATA{|40|1|10|0|20|0|41|2|140|1|304|{\\C1;Hi} you|"
                    "12|12|22|6|302|LEADER{|290|1|10|10|20|5|304|LEADER_LINE{|10|0|20|0|305|}|303|}|301|}|"
                    "10|99|20|99|");
    EXPECT_TRUE(note.pick({4, 2}, 0.1));
    ASSERT_EQ(note.texts.size(), 2U);
    EXPECT_EQ(note.lettersOf(note.texts[0]), L"Hi");
    EXPECT_EQ(note.texts[0].height, 2);
    // Straight or curved through its points.
    const std::string bends = "10|0|20|0|10|4|20|4|10|8|20|0|";
    for (const bool curved : {false, true}) {
        const std::string says = curved ? "72|1|" : "72|0|", saysToo = curved ? "170|2|" : "170|1|";
        EXPECT_EQ(sceneOf("", "0|LEADER|8|0|" + says + bends).pick({2, 2}, 0.1).has_value(), !curved);
        const Scene many =
            sceneOf("", "0|MULTILEADER|8|0|300|CONTEXT_DATA{|302|LEADER{|10|8|20|0|304|LEADER_LINE{|"
                        "10|0|20|0|10|4|20|4|305|}|303|}|301|}|" +
                            saysToo);
        EXPECT_EQ(many.pick({2, 2}, 0.1).has_value(), !curved);
        EXPECT_TRUE(many.pick({4, 4}, 0.1));
    }
    const Scene frame =
        sceneOf("", "0|WIPEOUT|8|0|10|0|20|0|11|4|21|0|12|0|22|4|13|1|23|1|71|2|91|4|14|-0.5|24|-0.5|"
                    "14|0.5|24|-0.5|14|0.5|24|0.5|14|-0.5|24|0.5|");
    ASSERT_EQ(frame.items.size(), 2U);
    EXPECT_TRUE(frame.items[0].flags & Item::mask);
    EXPECT_EQ(frame.box.right, 4);
    EXPECT_EQ(frame.box.top, 4);
    // A line without end reaches past all the rest.
    const Scene ray = sceneOf("", "0|RAY|8|0|10|1|20|1|11|1|21|0|0|LINE|8|0|10|0|20|0|11|10|21|10|");
    EXPECT_TRUE(ray.pick({11, 1}, 0.1));
    EXPECT_FALSE(ray.pick({0.5, 1}, 0.1));
}

TEST(SceneKinds, MultilineTextsKeepTheirWidthAndAttachment) {
    auto textsOf = [](const std::string& rest) { return sceneOf("", "0|MTEXT|8|0|10|100|20|50|40|2|" + rest); };
    const Scene wrapped = textsOf("41|12|71|1|1|one two three four|");
    ASSERT_GT(wrapped.texts.size(), 1U);
    double lowest = 50;
    for (const Text& text : wrapped.texts) {
        EXPECT_EQ(text.at.x, 100);
        EXPECT_LT(text.at.y, lowest) << "line below line";
        lowest = text.at.y;
    }
    EXPECT_NEAR(wrapped.texts[0].at.y, 48, 1e-9);
    const Scene low = textsOf("71|9|1|one\\Ptwo|");
    ASSERT_EQ(low.texts.size(), 2U);
    EXPECT_NEAR(low.texts[1].at.y, 50, 1e-9);
    EXPECT_LT(low.texts[1].at.x, 100);
    const Scene behind = textsOf("71|1|230|-1|1|one|");
    ASSERT_EQ(behind.texts.size(), 1U);
    EXPECT_TRUE(behind.texts[0].mirrored);
}

TEST(SceneKinds, StacksStandUpright) {
    auto stacked = [](const std::string& text) {
        return sceneOf("", "0|MTEXT|8|0|10|0|20|0|40|2|71|7|1|" + text + "|");
    };
    const Scene fraction = stacked("a\\S1/25;b");
    ASSERT_EQ(fraction.texts.size(), 4U);
    ASSERT_EQ(fraction.items.size(), 5U) << "with a bar";
    const Text &before = fraction.texts[0], &upper = fraction.texts[1], &lower = fraction.texts[2];
    EXPECT_EQ(fraction.lettersOf(lower), L"25");
    EXPECT_GE(upper.at.y, lower.at.y + lower.height);
    EXPECT_GT(upper.at.x, lower.at.x) << "over the middle";
    EXPECT_LT(upper.height, before.height);
    EXPECT_EQ(fraction.texts[3].at.y, before.at.y);
    const auto bar = fraction.pointsOf(fraction.items[3]);
    ASSERT_EQ(bar.size(), 2U);
    EXPECT_TRUE(bar[0].y == bar[1].y && bar[0].y > lower.at.y + lower.height && bar[0].y < upper.at.y);
    EXPECT_GE(fraction.texts[3].at.x, bar[1].x) << "what follows has its own place";

    EXPECT_EQ(stacked("\\S+1^-2;").items.size(), 2U) << "tolerances have no bar";
    const Scene slanting = stacked("\\S1#2;");
    ASSERT_EQ(slanting.items.size(), 3U);
    EXPECT_GT(slanting.texts[1].at.x, slanting.texts[0].at.x);
    EXPECT_LT(slanting.texts[1].at.y, slanting.texts[0].at.y);
    EXPECT_EQ(stacked("\\S7;").texts.size(), 1U);
}

// Without a direction of its own a text runs along the world's x axis, whichever way it faces.
TEST(SceneKinds, MultilineTextsSeenFromBehindStayWhereTheyAre) {
    auto left = [](const std::string& rest) {
        const Scene scene = sceneOf("", "0|MTEXT|8|0|10|100|20|50|40|2|71|1|1|one two|" + rest);
        return scene.extents.left;
    };
    EXPECT_NEAR(left("210|0|220|0|230|-1|"), 100, 1e-9);
    EXPECT_NEAR(left("210|0|220|0|230|-1|11|1|21|0|31|0|"), 100, 1e-9);
    EXPECT_LT(left("210|0|220|0|230|-1|11|-1|21|0|31|0|"), 95);
    EXPECT_LT(left("50|3.141592653589793|210|0|220|0|230|-1|"), 95)
        << "an angle means what the direction would";
}

TEST(SceneKinds, GradientsAreFilledWithTheirOwnColors) {
    const std::string gradient = "450|1|451|0|460|0|461|0|452|0|462|1|453|2|463|0|63|5|421|16711680|463|1|63|3|"
                                 "421|65280|470|LINEAR|";
    const std::string plain = hatch("1", "91|1|" + square, "");
    const Scene scene = sceneOf("", plain + gradient + plain);
    ASSERT_EQ(scene.items.size(), 2U);
    EXPECT_EQ(scene.styleOf(scene.items[0]).paint, (Paint{0x7F7F00, false}));
    EXPECT_TRUE(scene.styleOf(scene.items[1]).paint.foreground) << "the next one is painted as it says";
    const Scene indexed = sceneOf("", hatch("1", "91|1|" + square, "450|1|453|1|463|0|63|1|"));
    ASSERT_EQ(indexed.items.size(), 1U);
    EXPECT_EQ(indexed.styleOf(indexed.items[0]).paint.rgb, 0xFF0000U);
}

// One garbled coordinate does not make all the rest too small to see, in the space or in a block.
TEST(SceneKinds, WhatIsTooFarToBeAnywhereIsLeftOut) {
    const std::string broken =
        "0|LINE|8|0|10|1e300|20|0|11|4|21|1|0|POINT|8|0|10|1e18|20|3|0|CIRCLE|8|0|10|1|20|1|40|1e20|"
        "0|LWPOLYLINE|8|0|90|3|70|0|10|0|20|0|10|-1e17|20|0|42|1|10|4|20|4|0|ARC|8|0|10|1|20|-1e18|40|1|50|0|"
        "51|9|"
        "0|TEXT|8|0|10|1|20|1e16|40|1|1|a|0|TEXT|8|0|10|1|20|1|40|1|41|1e300|1|a|0|SPLINE|8|0|71|1|10|0|20|0|"
        "10|1e300|20|0|0|SOLID|8|0|10|0|20|0|11|1|21|0|12|0|22|1e300|13|1|23|1|";
    const std::string far = hatch("1", "91|1|92|2|72|0|73|1|93|3|10|0|20|0|10|4|20|0|10|1e300|20|4|97|0|", "");
    const std::string good = "0|LINE|8|0|10|0|20|0|11|10|21|5|";
    for (const Scene& scene : {sceneOf("", broken + far + good),
                               sceneOf(block("B", broken + far + good), "0|INSERT|8|0|2|B|10|0|20|0|")}) {
        EXPECT_EQ(scene.extents.left, 0);
        EXPECT_EQ(scene.extents.bottom, 0);
        EXPECT_EQ(scene.extents.right, 10);
        EXPECT_EQ(scene.extents.top, 5);
        EXPECT_TRUE(scene.pick({2, 2}, 0.01)) << "a polyline's good vertices are joined";
        EXPECT_EQ(scene.items.size(), 6U);
    }
    EXPECT_EQ(sceneOf("", "0|POINT|8|0|10|9e14|20|0|").items.size(), 1U);
}

TEST(SceneKinds, DefinitionPointsAreNoPartOfADimension) {
    const std::string parts = "0|POINT|8|DEFPOINTS|10|0|20|0|0|POINT|8|0|10|101|20|100|"
                              "0|LINE|8|Defpoints|10|100|20|100|11|110|21|100|";
    const Scene scene = sceneOf(block("*D1", parts), "0|DIMENSION|8|0|2|*D1|10|100|20|100|70|0|"
                                                     "0|POINT|8|Defpoints|10|50|20|50|");
    EXPECT_EQ(scene.items.size(), 3U);
    EXPECT_FALSE(scene.pick({0, 0}, 1));
    EXPECT_EQ(scene.extents.left, 50) << "one that is drawn by itself is there";
}

// Nothing a file can say takes long or much memory.
TEST(SceneKinds, HostileValuesEnd) {
    std::string nested;
    const std::string huge = "|10|0|20|0|70|2147483647|71|2147483647|44|1|45|1|";
    for (int i = 0; i < 12; ++i)
        nested += block("N" + std::to_string(i), "0|INSERT|8|0|2|N" + std::to_string(i + 1) + huge);
    std::string deep;
    for (int i = 0; i < 3000; ++i)
        deep += block("D" + std::to_string(i), "0|INSERT|8|0|2|D" + std::to_string(i + 1) + "|10|0|20|0|");
    const auto start = std::chrono::steady_clock::now();
    const Scene scene =
        sceneOf(nested + deep,
                "0|INSERT|8|0|2|N0" + huge +
                    "0|INSERT|8|0|2|D0|10|0|20|0|"
                    "0|LINE|8|0|10|1e308|20|-1e308|11|-1e308|21|1e308|0|CIRCLE|8|0|10|0|20|0|40|1e308|"
                    "0|ARC|8|0|10|0|20|0|40|1|50|1e300|51|-1e300|0|XLINE|8|0|10|0|20|0|11|1|21|1|"
                    "0|RAY|8|0|10|1.7e308|20|0|11|1|21|0|0|MESH|8|0|92|9|93|2147483647|90|2147483647|90|5|");
    Scene::Seen seen;
    scene.look(scene.box, 1e-3, seen);
    (void)scene.crossing(scene.box);
    EXPECT_LT(scene.items.size(), 20U);
    for (const OdGePoint2d& point : scene.points)
        EXPECT_TRUE(isBreak(point) || (std::isfinite(point.x) && std::isfinite(point.y)));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}
