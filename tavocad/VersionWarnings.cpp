#include "tavocad/VersionWarnings.h"

#include "platform/drawing/OdDbDatabase.h"

VersionWarnings::VersionWarnings(TavoDocumentManager& documents, TavoCommandLine& commandLine)
    : m_commandLine(commandLine) {
    m_watched = documents.onDocumentEvent([this](TavoDocumentManager::Event event, TavoDocument* document) {
        if (event != TavoDocumentManager::Event::kOpened) return;
        OdDbDatabase* const database = document->database().get();
        if (m_databases.insert(database).second) database->addReactor(this);
    });
}

VersionWarnings::~VersionWarnings() {
    for (OdDbDatabase* const database : m_databases)
        database->removeReactor(this);
}

void VersionWarnings::featureRefused(OdDbDatabase& database, OdDb::Feature feature) {
    m_commandLine.print(tv::dwg::notHeld(database, feature).sentence);
}
