#pragma once

#include "platform/host/TavoDocumentManager.h"

#include <sys/types.h>

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>

// Which contents a file has, as far as that can be told without reading them: its size, when it was written,
// and whether it is the same file still. Nothing for a file that is not there.
struct FileStamp {
    std::uint64_t size = 0;
    std::int64_t seconds = 0, nanoseconds = 0;
    dev_t device = 0;
    ino_t inode = 0;
    static std::optional<FileStamp> of(const std::filesystem::path& file);
    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

// The files of the open drawings as they were when this program last read or wrote them, so that nobody's work
// is written over unasked.
class DocumentFiles {
  public:
    explicit DocumentFiles(TavoDocumentManager& manager);

    // As the document manager; the file's state is noted from before it is read.
    TavoDocument* open(const std::filesystem::path& file, std::vector<tv::Problem>& problems);
    // Refused for a file changed by somebody else (eReadOnly) unless `force`. An empty path means the
    // drawing's own file.
    tv::Problem save(TavoDocument& document, const std::filesystem::path& file, bool force);

    // Whether saving to `file` would write over what somebody else wrote since this program read it: only asked
    // for the drawing's own file.
    bool changedOutside(const TavoDocument& document, const std::filesystem::path& file) const;
    // Whether `file`, or an empty path, is the drawing's own file.
    static bool isOwnFile(const TavoDocument& document, const std::filesystem::path& file);

  private:
    TavoDocumentManager& m_manager;
    std::map<const TavoDocument*, std::optional<FileStamp>> m_known;
    tv::host::Subscription m_closing;
};
