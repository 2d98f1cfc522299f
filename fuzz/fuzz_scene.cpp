// Any drawing as a picture: whatever opens can be flattened into a scene whose tables refer to each other
// within their bounds, that can be looked at and picked from.

#include "fuzz/Require.h"
#include "platform/drawing/OdDbDatabase.h"
#include "tavocad/scene/Scene.h"
#include "tavocad/scene/SceneBuilder.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

namespace {

using namespace tv::scene;

void check(const Scene& scene) {
    for (const Item& item : scene.items) {
        require(item.style < scene.styles.size(), "a style that isn't there");
        require(item.entity < scene.entities.size(), "an entity that isn't there");
        if (item.kind == Item::Kind::text) {
            require(item.first < scene.texts.size(), "a text that isn't there");
            const Text& text = scene.texts[item.first];
            require(text.first + std::size_t{text.count} <= scene.letters.size(), "letters that aren't there");
        } else {
            require(item.first + std::size_t{item.count} <= scene.points.size(), "points that aren't there");
            for (const OdGePoint2d& point : scene.pointsOf(item))
                require(isBreak(point) || (std::isfinite(point.x) && std::isfinite(point.y)),
                        "a point nowhere");
        }
    }
    Scene::Seen seen;
    scene.look(scene.box, 1, seen);
    for (const std::uint32_t item : seen.items)
        require(item < scene.items.size(), "an item that isn't there");
    if (scene.box.empty()) return;
    scene.pickAll({scene.box.left, scene.box.bottom}, 1);
    scene.crossing(scene.box);
    require(scene.inside(scene.box).size() <= scene.entities.size(), "more inside than there is");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto opened =
        OdDbDatabase::openBytes(std::string(reinterpret_cast<const char*>(data), size), "fuzz.dxf");
    if (opened.database) check(buildScene(*opened.database));
    return 0;
}
