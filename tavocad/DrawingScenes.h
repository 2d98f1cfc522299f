#pragma once

#include "platform/drawing/ExternalReferences.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/host/Signal.h"
#include "tavocad/scene/Scene.h"
#include "tavocad/scene/SceneUpdate.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

// What the current drawing looks like, for the window and for whoever asks where things are. The scene is made
// when it is asked for and brought up to date when it is asked for after a change; one drawing's at a time. One
// that is held on to stays as it is: it is copied for the change, which takes a while for a big one. What is in
// view is the drawing's current layout, or for one that can't be edited the layout looked at.
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

    // The drawings it refers to, as far as they were read.
    tv::dwg::ExternalReferences& referencesOf(const OdDbDatabasePtr& database);
    // Where they are looked for besides their own places; unset for nowhere.
    std::function<std::vector<std::filesystem::path>()> referenceFolders;

    // The scene is to be made anew the next time, with the drawings referred to read again.
    void forget(const OdDbDatabase* database);
    // The drawing is about to go.
    void release(const OdDbDatabase* database);

    // The scene asked for last is no longer true.
    tv::host::Signal<> outdated;
    // There was too much to show of the drawing: once for each.
    tv::host::Signal<const tv::scene::Cut&> cut;

  private:
    using How = tv::scene::Changes::How;
    void objectModified(OdDbDatabase&, OdDbObjectId id) override { note(id, How::modified); }
    void objectAppended(OdDbDatabase&, OdDbObjectId id) override { note(id, How::appended); }
    void objectErased(OdDbDatabase&, OdDbObjectId id) override { note(id, How::erased); }
    void headerSysVarChanged(OdDbDatabase& database, std::wstring_view name) override;
    void watch(const OdDbDatabasePtr& database);
    void note(OdDbObjectId id, How how);
    void tell();
    void makeAnew();
    void followChanges();
    void tellCut(const tv::scene::Scene& scene);

    OdDbDatabasePtr m_database;
    std::unique_ptr<tv::dwg::ExternalReferences> m_references; // as far as they were read
    OdDbObjectId m_looked;                                     // at, in a drawing that can't be edited
    OdDbObjectId m_layout;                                     // the sheet's
    std::shared_ptr<tv::scene::Scene> m_model, m_sheet;        // null when they are to be made
    tv::scene::Changes m_changes;                              // since the model's scene was made
    bool m_cutTold = false;
    bool m_told = true; // that the scene asked for last isn't true
};
