#include "platform/text/ReadFile.h"

#include "platform/text/FileError.h"

#include <cerrno>
#include <fcntl.h>
#include <new>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

namespace tv {
namespace {

int readAll(int fd, std::string& bytes) {
    struct stat info {};
    if (::fstat(fd, &info) != 0) return errno;
    if (S_ISDIR(info.st_mode)) return EISDIR;
    if (!S_ISREG(info.st_mode)) return EINVAL;
    try {
        bytes.resize(static_cast<std::size_t>(info.st_size));
    } catch (const std::bad_alloc&) {
        return ENOMEM;
    } catch (const std::length_error&) {
        return ENOMEM;
    }
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t got = ::read(fd, bytes.data() + done, bytes.size() - done);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return errno;
        if (got == 0) break; // it became shorter meanwhile
        done += static_cast<std::size_t>(got);
    }
    bytes.resize(done);
    return 0;
}

} // namespace

Problem readFile(const std::filesystem::path& file, std::string& bytes) {
    bytes.clear();
    // Not blocking, so that a pipe without a writer is refused instead of waited for.
    const int fd = ::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0) return fileProblem(FileAction::Read, file, errno);
    const int error = readAll(fd, bytes);
    ::close(fd);
    if (error == 0) return {};
    bytes.clear();
    return fileProblem(FileAction::Read, file, error);
}

} // namespace tv
