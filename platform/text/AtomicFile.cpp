#include "platform/text/AtomicFile.h"

#include "platform/text/FileError.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <new>
#include <optional>
#include <stdio.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tv {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t bufferSize = 256 * 1024;

// Where the chain of links that begins at `file` ends, whether that exists or not. An errno value on failure.
int followLinks(fs::path& file) {
    for (int hops = 0; hops < 40; ++hops) {
        std::error_code code;
        if (!fs::is_symlink(fs::symlink_status(file, code))) return 0;
        const fs::path target = fs::read_symlink(file, code);
        if (code) return code.value();
        file = target.is_absolute() ? target : file.parent_path() / target;
    }
    return ELOOP;
}

// The new contents under a name of their own; removed when destroyed unless renamed before.
class Neighbour {
  public:
    ~Neighbour() {
        if (m_descriptor >= 0) ::close(m_descriptor);
        if (!m_path.empty()) ::unlink(m_path.c_str());
    }
    int create(const fs::path& file) {
        static std::atomic<unsigned> counter{0};
        for (int attempt = 0; attempt < 1000; ++attempt) {
            fs::path path = file.parent_path() / (prefixOf(file) + std::to_string(::getpid()) + "-" +
                                                  std::to_string(counter++) + std::string(ending));
            m_descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
            if (m_descriptor < 0 && errno != EEXIST) return errno;
            if (m_descriptor < 0) continue;
            // The lock tells a file being written from one left behind. Where locks are unknown nobody asks.
            static_cast<void>(::flock(m_descriptor, LOCK_EX | LOCK_NB));
            struct stat made {};
            if (::fstat(m_descriptor, &made) == 0 && made.st_nlink > 0) {
                m_path = std::move(path);
                return 0;
            }
            ::close(m_descriptor); // somebody tidied up between the two calls
            m_descriptor = -1;
        }
        return EEXIST;
    }
    // Neighbours of `file` that killed processes left behind go.
    static void removeAbandoned(const fs::path& file) {
        const std::string prefix = prefixOf(file);
        std::error_code error;
        const fs::path folder = file.has_parent_path() ? file.parent_path() : fs::path(".");
        for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
            const std::string name = it->path().filename().native();
            if (!name.starts_with(prefix) || !name.ends_with(ending) || !isNumbered(name, prefix.size()))
                continue;
            const int descriptor = ::open(it->path().c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
            if (descriptor < 0) continue;
            if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0) ::unlink(it->path().c_str());
            ::close(descriptor);
        }
    }
    int descriptor() const { return m_descriptor; }
    int syncAndClose() {
        const int syncError = ::fsync(m_descriptor) != 0 ? errno : 0;
        const int closeError = ::close(m_descriptor) != 0 ? errno : 0;
        m_descriptor = -1;
        return syncError ? syncError : closeError;
    }
    int renameTo(const fs::path& file) {
        if (::rename(m_path.c_str(), file.c_str()) != 0) return errno;
        m_path.clear();
        return 0;
    }

  private:
    static constexpr std::string_view ending = ".tmp";
    // The file's own name goes in, so that what a killed process left can be told; names end at 255 bytes.
    static std::string prefixOf(const fs::path& file) {
        return "." + file.filename().native().substr(0, 200) + ".";
    }
    // "123-4" between the prefix and the ending.
    static bool isNumbered(const std::string& name, std::size_t from) {
        const std::string_view middle = std::string_view(name).substr(from, name.size() - from - ending.size());
        return middle.find('-') != std::string_view::npos &&
               middle.find_first_not_of("0123456789-") == std::string_view::npos;
    }
    fs::path m_path;
    int m_descriptor = -1;
};

// Owner first: changing it clears special permission bits. Another owner can only be kept by a privileged
// process.
int copyPermissions(int descriptor, const struct stat& old) {
    struct stat fresh {};
    if (::fstat(descriptor, &fresh) != 0) return errno;
    if ((fresh.st_uid != old.st_uid || fresh.st_gid != old.st_gid) &&
        ::fchown(descriptor, old.st_uid, old.st_gid) != 0 &&
        ::fchown(descriptor, static_cast<uid_t>(-1), old.st_gid) != 0 && errno != EPERM)
        return errno;
    return ::fchmod(descriptor, old.st_mode & 07777) != 0 ? errno : 0;
}

void syncFolder(const fs::path& file) {
    const fs::path folder = file.has_parent_path() ? file.parent_path() : fs::path(".");
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;
    // The new file is in place already; a folder that can't be synced (some network drives) changes nothing
    // about it.
    static_cast<void>(::fsync(descriptor));
    ::close(descriptor);
}

constexpr int cancelled = -1; // beside the errno values

int runWriter(const std::function<bool(FileSink&)>& writer, int descriptor) {
    try {
        FileSink sink(descriptor);
        const bool done = writer(sink);
        sink.flush();
        return sink.error() ? sink.error() : done ? 0 : cancelled;
    } catch (const std::bad_alloc&) {
        return ENOMEM;
    } catch (...) {
        return cancelled;
    }
}

// 0, an errno value or `cancelled`.
int replaceFile(fs::path file, const std::function<bool(FileSink&)>& writer) {
    if (const int error = followLinks(file)) return error;
    struct stat old {};
    const bool exists = ::stat(file.c_str(), &old) == 0;
    if (!exists && errno != ENOENT) return errno;
    if (exists && S_ISDIR(old.st_mode)) return EISDIR;
    if (exists && !S_ISREG(old.st_mode)) return EINVAL;
    if (exists && ((old.st_mode & 0222) == 0 || ::access(file.c_str(), W_OK) != 0)) return EROFS;

    Neighbour::removeAbandoned(file);
    Neighbour neighbour;
    if (const int error = neighbour.create(file)) return error;
    if (const int error = exists ? copyPermissions(neighbour.descriptor(), old) : 0) return error;
    if (const int error = runWriter(writer, neighbour.descriptor())) return error;
    if (const int error = neighbour.syncAndClose()) return error;
    if (const int error = neighbour.renameTo(file)) return error;
    syncFolder(file);
    return 0;
}

} // namespace

FileSink::FileSink(int descriptor) : m_descriptor(descriptor) { m_buffer.reserve(bufferSize); }

bool FileSink::write(std::string_view bytes) {
    if (m_error) return false;
    if (m_buffer.size() + bytes.size() > bufferSize && !flush()) return false;
    if (bytes.size() >= bufferSize) return send(bytes);
    m_buffer += bytes;
    return true;
}

bool FileSink::flush() {
    const bool sent = send(m_buffer);
    m_buffer.clear();
    return sent;
}

bool FileSink::send(std::string_view bytes) {
    while (m_error == 0 && !bytes.empty()) {
        const ssize_t sent = ::write(m_descriptor, bytes.data(), bytes.size());
        if (sent >= 0)
            bytes.remove_prefix(static_cast<std::size_t>(sent));
        else if (errno != EINTR)
            m_error = errno;
    }
    return m_error == 0;
}

Problem writeFileAtomically(const std::filesystem::path& file, const std::function<bool(FileSink&)>& writer) {
    const int error = replaceFile(file, writer);
    if (error == 0) return {};
    if (error != cancelled) return fileProblem(FileAction::Write, file, error);
    Problem problem{Tavo::eCancelled, {}, text::fromUtf8(file.native()), 0};
    problem.sentence =
        text::format(VORD_ResourceString("IDS_TAVO_FILE_WRITE_STOPPED",
                                         L"파일 \"%s\"의 저장이 중단되어 이전 내용이 그대로 남았습니다."),
                     problem.file);
    return problem;
}

Problem writeFileAtomically(const std::filesystem::path& file, std::string_view contents) {
    return writeFileAtomically(file, [contents](FileSink& sink) { return sink.write(contents); });
}

} // namespace tv
