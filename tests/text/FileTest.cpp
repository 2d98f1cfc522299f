#include "platform/text/AtomicFile.h"
#include "platform/text/ReadFile.h"
#include "tests/text/TempFolder.h"

#include <csignal>
#include <fcntl.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

TEST(AtomicFile, CreatesAndReplacesKeepingPermissions) {
    TempFolder folder;
    const fs::path file = folder.path / "a.dxf";
    std::string big(300000, 'x');
    ASSERT_FALSE(tv::writeFileAtomically(file, [&](tv::FileSink& sink) {
        for (int i = 0; i < 1000; ++i)
            sink.write("line\n");
        return sink.write(big) && sink.write("") && sink.write("end");
    }));
    std::string expected;
    for (int i = 0; i < 1000; ++i)
        expected += "line\n";
    EXPECT_EQ(folder.read("a.dxf"), expected + big + "end");

    fs::permissions(file, fs::perms(0640));
    ASSERT_FALSE(tv::writeFileAtomically(file, "short"));
    EXPECT_EQ(folder.read("a.dxf"), "short");
    EXPECT_EQ(fs::status(file).permissions(), fs::perms(0640));
    EXPECT_EQ(folder.fileCount(), 1u);

    const std::string longName(255, 'n');
    EXPECT_FALSE(tv::writeFileAtomically(folder.path / longName, "x"));
    EXPECT_EQ(folder.read(longName), "x");
}

TEST(AtomicFile, FollowsLinks) {
    TempFolder folder;
    fs::create_directory(folder.path / "real");
    folder.write("real/a", "old");
    fs::create_symlink("real/a", folder.path / "link");
    fs::create_symlink("link", folder.path / "twice");
    fs::create_symlink("real/new", folder.path / "dangling");
    fs::create_symlink("loop", folder.path / "loop");
    EXPECT_FALSE(tv::writeFileAtomically(folder.path / "twice", "new"));
    EXPECT_FALSE(tv::writeFileAtomically(folder.path / "dangling", "created"));
    EXPECT_EQ(folder.read("real/a"), "new");
    EXPECT_EQ(folder.read("real/new"), "created");
    EXPECT_TRUE(fs::is_symlink(folder.path / "twice"));
    EXPECT_EQ(tv::writeFileAtomically(folder.path / "loop", "x").status, Tavo::eFileAccess);
}

TEST(AtomicFile, AnyFailureLeavesTheOldFileAlone) {
    TempFolder folder;
    const fs::path file = folder.write("a", "old");
    auto stop = [](tv::FileSink& sink) {
        sink.write(std::string(400000, 'y'));
        return false;
    };
    auto fail = [](tv::FileSink& sink) -> bool {
        sink.write("half");
        throw std::runtime_error("no more");
    };
    EXPECT_EQ(tv::writeFileAtomically(file, stop).status, Tavo::eCancelled);
    EXPECT_EQ(tv::writeFileAtomically(file, fail).status, Tavo::eCancelled);

    // A limit on the size of files fails like a full disk: some bytes go in, the next write is refused.
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit old{};
    getrlimit(RLIMIT_FSIZE, &old);
    const rlimit small{1000, old.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    const tv::Problem full = tv::writeFileAtomically(file, std::string(400000, 'z'));
    const tv::Problem buffered =
        tv::writeFileAtomically(file, std::string(2000, 'z')); // seen by the last flush only
    setrlimit(RLIMIT_FSIZE, &old);
    EXPECT_EQ(full.status, Tavo::eFileAccess);
    EXPECT_EQ(buffered.status, Tavo::eFileAccess);
    EXPECT_NE(full.sentence.find(file.wstring()), std::wstring::npos);

    fs::permissions(file, fs::perms(0444));
    EXPECT_EQ(tv::writeFileAtomically(file, "new").status, Tavo::eReadOnly);
    EXPECT_EQ(folder.read("a"), "old");
    EXPECT_EQ(folder.fileCount(), 1u);

    EXPECT_EQ(tv::writeFileAtomically(folder.path / "no" / "a", "x").status, Tavo::eFileNotFound);
    EXPECT_EQ(tv::writeFileAtomically(folder.path, "x").status, Tavo::eFileAccess);
    EXPECT_EQ(tv::writeFileAtomically("/dev/null", "x").status, Tavo::eFileAccess);
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

// What a killed process left goes with the next write of that file; what is being written, and what only looks
// alike, stays.
TEST(AtomicFile, AbandonedNeighboursGo) {
    TempFolder folder;
    const fs::path file = folder.write("a.dxf", "old");
    const pid_t child = ::fork();
    if (child == 0)
        static_cast<void>(tv::writeFileAtomically(file, [](tv::FileSink& sink) {
            sink.write("half");
            sink.flush();
            ::kill(::getpid(), SIGKILL);
            return true;
        }));
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
    ASSERT_EQ(folder.fileCount(), 2u);
    folder.write(".a.dxf.mine.tmp", "not a number");
    folder.write(".ab.dxf.1-1.tmp", "of another file");
    std::size_t during = 0;
    ASSERT_FALSE(tv::writeFileAtomically(file, [&](tv::FileSink& sink) {
        EXPECT_FALSE(tv::writeFileAtomically(file, "inner"));
        during = folder.fileCount();
        return sink.write("outer");
    }));
    EXPECT_EQ(during, 4u) << "the drawing, the two others and the one being written";
    EXPECT_EQ(folder.read("a.dxf"), "outer");
    EXPECT_EQ(folder.fileCount(), 3u);
}

TEST(AtomicFile, FullDiskAndForbiddenFolder) {
    // In a process without privileges, so that permissions count for the test as they do for a user.
    TempFolder folder;
    folder.write("a", "old");
    fs::permissions(folder.path, fs::perms(0555));
    const pid_t child = fork();
    if (child == 0) {
        if (getuid() == 0 && setuid(65534) != 0) _exit(2);
        _exit(tv::writeFileAtomically(folder.path / "a", "new").status == Tavo::eReadOnly &&
                      tv::writeFileAtomically(folder.path / "b", "new").status == Tavo::eFileAccess
                  ? 0
                  : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    fs::permissions(folder.path, fs::perms(0755));
    EXPECT_EQ(status, 0);
    EXPECT_EQ(folder.read("a"), "old");

    if (const int device = open("/dev/full", O_WRONLY); device >= 0) {
        tv::FileSink sink(device);
        EXPECT_TRUE(sink.write("buffered"));
        EXPECT_FALSE(sink.flush());
        EXPECT_EQ(sink.error(), ENOSPC);
        EXPECT_FALSE(sink.write("more"));
        close(device);
    }
}

TEST(AtomicFile, KilledHalfWayLeavesTheOldFile) {
    TempFolder folder;
    const fs::path file = folder.write("a", "old");
    const pid_t child = fork();
    if (child == 0) {
        static_cast<void>(tv::writeFileAtomically(file, [](tv::FileSink& sink) {
            sink.write(std::string(1000000, 'n'));
            return kill(getpid(), SIGKILL) == 0;
        }));
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(folder.read("a"), "old");
    EXPECT_FALSE(tv::writeFileAtomically(file, "new")); // what the killed process left is not in the way
    EXPECT_EQ(folder.read("a"), "new");
}

TEST(ReadFile, WholeFileOrOneSentence) {
    TempFolder folder;
    std::string bytes = "before";
    ASSERT_FALSE(tv::readFile(folder.write("a", std::string("a\0b\r\n", 5)), bytes));
    EXPECT_EQ(bytes, std::string("a\0b\r\n", 5));
    EXPECT_EQ(tv::readFile(folder.path / "none", bytes).status, Tavo::eFileNotFound);
    EXPECT_TRUE(bytes.empty());
    EXPECT_EQ(tv::readFile(folder.path, bytes).status, Tavo::eFileAccess);
    ASSERT_EQ(mkfifo((folder.path / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(tv::readFile(folder.path / "pipe", bytes).status, Tavo::eFileAccess); // and does not wait
}

} // namespace
