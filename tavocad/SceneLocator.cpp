#include "tavocad/SceneLocator.h"

#include "platform/drawing/OdDbEntity.h"
#include "tavocad/DrawingScenes.h"

using tv::scene::Box;
using tv::scene::Scene;

namespace {

void append(const Scene& scene, const std::vector<std::uint32_t>& entities, std::vector<OdDbObjectId>& ids) {
    ids.reserve(ids.size() + entities.size());
    for (const std::uint32_t entity : entities)
        ids.push_back(scene.idOf(entity));
}

} // namespace

void SceneLocator::everything(const OdDbDatabasePtr& database, std::vector<OdDbObjectId>& ids) {
    for (const OdDbObjectId id : m_scenes.entitiesOf(database))
        ids.push_back(id);
}

void SceneLocator::at(const OdDbDatabasePtr& database, OdGePoint2d point, double tolerance,
                      std::vector<OdDbObjectId>& ids) {
    const auto scene = m_scenes.sceneOf(database);
    for (const Scene::Hit& hit : scene->pickAll(point, tolerance))
        ids.push_back(scene->idOf(hit.entity));
}

void SceneLocator::inBox(const OdDbDatabasePtr& database, OdGePoint2d a, OdGePoint2d b, bool crossing,
                         std::vector<OdDbObjectId>& ids) {
    const auto scene = m_scenes.sceneOf(database);
    Box box;
    box.add(a);
    box.add(b);
    append(*scene, crossing ? scene->crossing(box) : scene->inside(box), ids);
}

void SceneLocator::inPolygon(const OdDbDatabasePtr& database, const std::vector<OdGePoint2d>& corners,
                             bool crossing, std::vector<OdDbObjectId>& ids) {
    const auto scene = m_scenes.sceneOf(database);
    append(*scene, crossing ? scene->crossing(corners) : scene->inside(corners), ids);
}

void SceneLocator::alongFence(const OdDbDatabasePtr& database, const std::vector<OdGePoint2d>& points,
                              std::vector<OdDbObjectId>& ids) {
    const auto scene = m_scenes.sceneOf(database);
    append(*scene, scene->fence(points), ids);
}
