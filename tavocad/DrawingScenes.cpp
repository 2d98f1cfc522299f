#include "tavocad/DrawingScenes.h"

#include "tavocad/scene/SceneBuilder.h"

DrawingScenes::~DrawingScenes() {
    if (m_database) m_database->removeReactor(this);
}

std::shared_ptr<const tv::scene::Scene> DrawingScenes::sceneOf(const OdDbDatabasePtr& database) {
    if (!database) return std::make_shared<tv::scene::Scene>();
    if (database != m_database) {
        release(m_database.get());
        m_database = database;
        m_database->addReactor(this);
    }
    if (!m_scene) m_scene = std::make_shared<tv::scene::Scene>(tv::scene::buildScene(*m_database));
    return m_scene;
}

void DrawingScenes::forget(const OdDbDatabase* database) {
    if (database != m_database.get() || !m_scene) return;
    m_scene.reset();
    outdated.notify();
}

void DrawingScenes::release(const OdDbDatabase* database) {
    if (!m_database || database != m_database.get()) return;
    m_database->removeReactor(this);
    m_database.reset();
    m_scene.reset();
}
