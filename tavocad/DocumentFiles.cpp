#include "tavocad/DocumentFiles.h"

#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"

#include <sys/stat.h>

namespace fs = std::filesystem;

std::optional<FileStamp> FileStamp::of(const fs::path& file) {
    struct stat state {};
    if (::stat(file.c_str(), &state) != 0) return std::nullopt;
    return FileStamp{static_cast<std::uint64_t>(state.st_size), state.st_mtim.tv_sec, state.st_mtim.tv_nsec,
                     state.st_dev, state.st_ino};
}

DocumentFiles::DocumentFiles(TavoDocumentManager& manager)
    : m_manager(manager),
      m_closing(manager.onDocumentEvent([this](TavoDocumentManager::Event event, TavoDocument* document) {
          if (event == TavoDocumentManager::Event::kClosing) m_known.erase(document);
      })) {}

TavoDocument* DocumentFiles::open(const fs::path& file, std::vector<tv::Problem>& problems) {
    const auto before = FileStamp::of(file);
    TavoDocument* document = m_manager.openDocument(file, problems);
    if (document) m_known.try_emplace(document, before); // one that was open already keeps its own
    return document;
}

bool DocumentFiles::isOwnFile(const TavoDocument& document, const fs::path& file) {
    std::error_code error;
    return file.empty() || file == document.path() || fs::equivalent(file, document.path(), error);
}

bool DocumentFiles::changedOutside(const TavoDocument& document, const fs::path& file) const {
    const auto known = m_known.find(&document);
    if (known == m_known.end() || !isOwnFile(document, file)) return false;
    const auto now = FileStamp::of(document.path());
    return now && now != known->second; // one that is gone can be written again
}

tv::Problem DocumentFiles::save(TavoDocument& document, const fs::path& file, bool force) {
    if (!force && changedOutside(document, file))
        return {Tavo::eReadOnly,
                tv::text::format(VORD_ResourceString("IDS_TAVO_CHANGED_OUTSIDE",
                                                     L"\"%s\" 파일은 연 뒤에 다른 곳에서 변경되었습니다. "
                                                     L"저장하면 그 변경 내용을 잃게 됩니다."),
                                 document.name()),
                document.name().wstr()};
    tv::Problem problem = m_manager.saveDocument(&document, file);
    if (!problem) m_known[&document] = FileStamp::of(document.path());
    return problem;
}
