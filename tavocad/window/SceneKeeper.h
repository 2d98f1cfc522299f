#pragma once

#include "platform/drawing/OdDbDatabase.h"
#include "platform/host/Signal.h"
#include "tavocad/scene/Scene.h"

#include <QObject>
#include <QTimer>

#include <memory>

class TavoSession;

// Shows the scene of the current drawing as it is now: asked for anew, once for all changes of an event, when
// objects change, the drawing changes or somebody asks for a regeneration.
class SceneKeeper : public QObject {
    Q_OBJECT
  public:
    SceneKeeper(TavoSession& session, QObject* parent);

  Q_SIGNALS:
    // Comes before sceneMade: who lets go of the scene now spares copying it.
    void sceneGoing();
    // `fresh`: of another drawing or layout than before.
    void sceneMade(std::shared_ptr<const tv::scene::Scene> scene, bool fresh);
    void redrawAsked();

  private:
    void watch(OdDbDatabasePtr database);
    void show();

    TavoSession& m_session;
    OdDbDatabasePtr m_database;
    OdDbObjectId m_layout; // shown last
    bool m_fresh = true;
    QTimer m_later;
    std::vector<tv::host::Subscription> m_subscriptions;
};
