#include "platform/drawing/ExternalReferences.h"

#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbSymbolTable.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

#include <algorithm>
#include <map>
#include <set>
#include <system_error>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace fs = std::filesystem;

namespace tv::dwg {
namespace {

constexpr std::size_t kDeepest = 16;        // drawings in a row
constexpr std::size_t kMostDrawings = 1000; // that refer to others, in all
constexpr std::size_t kLongestPath = 4096;
constexpr int kReference = 4;
constexpr int kOverlay = 8;

using Parts = std::vector<std::wstring>;

std::wstring wide(const fs::path& file) { return text::fromUtf8(file.native()); }

// The folders and the name of a path in either notation; nothing for one no file can have.
Parts partsOf(std::wstring_view path, bool& rooted) {
    Parts out;
    rooted = false;
    if (path.size() > kLongestPath || path.find(L'\0') != std::wstring_view::npos) return out;
    std::wstring part;
    for (std::size_t i = 0; i <= path.size(); ++i) {
        if (i < path.size() && path[i] != L'/' && path[i] != L'\\') {
            part.push_back(path[i]);
            continue;
        }
        if (i == 0 && i < path.size()) rooted = true;
        if (!part.empty() && part != L".") out.push_back(part);
        part.clear();
    }
    if (!out.empty() && out.front().size() == 2 && out.front()[1] == L':') {
        rooted = true;
        out.erase(out.begin());
    }
    return out;
}

// The entry of a folder by that name, spelled so or otherwise; empty when there is none.
fs::path entryOf(const fs::path& folder, const std::wstring& name) {
    std::error_code error;
    const fs::path exact = folder / fs::path(text::toUtf8(name));
    if (name == L".." || fs::exists(exact, error)) return exact;
    fs::path found;
    for (fs::directory_iterator walk(folder, error), end; !error && walk != end; walk.increment(error)) {
        const fs::path& entry = walk->path();
        if (!text::equalNoCase(wide(entry.filename()), name)) continue;
        // Of several the first in order, so that it is the same one every time.
        if (found.empty() || entry < found) found = entry;
    }
    return found;
}

fs::path walkDown(fs::path folder, const Parts& parts) {
    for (const std::wstring& part : parts) {
        folder = entryOf(folder, part);
        if (folder.empty()) return {};
    }
    std::error_code error;
    return fs::is_regular_file(folder, error) ? folder : fs::path();
}

// The text form beside the binary one.
fs::path walkDownToText(const fs::path& folder, Parts parts) {
    std::wstring& name = parts.back();
    if (name.size() > 4 && text::equalNoCase(std::wstring_view(name).substr(name.size() - 4), L".dwg")) {
        const Parts asGiven = parts;
        name.replace(name.size() - 4, 4, L".dxf");
        const fs::path found = walkDown(folder, parts);
        return found.empty() ? walkDown(folder, asGiven) : found;
    }
    return walkDown(folder, parts);
}

// The same file by whatever path.
std::string identity(const fs::path& file) {
    std::error_code error;
    const fs::path whole = fs::weakly_canonical(file, error);
    return error ? file.lexically_normal().string() : whole.string();
}

tv::Problem problemOf(const ExternalReference& reference, const std::wstring& why = {}) {
    tv::Problem out;
    out.file = reference.file.empty() ? std::wstring(reference.path.view()) : wide(reference.file);
    const std::wstring name(reference.name.view());
    const auto say = [&](Tavo::ErrorStatus status, const wchar_t* pattern, const auto&... more) {
        out.status = status;
        out.sentence = text::format(pattern, name, more...);
    };
    switch (reference.status) {
    case XrefStatus::kResolved:
        return {};
    case XrefStatus::kUnloaded:
        say(Tavo::eCancelled,
            VORD_ResourceString("IDS_TAVO_XREF_UNLOADED", L"외부 참조 \"%s\"은(는) 언로드된 상태입니다."));
        break;
    case XrefStatus::kMissing:
        say(Tavo::eFileNotFound,
            VORD_ResourceString(
                "IDS_TAVO_XREF_MISSING",
                L"외부 참조 \"%s\"을(를) 표시할 수 없습니다: 파일 \"%s\"을(를) 찾을 수 없습니다."),
            out.file);
        break;
    case XrefStatus::kNotADrawing:
        say(Tavo::eBadFile,
            VORD_ResourceString("IDS_TAVO_XREF_UNREADABLE", L"외부 참조 \"%s\"을(를) 표시할 수 없습니다: %s"),
            why);
        break;
    case XrefStatus::kCircular:
        say(Tavo::eInvalidInput,
            VORD_ResourceString(
                "IDS_TAVO_XREF_CIRCULAR",
                L"외부 참조 \"%s\"을(를) 표시할 수 없습니다: 파일 \"%s\"이(가) 자기 자신을 다시 "
                L"참조합니다."),
            out.file);
        break;
    case XrefStatus::kTooDeep:
        say(Tavo::eOutOfRange,
            VORD_ResourceString(
                "IDS_TAVO_XREF_TOO_DEEP",
                L"외부 참조 \"%s\"을(를) 표시할 수 없습니다: 외부 참조가 너무 깊게 이어집니다."));
        break;
    }
    return out;
}

// The record in the table of that kind; null when the drawing has none.
OdDbObjectId recordNamed(OdDbDatabase& database, std::string_view kind, std::wstring_view name) {
    const RecordId table = database.store().table(kind);
    const auto opened = table == kNoRecord ? nullptr : OdDbObjectId(&database, table).open<OdDbSymbolTable>();
    return opened ? opened->getAt(name) : OdDbObjectId();
}

bool standsForItself(std::string_view kind, std::wstring_view name) {
    if (kind == "LAYER") return name == L"0";
    if (kind != "LTYPE") return false;
    return text::equalNoCase(name, L"Continuous") || text::equalNoCase(name, L"ByLayer") ||
           text::equalNoCase(name, L"ByBlock");
}

} // namespace

fs::path findReferencedFile(const fs::path& drawing, std::wstring_view path,
                            const std::vector<fs::path>& folders) {
    bool rooted = false;
    const Parts parts = partsOf(path, rooted);
    if (parts.empty() || parts.back() == L"..") return {};
    const Parts name = {parts.back()};
    if (rooted)
        if (fs::path found = walkDownToText("/", parts); !found.empty()) return found;
    std::vector<fs::path> all;
    if (!drawing.empty()) all.push_back(drawing.parent_path().empty() ? fs::path(".") : drawing.parent_path());
    all.insert(all.end(), folders.begin(), folders.end());
    for (const fs::path& folder : all) {
        if (!rooted)
            if (fs::path found = walkDownToText(folder, parts); !found.empty()) return found;
        if (rooted || parts.size() > 1)
            if (fs::path found = walkDownToText(folder, name); !found.empty()) return found;
    }
    return {};
}

// What all drawings of one tree of references have in common.
struct ExternalReferences::Shared {
    struct File {
        OdDbDatabasePtr database;
        std::wstring why; // it can't be read
    };
    std::vector<fs::path> folders;
    std::map<std::string, File> files; // by identity
    std::vector<tv::Problem> problems;
    std::set<std::wstring> told; // sentences
    std::size_t drawings = 1;
};

struct ExternalReferences::Impl {
    OdDbDatabase& drawing;
    OdDbDatabasePtr kept; // the same, when it was loaded for a reference
    std::shared_ptr<Shared> shared;
    std::vector<std::string> chain; // identities of the files above, this one last
    std::unordered_set<OdDbObjectId> unloaded;
    std::unordered_map<OdDbObjectId, std::shared_ptr<ExternalReferences>> children;

    bool nested() const { return chain.size() > 1; }

    // Without looking for the file.
    ExternalReference named(OdDbObjectId id) const {
        ExternalReference out;
        const auto block = id.open<OdDbBlockTableRecord>();
        if (!block || id.database() != &drawing) return out;
        const OdDbObjectPtr begin = block->blockBeginId().openObject();
        const int flags = begin ? begin->integerAt(70) : 0;
        if ((flags & (kReference | kOverlay)) == 0) return out;
        out.block = id;
        out.name = block->getName();
        out.path = begin->textAt(1);
        out.overlay = (flags & kOverlay) != 0;
        return out;
    }

    ExternalReference find(OdDbObjectId id) const {
        ExternalReference out = named(id);
        if (out.name.isEmpty()) return out;
        std::wstring why;
        out.file = findReferencedFile(drawing.fileName(), out.path.view(), shared->folders);
        if (unloaded.contains(id)) {
            out.status = XrefStatus::kUnloaded;
        } else if (!out.file.empty()) {
            const std::string file = identity(out.file);
            const auto known = shared->files.find(file);
            out.status = XrefStatus::kResolved;
            if (known != shared->files.end() && !known->second.database) {
                out.status = XrefStatus::kNotADrawing;
                why = known->second.why;
            }
            if (chain.size() >= kDeepest) out.status = XrefStatus::kTooDeep;
            if (std::find(chain.begin(), chain.end(), file) != chain.end()) out.status = XrefStatus::kCircular;
        }
        out.problem = problemOf(out, why);
        return out;
    }

    void tell(const ExternalReference& reference) {
        // Who unloads a reference knows it.
        if (reference.problem && reference.status != XrefStatus::kUnloaded) tell(reference.problem);
    }
    void tell(const tv::Problem& problem) {
        if (shared->told.insert(problem.sentence).second) shared->problems.push_back(problem);
    }
};

ExternalReferences::ExternalReferences(OdDbDatabase& drawing, std::vector<fs::path> folders)
    : m_impl(new Impl{drawing, nullptr, std::make_shared<Shared>(), {identity(drawing.fileName())}, {}, {}}) {
    m_impl->shared->folders = std::move(folders);
}

ExternalReferences::ExternalReferences(std::unique_ptr<Impl> impl) : m_impl(std::move(impl)) {}

ExternalReferences::~ExternalReferences() = default;

OdDbDatabase& ExternalReferences::drawing() const { return m_impl->drawing; }

std::vector<ExternalReference> ExternalReferences::list() const {
    std::vector<ExternalReference> out;
    if (const auto blocks = m_impl->drawing.getBlockTableId().open<OdDbBlockTable>())
        for (OdDbObjectId id = blocks->first(); !id.isNull(); id = blocks->next(id)) {
            const ExternalReference known = m_impl->named(id);
            if (known.name.isEmpty() || (known.overlay && m_impl->nested())) continue;
            out.push_back(m_impl->find(id));
            m_impl->tell(out.back());
        }
    return out;
}

ExternalReference ExternalReferences::reference(OdDbObjectId block) const { return m_impl->find(block); }

OdDbDatabasePtr ExternalReferences::load(OdDbObjectId block) {
    const ExternalReference wanted = m_impl->find(block);
    m_impl->tell(wanted);
    if (wanted.name.isEmpty() || wanted.status != XrefStatus::kResolved) return nullptr;
    const auto [entry, fresh] = m_impl->shared->files.try_emplace(identity(wanted.file));
    Shared::File& file = entry->second;
    if (fresh) {
        OdDbDatabase::OpenResult opened = OdDbDatabase::open(wanted.file);
        file.database = std::move(opened.database);
        if (file.database)
            file.database->setReadOnly(true);
        else if (!opened.problems.empty())
            file.why = opened.problems.front().sentence;
        if (!file.database)
            m_impl->tell(m_impl->find(block));
        else if (!opened.problems.empty())
            m_impl->tell(opened.problems.front());
    }
    return file.database;
}

std::shared_ptr<ExternalReferences> ExternalReferences::below(OdDbObjectId block) {
    if (const auto known = m_impl->children.find(block); known != m_impl->children.end()) return known->second;
    const OdDbDatabasePtr database = load(block);
    if (!database) return nullptr;
    Shared& shared = *m_impl->shared;
    if (shared.drawings >= kMostDrawings) {
        ExternalReference refused = m_impl->find(block);
        refused.status = XrefStatus::kTooDeep;
        refused.problem = problemOf(refused);
        m_impl->tell(refused);
        return nullptr;
    }
    ++shared.drawings;
    std::vector<std::string> chain = m_impl->chain;
    chain.push_back(identity(database->fileName()));
    const std::shared_ptr<ExternalReferences> made(new ExternalReferences(
        std::unique_ptr<Impl>(new Impl{*database, database, m_impl->shared, std::move(chain), {}, {}})));
    m_impl->children.emplace(block, made);
    return made;
}

void ExternalReferences::unload(OdDbObjectId block) {
    if (m_impl->named(block).name.isEmpty()) return;
    m_impl->unloaded.insert(block);
    m_impl->children.erase(block);
}

void ExternalReferences::reload(OdDbObjectId block) {
    m_impl->unloaded.erase(block);
    m_impl->children.erase(block);
    const ExternalReference wanted = m_impl->find(block);
    m_impl->shared->told.erase(wanted.problem.sentence);
    if (!wanted.file.empty()) m_impl->shared->files.erase(identity(wanted.file));
}

std::vector<tv::Problem> ExternalReferences::takeProblems() {
    return std::exchange(m_impl->shared->problems, {});
}

OdDbObjectId ExternalReferences::sourceOf(OdDbObjectId dependentRecord) {
    const auto record = dependentRecord.open<OdDbSymbolTableRecord>();
    if (!record || dependentRecord.database() != &m_impl->drawing) return {};
    const OdString name = record->getName();
    const std::size_t bar = name.view().find(L'|');
    if (bar == std::wstring_view::npos) return {};
    const auto blocks = m_impl->drawing.getBlockTableId().open<OdDbBlockTable>();
    const OdDbObjectId block = blocks ? blocks->getAt(name.view().substr(0, bar)) : OdDbObjectId();
    const OdDbDatabasePtr source = block.isNull() ? nullptr : load(block);
    if (!source) return {};
    return recordNamed(*source, m_impl->drawing.store().typeName(dependentRecord.record()),
                       name.view().substr(bar + 1));
}

OdDbObjectId ExternalReferences::dependentOf(OdDbObjectId block, OdDbObjectId record) {
    const ExternalReference reference = m_impl->named(block);
    const auto opened = record.open<OdDbSymbolTableRecord>();
    if (reference.name.isEmpty() || !opened) return {};
    const std::string_view kind = record.database()->store().typeName(record.record());
    const std::wstring name(opened->getName().view());
    const OdDbObjectId dependent =
        recordNamed(m_impl->drawing, kind, std::wstring(reference.name.view()) + L"|" + name);
    if (!dependent.isNull() || !standsForItself(kind, name)) return dependent;
    return recordNamed(m_impl->drawing, kind, name);
}

} // namespace tv::dwg
