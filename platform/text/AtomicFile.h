#pragma once

#include "platform/Export.h"
#include "platform/text/Problem.h"

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace tv {

// Where a file's new contents go. Buffered; after the first failure nothing more is written.
class KXPLATFORM_EXPORT FileSink {
  public:
    explicit FileSink(int descriptor);
    // False once writing has failed (full disk, ...); the writer may stop then, the reason is reported for it.
    bool write(std::string_view bytes);
    bool flush();
    int error() const { return m_error; } // errno of the first failure, 0 while all is well

  private:
    bool send(std::string_view bytes);
    int m_descriptor;
    int m_error = 0;
    std::string m_buffer;
};

// Replaces the contents of `file`, or creates it, so that at any moment either all of the old or all of the new
// contents are there: `writer` fills a neighbour in the same folder, which is synced to disk and renamed over
// the file. Links are followed, and the permissions of an existing file are kept. On any failure, also when the
// writer returns false (eCancelled) or throws, the old file is untouched and the neighbour is gone. A neighbour
// that a killed process left goes at the next write of the same file. A file that nobody may write to is
// refused with eReadOnly.
KXPLATFORM_EXPORT Problem writeFileAtomically(const std::filesystem::path& file,
                                              const std::function<bool(FileSink&)>& writer);
KXPLATFORM_EXPORT Problem writeFileAtomically(const std::filesystem::path& file, std::string_view contents);

} // namespace tv
