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
    referencesOf(database);
    followChanges();
    m_told = false;
    if (!m_model) {
        m_model = std::make_shared<Scene>(tv::scene::buildScene(*database, m_references.get()));
        tellCut(*m_model);
    }
    const OdDbObjectId layout = layoutOf(database);
    const auto opened = layout.open<OdDbLayout>();
    if (!opened || opened->isModelLayout()) return m_model;
    if (!m_sheet || !(layout == m_layout)) {
        m_sheet =
            std::make_shared<Scene>(tv::scene::buildScene(*database, layout, m_model, m_references.get()));
        tellCut(*m_sheet);
    }
    m_layout = layout;
    return m_sheet;
}

tv::dwg::ExternalReferences& DrawingScenes::referencesOf(const OdDbDatabasePtr& database) {
    watch(database);
    if (!m_references)
        m_references = std::make_unique<tv::dwg::ExternalReferences>(
            *database, referenceFolders ? referenceFolders() : std::vector<std::filesystem::path>());
    return *m_references;
}

void DrawingScenes::tellCut(const Scene& scene) {
    if (m_cutTold || !scene.cut.any()) return;
    m_cutTold = true;
    cut.notify(scene.cut);
}

// A sheet is always made anew: what it shows of the model it shares.
void DrawingScenes::followChanges() {
    if (m_changes.empty()) return;
    m_sheet.reset();
    if (m_changes.everything()) m_model.reset();
    if (m_model) {
        if (m_model.use_count() > 1) m_model = std::make_shared<Scene>(*m_model);
        if (!tv::scene::update(*m_model, *m_database, m_changes, m_references.get())) m_model.reset();
    }
    m_changes = {};
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

void DrawingScenes::headerSysVarChanged(OdDbDatabase&, std::wstring_view name) {
    // What shapes depend on.
    static constexpr std::wstring_view shapes[] = {L"LTSCALE",  L"PDMODE",    L"PDSIZE", L"ATTMODE",
                                                   L"FILLMODE", L"PSLTSCALE", L"DIMTXT"};
    if (std::ranges::find(shapes, name) != std::end(shapes)) makeAnew();
    if (name == L"TILEMODE") tell(); // another space is in view
}

void DrawingScenes::note(OdDbObjectId id, How how) {
    if (m_model) m_changes.note(*m_database, id, how);
    tell();
}

void DrawingScenes::tell() {
    if (m_told) return;
    m_told = true;
    outdated.notify();
}

void DrawingScenes::forget(const OdDbDatabase* database) {
    if (database != m_database.get()) return;
    m_references.reset();
    makeAnew();
}

void DrawingScenes::makeAnew() {
    m_changes.noteEverything();
    tell();
}

void DrawingScenes::release(const OdDbDatabase* database) {
    if (!m_database || database != m_database.get()) return;
    m_database->removeReactor(this);
    m_references.reset();
    m_database.reset();
    m_model.reset();
    m_sheet.reset();
    m_changes = {};
    m_told = true;
    m_looked = {};
    m_cutTold = false;
}
