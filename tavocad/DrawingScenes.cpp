#include "tavocad/DrawingScenes.h"

#include "platform/drawing/OdDbLayout.h"
#include "tavocad/scene/SceneBuilder.h"

#include <algorithm>

using tv::scene::Scene;

DrawingScenes::~DrawingScenes() {
    if (m_database) m_database->removeReactor(this);
}

void DrawingScenes::watch(const OdDbDatabasePtr& database) {
    if (database == m_database) return;
    release(m_database.get());
    m_database = database;
    m_database->addReactor(this);
}

std::shared_ptr<const Scene> DrawingScenes::sceneOf(const OdDbDatabasePtr& database) {
    if (!database) return std::make_shared<Scene>();
    watch(database);
    const OdDbObjectId layout = layoutOf(database);
    if (m_scene && layout == m_layout) return m_scene;
    const auto opened = layout.open<OdDbLayout>();
    const bool sheet = opened && !opened->isModelLayout();
    if (!m_model) m_model = std::make_shared<Scene>(tv::scene::buildScene(*database));
    m_scene = sheet ? std::make_shared<Scene>(tv::scene::buildScene(*database, layout, m_model)) : m_model;
    m_layout = layout;
    return m_scene;
}

OdDbObjectId DrawingScenes::layoutOf(const OdDbDatabasePtr& database) const {
    if (!database) return {};
    const bool looking = database->isReadOnly() && m_looked.database() == database.get();
    return looking && !m_looked.isErased() ? m_looked : database->currentLayoutId();
}

OdDbEntityRange DrawingScenes::entitiesOf(const OdDbDatabasePtr& database) const {
    const auto layout = layoutOf(database).open<OdDbLayout>();
    return layout && !layout->isModelLayout() ? layout->entities() : database->modelSpace();
}

Tavo::ErrorStatus DrawingScenes::showLayout(const OdDbDatabasePtr& database, const OdDbObjectId& layout) {
    if (!database || !layout.open<OdDbLayout>() || layout.database() != database.get())
        return Tavo::eInvalidInput;
    watch(database);
    if (layout == layoutOf(database)) return Tavo::eOk;
    if (database->isReadOnly())
        m_looked = layout;
    else if (const auto status = database->setCurrentLayout(layout); status != Tavo::eOk)
        return status;
    outdated.notify();
    return Tavo::eOk;
}

void DrawingScenes::headerSysVarChanged(OdDbDatabase& database, std::wstring_view name) {
    // What every shape depends on; TILEMODE says which space is in view.
    static constexpr std::wstring_view shapes[] = {L"LTSCALE", L"TILEMODE", L"PDMODE",   L"PDSIZE",
                                                   L"ATTMODE", L"FILLMODE", L"PSLTSCALE"};
    if (std::ranges::find(shapes, name) != std::end(shapes)) forget(&database);
}

void DrawingScenes::forget(const OdDbDatabase* database) {
    if (database != m_database.get() || !m_scene) return;
    m_scene.reset();
    m_model.reset();
    outdated.notify();
}

void DrawingScenes::release(const OdDbDatabase* database) {
    if (!m_database || database != m_database.get()) return;
    m_database->removeReactor(this);
    m_database.reset();
    m_scene.reset();
    m_model.reset();
    m_looked = {};
}
