#pragma once

#include "platform/Export.h"
#include "platform/host/TavoDocumentManager.h"

#include <memory>

namespace tv::host {

// Documents are drawings in memory; each counts as one drawing window.
class KXPLATFORM_EXPORT DefaultDocumentManager final : public TavoDocumentManager {
  public:
    DefaultDocumentManager();
    ~DefaultDocumentManager() override;

    TavoDocument* currentDocument() const override { return m_current; }
    void setCurrentDocument(TavoDocument* document) override;
    std::vector<TavoDocument*> documents() const override;
    int drawingWindowCount() const override { return static_cast<int>(m_documents.size()); }

    TavoDocument* newDocument() override;
    TavoDocument* openDocument(const std::filesystem::path& path, std::vector<tv::Problem>& problems) override;
    tv::Problem saveDocument(TavoDocument* document, const std::filesystem::path& path,
                             bool asked = false) override;
    void closeDocument(TavoDocument* document) override;

    bool isClosing() const override { return m_closing; }
    void setClosing(bool closing) { m_closing = closing; }

    // Takes over a drawing that was made elsewhere.
    TavoDocument* addDocument(OdDbDatabasePtr database);

    Subscription onDocumentEvent(Listener listener) override { return m_events.connect(std::move(listener)); }

  private:
    class Document;
    bool owns(const TavoDocument* document) const;

    std::vector<std::unique_ptr<Document>> m_documents;
    TavoDocument* m_current = nullptr;
    int m_newCount = 0;
    bool m_closing = false;
    Signal<Event, TavoDocument*> m_events;
};

} // namespace tv::host
