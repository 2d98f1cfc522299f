#pragma once

#include "tavocad/scene/Scene.h"

#include <span>

class OdDbDatabase;
class OdDbEntityRange;
class OdDbObjectId;

namespace tv::dwg {
class ExternalReferences;
}

namespace tv::scene {

// The model space as it is painted, with what lies inside of block inserts. Entities that are invisible are
// left out, as are coordinates that are no finite numbers and inserts of a block inside itself. When blocks
// inside of blocks come to far more than the drawing holds, or there are more than mostEntities, the rest is
// cut and Scene::cut says so. Those on hidden layers are there, in styles that are not shown. The database is
// read by several threads meanwhile and must not change.
inline constexpr std::size_t mostEntities = 3'000'000;
// Of the drawings it refers to, through blocks without entities of their own, that can be had with `references`
// the model spaces are drawn.
Scene buildScene(const OdDbDatabase& database, tv::dwg::ExternalReferences* references = nullptr);
// The same of the entities of another space or block.
Scene buildScene(const OdDbDatabase& database, const OdDbEntityRange& entities,
                 tv::dwg::ExternalReferences* references = nullptr);
// A layout: its own entities and the frames of its viewports, through which the model is seen as far as they
// look at it from above, with the layers as they are there. `model` is the scene of model space, made when it
// is null and anything is seen of it. The model's layout, or a null one, is the model space.
Scene buildScene(const OdDbDatabase& database, const OdDbObjectId& layout,
                 std::shared_ptr<const Scene> model = nullptr,
                 tv::dwg::ExternalReferences* references = nullptr);

// An entity of the scene to be drawn anew or, with `none` for its number, one to be drawn after all others.
struct Redrawn {
    tv::dwg::RecordId record = tv::dwg::kNoRecord;
    std::uint32_t entity = none;
};
// Draws them loosely, with the layers and linetypes the scene has. False when one can't be drawn alone; the
// scene is of no use then.
bool redraw(Scene& scene, const OdDbDatabase& database, std::span<const Redrawn> entities,
            tv::dwg::ExternalReferences* references = nullptr);

} // namespace tv::scene
