#include "tavocad/scene/LineRaster.h"
#include "tests/tavocad/SceneText.h"

#include <random>
#include <set>

namespace {

std::vector<std::uint32_t> numbers(std::initializer_list<std::uint32_t> list) { return list; }

} // namespace

TEST(SceneIndex, FindsWhatLookingAtEveryBoxFinds) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> place(-1000, 1000), size(0, 30);
    const OdGePoint2d origin{5e6, -3e6};
    std::vector<Box> boxes;
    std::vector<SpatialIndex::Small> small;
    for (int i = 0; i < 5000; ++i) {
        const double x = origin.x + place(random), y = origin.y + place(random);
        boxes.push_back(i % 50 == 0 ? Box{} : Box{x, y, x + size(random), y + size(random)});
        small.push_back(SpatialIndex::smallOf(boxes.back(), origin));
    }
    SpatialIndex index;
    index.build(small, origin);
    for (int i = 0; i < 200; ++i) {
        const double x = origin.x + place(random), y = origin.y + place(random);
        const Box view{x, y, x + 5 * size(random), y + 5 * size(random)};
        std::set<std::uint32_t> found;
        index.visit(view, [&](std::uint32_t number) { EXPECT_TRUE(found.insert(number).second); });
        for (std::uint32_t k = 0; k < boxes.size(); ++k) {
            if (!boxes[k].empty() && boxes[k].meets(view)) {
                ASSERT_TRUE(found.count(k)) << k;
            }
        }
        // Small boxes are a little larger than the true ones, no more.
        for (const std::uint32_t number : found)
            EXPECT_TRUE(boxes[number].grown(0.01).meets(view));
    }
    std::size_t seen = 0;
    index.visit(
        boxes[1].grown(1e7), 31, [](std::uint32_t) { FAIL(); },
        [&](OdGePoint2d, const std::uint32_t*, std::size_t count) { seen += count; });
    EXPECT_EQ(seen, index.size()) << "everything is small from afar";
}

// Painting from the topmost down, with steps over what is covered, gives the picture that painting each line
// over the ones before gives.
TEST(SceneRaster, TheTopmostLineIsSeen) {
    constexpr int width = 333, height = 210;
    std::mt19937 random(11);
    std::uniform_real_distribution<double> x(-100, width + 100), y(-100, height + 100);
    struct Line {
        OdGePoint2d a, b;
    };
    std::vector<Line> lines;
    for (int i = 0; i < 3000; ++i)
        lines.push_back({{x(random), y(random)}, {x(random), y(random)}});
    lines.push_back({{-1e300, 5}, {1e300, 5}});
    lines.push_back({{std::nan(""), 5}, {10, 5}});
    lines.push_back({{width - 0.001, height - 0.001}, {width - 0.001, -1e9}});
    std::vector<std::uint32_t> over(width * height), under(width * height);
    LineRaster forward({over.data(), width, height, width});
    for (std::uint32_t i = 0; i < lines.size(); ++i) {
        forward.nextLayer();
        forward.line(lines[i].a, lines[i].b, i + 1);
    }
    LineRaster backward({under.data(), width, height, width});
    for (auto i = static_cast<std::uint32_t>(lines.size()); i-- > 0;)
        backward.line(lines[i].a, lines[i].b, i + 1);
    EXPECT_EQ(over, under);
    EXPECT_EQ(over[5 * width + 100] != 0 && over[(height - 1) * width + width - 1] != 0, true);
    EXPECT_GT(std::count_if(under.begin(), under.end(), [](std::uint32_t p) { return p != 0; }),
              width * height / 2);
}

TEST(ScenePick, NearestThenTopmostAndOnlyWhatIsShown) {
    const Scene scene = sceneOf("", "0|LINE|8|0|10|0|20|0|11|10|21|0|0|LINE|8|RED|10|0|20|0|11|10|21|0|"
                                    "0|LINE|8|OFF|10|0|20|0.1|11|10|21|0.1|0|CIRCLE|8|0|10|5|20|5|40|2|"
                                    "0|SOLID|8|0|10|20|20|0|11|30|21|0|12|20|22|10|13|30|23|10|");
    auto hit = scene.pick({5, 0.2}, 0.5);
    ASSERT_TRUE(hit);
    EXPECT_EQ(hit->entity, 1U);
    EXPECT_NEAR(hit->distance, 0.2, 1e-12);
    EXPECT_EQ(scene.pickAll({5, 0.2}, 0.5).size(), 2U);
    EXPECT_FALSE(scene.pick({5, 5}, 1)) << "in the middle of a circle is not on it";
    EXPECT_EQ(scene.pick({5, 7.1}, 0.5)->entity, 3U);
    EXPECT_EQ(scene.pick({25, 5}, 0.5)->distance, 0) << "a filled area is hit anywhere";
}

// An insert is inside when all of it is, and crossing when anything is; a box within a filled area crosses it.
TEST(ScenePick, InsideAndCrossing) {
    const Scene scene = sceneOf(block("B", "0|LINE|8|0|" + line + "0|LINE|8|0|10|5|20|5|11|6|21|6|"),
                                "0|INSERT|8|0|2|B|10|0|20|0|0|CIRCLE|8|0|10|20|20|0|40|5|"
                                "0|SOLID|8|0|10|40|20|0|11|60|21|0|12|40|22|20|13|60|23|20|");
    EXPECT_EQ(scene.inside(Box{-1, -1, 3, 3}), numbers({}));
    EXPECT_EQ(scene.crossing(Box{-1, -1, 3, 3}), numbers({0}));
    EXPECT_EQ(scene.inside(Box{-1, -1, 7, 7}), numbers({0}));
    EXPECT_EQ(scene.crossing(Box{18, -2, 22, 2}), numbers({})) << "within a circle nothing is touched";
    EXPECT_EQ(scene.crossing(Box{45, 5, 50, 10}), numbers({2}));
    EXPECT_EQ(scene.crossing(Box{-10, -10, 100, 100}), numbers({0, 1, 2}));
    const OdGePoint2d triangle[] = {{-1, -1}, {12, -1}, {-1, 12}};
    EXPECT_EQ(scene.inside(triangle), numbers({}));
    EXPECT_EQ(scene.crossing(triangle), numbers({0}));
    const OdGePoint2d fence[] = {{1, -1}, {1, 3}, {26, 3}};
    EXPECT_EQ(scene.fence(fence), numbers({0, 1}));
}

// Far zoomed out many things are one dot; the order of the rest is the file's.
TEST(SceneLook, SmallThingsAreDots) {
    std::string entities;
    for (int i = 0; i < 1000; ++i)
        entities +=
            "0|LINE|8|0|10|" + std::to_string(i % 10) + "|20|0|11|" + std::to_string(i % 10 + 1) + "|21|1|";
    const Scene scene = sceneOf("", entities + "0|LINE|8|OFF|10|0|20|0|11|1|21|1|");
    Scene::Seen seen;
    scene.look(scene.box, 0.01, seen);
    EXPECT_EQ(seen.items.size(), 1000U);
    EXPECT_TRUE(std::is_sorted(seen.items.begin(), seen.items.end()));
    scene.look({-1e6, -1e6, 1e6, 1e6}, 1000, seen);
    EXPECT_TRUE(seen.items.empty());
    EXPECT_FALSE(seen.dots.empty());
    EXPECT_LE(seen.dots.size(), 16U);
}
