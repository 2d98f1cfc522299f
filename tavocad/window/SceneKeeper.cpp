#include "tavocad/window/SceneKeeper.h"

#include "platform/host/TavoDisplay.h"
#include "platform/host/TavoInterfaces.h"
#include "tavocad/DrawingScenes.h"
#include "tavocad/TavoSession.h"

SceneKeeper::SceneKeeper(TavoSession& session, QObject* parent) : QObject(parent), m_session(session) {
    m_later.setSingleShot(true);
    m_later.setInterval(0);
    connect(&m_later, &QTimer::timeout, this, [this] { show(); });
    auto follow = [this] { watch(m_session.document() ? m_session.document()->database() : nullptr); };
    m_subscriptions.push_back(session.host().documentManager()->onDocumentEvent(
        [this, follow](TavoDocumentManager::Event event, TavoDocument* document) {
            using Event = TavoDocumentManager::Event;
            if (event == Event::kClosing && document && document->database() == m_database)
                watch(nullptr);
            else if (event != Event::kSaved && event != Event::kClosing)
                follow();
        }));
    m_subscriptions.push_back(session.scenes().outdated.connect([this] { m_later.start(); }));
    m_subscriptions.push_back(session.host().display()->onRequest(
        [this](TavoDisplay::Request request, const OdDbDatabasePtr& database) {
            if (database != m_database) return;
            if (request == TavoDisplay::Request::kRegen)
                m_session.scenes().forget(database.get());
            else
                Q_EMIT redrawAsked();
        }));
    follow();
}

void SceneKeeper::watch(OdDbDatabasePtr database) {
    if (database == m_database) return;
    m_database = std::move(database);
    m_fresh = true;
    m_later.start();
}

void SceneKeeper::show() {
    const OdDbObjectId layout = m_session.scenes().layoutOf(m_database);
    if (!(layout == m_layout)) m_fresh = true;
    m_layout = layout;
    Q_EMIT sceneGoing();
    Q_EMIT sceneMade(m_session.scenes().sceneOf(m_database), m_fresh);
    m_fresh = false;
}
