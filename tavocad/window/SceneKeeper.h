#pragma once

#include "platform/drawing/OdDbDatabase.h"
#include "platform/host/Signal.h"
#include "tavocad/scene/Scene.h"

#include <QObject>
#include <QTimer>

#include <memory>

class TavoSession;

// Keeps the scene of the current drawing up to date: made anew, once for all changes of an event, when objects
// change, the drawing changes or somebody asks for a regeneration.
class SceneKeeper : public QObject, private OdDbDatabaseReactor {
    Q_OBJECT
  public:
    SceneKeeper(TavoSession& session, QObject* parent);
    ~SceneKeeper() override;

  Q_SIGNALS:
    // `fresh`: of another drawing than before.
    void sceneMade(std::shared_ptr<const tv::scene::Scene> scene, bool fresh);

  private:
    void objectModified(OdDbDatabase&, OdDbObjectId) override { m_remake.start(); }
    void objectAppended(OdDbDatabase&, OdDbObjectId) override { m_remake.start(); }
    void objectErased(OdDbDatabase&, OdDbObjectId) override { m_remake.start(); }
    void watch(OdDbDatabasePtr database);
    void remake();

    TavoSession& m_session;
    OdDbDatabasePtr m_database;
    bool m_fresh = true;
    QTimer m_remake;
    std::vector<tv::host::Subscription> m_subscriptions;
};
