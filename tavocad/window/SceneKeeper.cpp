#include "tavocad/window/SceneKeeper.h"

#include "platform/host/TavoDisplay.h"
#include "platform/host/TavoInterfaces.h"
#include "tavocad/TavoSession.h"
#include "tavocad/scene/SceneBuilder.h"

SceneKeeper::SceneKeeper(TavoSession& session, QObject* parent) : QObject(parent), m_session(session) {
    m_remake.setSingleShot(true);
    m_remake.setInterval(0);
    connect(&m_remake, &QTimer::timeout, this, [this] { remake(); });
    auto follow = [this] { watch(m_session.document() ? m_session.document()->database() : nullptr); };
    m_subscriptions.push_back(session.host().documentManager()->onDocumentEvent(
        [this, follow](TavoDocumentManager::Event event, TavoDocument* document) {
            using Event = TavoDocumentManager::Event;
            if (event == Event::kClosing && document && document->database() == m_database)
                watch(nullptr);
            else if (event != Event::kSaved && event != Event::kClosing)
                follow();
        }));
    m_subscriptions.push_back(session.host().display()->onRequest(
        [this](TavoDisplay::Request request, const OdDbDatabasePtr& database) {
            if (request == TavoDisplay::Request::kRegen && database == m_database) m_remake.start();
        }));
    follow();
}

SceneKeeper::~SceneKeeper() {
    if (m_database) m_database->removeReactor(this);
}

void SceneKeeper::watch(OdDbDatabasePtr database) {
    if (database == m_database) return;
    if (m_database) m_database->removeReactor(this);
    m_database = std::move(database);
    if (m_database) m_database->addReactor(this);
    m_fresh = true;
    m_remake.start();
}

void SceneKeeper::remake() {
    auto scene = std::make_shared<tv::scene::Scene>();
    if (m_database) *scene = tv::scene::buildScene(*m_database);
    Q_EMIT sceneMade(std::move(scene), m_fresh);
    m_fresh = false;
}
