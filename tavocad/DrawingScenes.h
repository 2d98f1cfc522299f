#pragma once

#include "platform/drawing/OdDbDatabase.h"
#include "platform/host/Signal.h"
#include "tavocad/scene/Scene.h"

#include <memory>

// What the current drawing looks like, for the window and for whoever asks where things are. The scene is made
// when it is asked for and kept until the drawing changes; one drawing's at a time.
class DrawingScenes : private OdDbDatabaseReactor {
  public:
    ~DrawingScenes() override;

    // Never null; empty for a null database.
    std::shared_ptr<const tv::scene::Scene> sceneOf(const OdDbDatabasePtr& database);
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

    OdDbDatabasePtr m_database;
    std::shared_ptr<const tv::scene::Scene> m_scene; // null when it is to be made
};
