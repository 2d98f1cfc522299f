#include "platform/host/embedded/DefaultDocumentManager.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace tv::host {

class DefaultDocumentManager::Document final : public TavoDocument {
  public:
    Document(OdDbDatabasePtr database, OdString newName)
        : m_database(std::move(database)), m_newName(std::move(newName)) {}

    OdString name() const override {
        const auto file = path();
        return file.empty() ? m_newName : OdString(tv::text::fromUtf8(file.filename().native()));
    }
    std::filesystem::path path() const override { return m_database->fileName(); }
    OdDbDatabasePtr database() const override { return m_database; }
    bool isModified() const override { return m_database->changed(); }

  private:
    OdDbDatabasePtr m_database;
    OdString m_newName;
};

namespace {

bool sameFile(const std::filesystem::path& a, const std::filesystem::path& b) {
    std::error_code error;
    return a == b || std::filesystem::equivalent(a, b, error);
}

} // namespace

DefaultDocumentManager::DefaultDocumentManager() = default;
DefaultDocumentManager::~DefaultDocumentManager() = default;

std::vector<TavoDocument*> DefaultDocumentManager::documents() const {
    std::vector<TavoDocument*> list;
    for (const auto& document : m_documents)
        list.push_back(document.get());
    return list;
}

bool DefaultDocumentManager::owns(const TavoDocument* document) const {
    return std::ranges::any_of(m_documents, [&](const auto& own) { return own.get() == document; });
}

void DefaultDocumentManager::setCurrentDocument(TavoDocument* document) {
    if (document == m_current || !owns(document)) return;
    m_current = document;
    m_events.notify(Event::kCurrentChanged, m_current);
}

TavoDocument* DefaultDocumentManager::addDocument(OdDbDatabasePtr database) {
    if (!database) return nullptr;
    OdString newName;
    if (database->fileName().empty())
        newName.format(VORD_ResourceString("IDS_TAVO_DOCUMENT_NEW_NAME", L"도면%d"), ++m_newCount);
    auto* document = m_documents.emplace_back(std::make_unique<Document>(std::move(database), newName)).get();
    m_events.notify(Event::kOpened, document);
    setCurrentDocument(document);
    return document;
}

TavoDocument* DefaultDocumentManager::newDocument() { return addDocument(OdDbDatabase::create()); }

TavoDocument* DefaultDocumentManager::openDocument(const std::filesystem::path& path,
                                                   std::vector<tv::Problem>& problems) {
    for (const auto& document : m_documents) {
        if (document->path().empty() || !sameFile(document->path(), path)) continue;
        setCurrentDocument(document.get());
        return document.get();
    }
    auto opened = OdDbDatabase::open(path);
    problems.insert(problems.end(), opened.problems.begin(), opened.problems.end());
    return addDocument(std::move(opened.database));
}

tv::Problem DefaultDocumentManager::saveDocument(TavoDocument* document, const std::filesystem::path& path,
                                                 bool asked) {
    if (!owns(document)) {
        return {Tavo::eInvalidInput,
                VORD_ResourceString("IDS_TAVO_DOCUMENT_NOT_OPEN", L"저장할 도면이 열려 있지 않습니다.").c_str(),
                tv::text::fromUtf8(path.native())};
    }
    const auto& database = document->database();
    const auto over = asked ? OdDbDatabase::SaveOver::kYes : OdDbDatabase::SaveOver::kNo;
    tv::Problem problem = path.empty() ? database->save(over) : database->saveAs(path, over);
    if (!problem) m_events.notify(Event::kSaved, document);
    return problem;
}

void DefaultDocumentManager::closeDocument(TavoDocument* document) {
    if (!owns(document)) return;
    m_events.notify(Event::kClosing, document);
    const auto it = std::ranges::find_if(m_documents, [&](const auto& own) { return own.get() == document; });
    if (it == m_documents.end()) return; // closed by an observer
    const auto closed = std::move(*it);
    m_documents.erase(it);
    if (m_current == document) {
        m_current = m_documents.empty() ? nullptr : m_documents.back().get();
        m_events.notify(Event::kCurrentChanged, m_current);
    }
    m_events.notify(Event::kClosed, nullptr);
}

} // namespace tv::host
