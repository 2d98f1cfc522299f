#pragma once

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/host/Signal.h"
#include "tavocad/scene/Scene.h"

#include <memory>

// What the current drawing looks like, for the window and for whoever asks where things are. The scene is made
// when it is asked for and kept until the drawing changes; one drawing's at a time. What is in view is the
// drawing's current layout, or for one that can't be edited the layout looked at.
class DrawingScenes : private OdDbDatabaseReactor {
  public:
    ~DrawingScenes() override;

    // Of the layout in view. Never null; empty for a null database.
    std::shared_ptr<const tv::scene::Scene> sceneOf(const OdDbDatabasePtr& database);
    // The layout in view; null for a drawing without layouts.
    OdDbObjectId layoutOf(const OdDbDatabasePtr& database) const;
    // The main entities of the space in view.
    OdDbEntityRange entitiesOf(const OdDbDatabasePtr& database) const;
    // Makes a layout the drawing's current one; a read-only drawing only shows it.
    Tavo::ErrorStatus showLayout(const OdDbDatabasePtr& database, const OdDbObjectId& layout);

    // The scene is to be made anew the next time.
    void forget(const OdDbDatabase* database);
    // The drawing is about to go.
    void release(const OdDbDatabase* database);

    // The scene asked for last is no longer true.
    tv::host::Signal<> outdated;

  private:
    void objectModified(OdDbDatabase& database, OdDbObjectId) override { forget(&database); }
    void objectAppended(OdDbDatabase& database, OdDbObjectId) override { forget(&database); }
    void objectErased(OdDbDatabase& database, OdDbObjectId) override { forget(&database); }
    void headerSysVarChanged(OdDbDatabase& database, std::wstring_view name) override;
    void watch(const OdDbDatabasePtr& database);

    OdDbDatabasePtr m_database;
    OdDbObjectId m_looked;                                    // at, in a drawing that can't be edited
    OdDbObjectId m_layout;                                    // the scene's
    std::shared_ptr<const tv::scene::Scene> m_scene, m_model; // null when they are to be made
};
