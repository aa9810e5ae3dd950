#include "linux/posix/PosixFileSystem.h"

#include "platform/files/AtomicWriter.h"
#include "tests/support/OtherUser.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace wardlock::test {
namespace {

using platform::AtomicWriter;
using platform::FileHandle;
using platform::FileKind;
using platform::FileStatus;
using platform::Links;
using platform::noFile;
using platform::Sync;

constexpr std::size_t plenty = 1 << 20;
constexpr uid_t nobody = 65534;

class PosixFileSystem : public ::testing::Test {
protected:
    std::string path(const char* name = "a") const { return folder / name; }
    void put(const std::string& path, std::string_view bytes) {
        FileHandle file = noFile;
        ASSERT_FALSE(files.create(path, 0600, file));
        EXPECT_FALSE(platform::writeAll(files, file, bytes));
        EXPECT_FALSE(files.close(file));
    }
    std::string contents(const std::string& path) {
        std::string bytes;
        EXPECT_FALSE(files.readFile(path, plenty, bytes));
        return bytes;
    }
    std::vector<std::string> names() {
        std::vector<std::string> found;
        EXPECT_FALSE(files.list(folder.path(), found));
        std::ranges::sort(found);
        return found;
    }
    FileStatus statusOf(const std::string& path) {
        FileStatus status;
        EXPECT_FALSE(files.status(path, Links::NoFollow, status));
        return status;
    }
    /// The result, an errno value, of what runs in a process of an ordinary user.
    template <class Work>
    static int asNobody(Work work) {
        const pid_t child = ::fork();
        if (child == 0) {
            if (::geteuid() == 0 && (::setgid(nobody) != 0 || ::setuid(nobody) != 0))
                ::_exit(255);
            ::_exit(work().value());
        }
        int status = 0;
        EXPECT_EQ(::waitpid(child, &status, 0), child);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    TemporaryFolder folder;
    platform::posix::PosixFileSystem files;
};

TEST_F(PosixFileSystem, IsInUseUnlessAnotherIsSet) {
    EXPECT_NE(dynamic_cast<platform::posix::PosixFileSystem*>(&platform::FileSystem::current()), nullptr);
    platform::FileSystem::setCurrent(&files);
    EXPECT_EQ(&platform::FileSystem::current(), &files);
    platform::FileSystem::setCurrent(nullptr);
    EXPECT_NE(&platform::FileSystem::current(), &files);
}

TEST_F(PosixFileSystem, ReadsBackWhatItWrote) {
    const std::string bytes(100'000, '\0');
    put(path(), bytes);
    EXPECT_EQ(contents(path()), bytes);
    put(path("empty"), "");
    EXPECT_EQ(contents(path("empty")), "");
}

TEST_F(PosixFileSystem, ReadsAFileThatReportsNoSize) {
    EXPECT_NE(contents("/proc/self/stat"), "");
}

TEST_F(PosixFileSystem, ReadsNoMoreThanTheMaximum) {
    put(path(), "1234");
    std::string bytes = "before";
    EXPECT_FALSE(files.readFile(path(), 4, bytes));
    EXPECT_EQ(files.readFile(path(), 3, bytes), std::errc::file_too_large);
    EXPECT_EQ(bytes, "1234");
    EXPECT_EQ(files.readFile("/proc/self/stat", 3, bytes), std::errc::file_too_large);
}

TEST_F(PosixFileSystem, ReportsWhyAFileCannotBeRead) {
    std::string bytes;
    EXPECT_EQ(files.readFile(path(), plenty, bytes), std::errc::no_such_file_or_directory);
    EXPECT_EQ(files.readFile(folder.path(), plenty, bytes), std::errc::is_a_directory);
    put(path(), "x");
    EXPECT_EQ(files.readFile(path() + "/b", plenty, bytes), std::errc::not_a_directory);
    EXPECT_EQ(files.readFile(path() + std::string(1, '\0') + "b", plenty, bytes),
              std::errc::invalid_argument);
}

TEST_F(PosixFileSystem, DoesNotBlockOnAPipe) {
    ASSERT_EQ(::mkfifo(path().c_str(), 0600), 0);
    std::string bytes;
    FileHandle file = noFile;
    EXPECT_EQ(files.readFile(path(), plenty, bytes), std::errc::not_supported);
    EXPECT_EQ(files.open(path(), file), std::errc::not_supported);
    EXPECT_EQ(files.openToAppend(path(), file), std::errc::no_such_device_or_address);
    EXPECT_EQ(AtomicWriter(files).write(path(), "x", Sync::None), std::errc::not_supported);
    EXPECT_EQ(statusOf(path()).kind, FileKind::Other);
}

TEST_F(PosixFileSystem, CreatesOnlyMissingFiles) {
    put(path(), "x");
    ASSERT_FALSE(files.makeSymbolicLink("nowhere", path("link")));
    FileHandle file = noFile;
    EXPECT_EQ(files.create(path(), 0600, file), std::errc::file_exists);
    EXPECT_EQ(files.create(path("link"), 0600, file), std::errc::file_exists);
    EXPECT_EQ(file, noFile);
}

TEST_F(PosixFileSystem, OpensNoFileForChildProcesses) {
    put(path(), "x");
    FileHandle file = noFile;
    ASSERT_FALSE(files.open(path(), file));
    EXPECT_EQ(::fcntl(file, F_GETFD), FD_CLOEXEC);
    EXPECT_FALSE(files.close(file));
}

TEST_F(PosixFileSystem, ReportsKindModeOwnerAndNames) {
    put(path(), "1234");
    ASSERT_FALSE(files.makeSymbolicLink("a", path("link")));
    ASSERT_FALSE(files.link(path(), path("b")));
    const FileStatus status = statusOf(path());
    EXPECT_EQ(status.kind, FileKind::Regular);
    EXPECT_EQ(status.mode, 0600u);
    EXPECT_EQ(status.owner, ::geteuid());
    EXPECT_EQ(status.size, 4u);
    EXPECT_EQ(status.links, 2u);
    EXPECT_EQ(statusOf(path("b")).inode, status.inode);
    EXPECT_EQ(statusOf(path("link")).kind, FileKind::Link);
    EXPECT_EQ(statusOf(folder.path()).kind, FileKind::Folder);
    FileStatus followed;
    EXPECT_FALSE(files.status(path("link"), Links::Follow, followed));
    EXPECT_EQ(followed.inode, status.inode);
}

TEST_F(PosixFileSystem, ResolvesLinksAndDots) {
    put(path(), "x");
    ASSERT_FALSE(files.makeSymbolicLink("../" + folder.path().substr(folder.path().rfind('/') + 1) + "/a",
                                        path("link")));
    std::string found;
    EXPECT_FALSE(files.readLink(path("link"), found));
    EXPECT_TRUE(found.starts_with("../"));
    EXPECT_FALSE(files.resolve(path("link"), found));
    EXPECT_EQ(found, path());
    EXPECT_EQ(files.resolve(path("none"), found), std::errc::no_such_file_or_directory);
    EXPECT_EQ(files.readLink(path(), found), std::errc::invalid_argument);
}

TEST_F(PosixFileSystem, AppendsToAnExistingFileOnly) {
    EXPECT_EQ(platform::appendToFile(files, path(), "x"), std::errc::no_such_file_or_directory);
    EXPECT_TRUE(names().empty());
    put(path(), "one");
    EXPECT_FALSE(platform::appendToFile(files, path(), "\ntwo"));
    EXPECT_EQ(contents(path()), "one\ntwo");
}

TEST_F(PosixFileSystem, CreatesFoldersAndTheirParents) {
    const std::string deep = path("x/y/z");
    EXPECT_FALSE(platform::makeFolders(files, deep, 0700));
    EXPECT_FALSE(platform::makeFolders(files, deep, 0700));
    EXPECT_EQ(statusOf(deep).kind, FileKind::Folder);
    EXPECT_EQ(statusOf(path("x")).mode, 0700u);
    put(path("file"), "");
    EXPECT_EQ(platform::makeFolders(files, path("file"), 0700), std::errc::file_exists);
    EXPECT_EQ(platform::makeFolders(files, path("file/x"), 0700), std::errc::not_a_directory);
    EXPECT_FALSE(files.remove(deep));
    EXPECT_EQ(files.remove(path("x")), std::errc::directory_not_empty);
}

TEST_F(PosixFileSystem, LocksAFileForOneHandle) {
    put(path(), "x");
    FileHandle first = noFile;
    FileHandle second = noFile;
    ASSERT_FALSE(files.open(path(), first));
    ASSERT_FALSE(files.open(path(), second));
    EXPECT_FALSE(files.lock(first));
    EXPECT_EQ(files.lock(second), std::errc::operation_would_block);
    EXPECT_FALSE(files.close(first));
    EXPECT_FALSE(files.lock(second));
    EXPECT_FALSE(files.close(second));
}

TEST_F(PosixFileSystem, SyncsFilesAndFolders) {
    FileHandle file = noFile;
    ASSERT_FALSE(files.create(path(), 0600, file));
    for (const Sync sync : {Sync::None, Sync::Data, Sync::Full})
        EXPECT_FALSE(files.sync(file, sync));
    EXPECT_FALSE(files.close(file));
    EXPECT_EQ(files.sync(file, Sync::Data), std::errc::bad_file_descriptor);
    EXPECT_FALSE(files.syncFolder(folder.path()));
    EXPECT_EQ(files.syncFolder(path()), std::errc::not_a_directory);
}

TEST_F(PosixFileSystem, FindsTheFolderOfAPath) {
    using platform::folderOf;
    EXPECT_EQ(folderOf("/a/b"), "/a");
    EXPECT_EQ(folderOf("/a/b/"), "/a");
    EXPECT_EQ(folderOf("/a//b"), "/a");
    EXPECT_EQ(folderOf("/a"), "/");
    EXPECT_EQ(folderOf("/"), "/");
    EXPECT_EQ(folderOf("a"), ".");
    EXPECT_EQ(folderOf("a/b"), "a");
}

TEST_F(PosixFileSystem, PerformsAnAtomicWrite) {
    put(path("real"), "old");
    ASSERT_EQ(::chmod(path("real").c_str(), 0640), 0);
    ASSERT_FALSE(files.makeSymbolicLink("real", path("link")));
    for (const Sync sync : {Sync::None, Sync::Data, Sync::Full}) {
        const std::uint64_t before = statusOf(path("real")).inode;
        ASSERT_FALSE(AtomicWriter(files).write(path("link"), "new", sync));
        EXPECT_NE(statusOf(path("real")).inode, before);
    }
    EXPECT_EQ(contents(path("real")), "new");
    EXPECT_EQ(statusOf(path("real")).mode, 0640u);
    EXPECT_EQ(names(), (std::vector<std::string>{"link", "real"}));
}

TEST_F(PosixFileSystem, MakesAnAtomicallyWrittenFilePrivateWhateverTheMask) {
    const mode_t before = ::umask(0277);
    EXPECT_FALSE(AtomicWriter(files).write(path(), "new", Sync::None));
    ::umask(before);
    EXPECT_EQ(statusOf(path()).mode, 0600u);
}

TEST_F(PosixFileSystem, KeepsTheOwnerAcrossAnAtomicWriteOfTheSuperuser) {
    SKIP_WITHOUT_OTHER_USER();
    put(path(), "old");
    ASSERT_EQ(::chown(path().c_str(), nobody, nobody), 0);
    ASSERT_EQ(::chmod(path().c_str(), 02640), 0);
    ASSERT_FALSE(AtomicWriter(files).write(path(), "new", Sync::None));
    EXPECT_EQ(statusOf(path()).owner, nobody);
    EXPECT_EQ(statusOf(path()).group, nobody);
    EXPECT_EQ(statusOf(path()).mode, 02640u);
}

TEST_F(PosixFileSystem, ReportsAFolderAnOrdinaryUserMayNotWrite) {
    put(path(), "old");
    ASSERT_EQ(::chmod(folder.path().c_str(), 0555), 0);
    EXPECT_EQ(asNobody([&] { return AtomicWriter(files).write(path(), "new", Sync::None); }), EACCES);
    EXPECT_EQ(contents(path()), "old");
    EXPECT_EQ(names(), std::vector<std::string>{"a"});
}

TEST_F(PosixFileSystem, ReplacesAFileInAFolderThatMayBeChangedAndNotListed) {
    SKIP_WITHOUT_OTHER_USER();
    put(path(), "old");
    ASSERT_EQ(::chmod(folder.path().c_str(), 0733), 0);
    EXPECT_EQ(asNobody([&] { return AtomicWriter(files).write(path(), "new", Sync::Full); }), 0);
    EXPECT_EQ(contents(path()), "new");
}

TEST_F(PosixFileSystem, ReplacesAForeignFileInASharedFolderAsTheUsersOwn) {
    SKIP_WITHOUT_OTHER_USER();
    put(path(), "old");
    ASSERT_EQ(::chmod(path().c_str(), 0664), 0);
    ASSERT_EQ(::chmod(folder.path().c_str(), 0777), 0);
    EXPECT_EQ(asNobody([&] { return AtomicWriter(files).write(path(), "new", Sync::Full); }), 0);
    EXPECT_EQ(contents(path()), "new");
    EXPECT_EQ(statusOf(path()).owner, nobody);
    EXPECT_EQ(statusOf(path()).mode, 0644u);
}

TEST_F(PosixFileSystem, ReportsAFullDisk) {
    FileHandle full = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
    ASSERT_GE(full, 0);
    EXPECT_EQ(platform::writeAll(files, full, "x"), std::errc::no_space_on_device);
    EXPECT_FALSE(files.close(full));
}

/// A second process that has begun a write: its temporary is made and locked.
class BegunWrite {
public:
    explicit BegunWrite(const std::string& temporary) {
        int ready[2];
        EXPECT_EQ(::pipe(ready), 0);
        child_ = ::fork();
        if (child_ == 0) {
            platform::posix::PosixFileSystem files;
            FileHandle file = noFile;
            const bool begun = !files.create(temporary, 0600, file) && !files.lock(file);
            (void)!::write(ready[1], begun ? "y" : "n", 1);
            while (true)
                ::pause();
        }
        char reply = 'n';
        EXPECT_EQ(::read(ready[0], &reply, 1), 1);
        EXPECT_EQ(reply, 'y');
        ::close(ready[0]);
        ::close(ready[1]);
    }
    ~BegunWrite() { kill(); }
    BegunWrite(const BegunWrite&) = delete;
    BegunWrite& operator=(const BegunWrite&) = delete;

    void kill() {
        if (child_ <= 0)
            return;
        ::kill(child_, SIGKILL);
        EXPECT_EQ(::waitpid(child_, nullptr, 0), child_);
        child_ = -1;
    }

private:
    pid_t child_ = -1;
};

TEST_F(PosixFileSystem, DistinguishesTheTemporaryOfALiveProcessFromAKilledOnes) {
    BegunWrite process(path(".a.0123456789abcdef.wardlock-new"));
    ASSERT_FALSE(AtomicWriter(files).write(path(), "new", Sync::None));
    EXPECT_EQ(names(), (std::vector<std::string>{".a.0123456789abcdef.wardlock-new", "a"}));
    process.kill();
    ASSERT_FALSE(AtomicWriter(files).write(path(), "newer", Sync::None));
    EXPECT_EQ(names(), std::vector<std::string>{"a"});
    EXPECT_EQ(contents(path()), "newer");
}

TEST_F(PosixFileSystem, LetsManyProcessesWriteTheSameFile) {
    constexpr int writers = 8;
    constexpr int writes = 100;
    std::vector<pid_t> children;
    for (int writer = 0; writer < writers; ++writer) {
        children.push_back(::fork());
        if (children.back() != 0)
            continue;
        const std::string bytes(5000, static_cast<char>('a' + writer));
        for (int count = 0; count < writes; ++count)
            if (AtomicWriter(files).write(path(), bytes, Sync::None))
                ::_exit(1);
        ::_exit(0);
    }
    for (const pid_t child : children) {
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0) << "a write failed";
    }
    const std::string left = contents(path());
    EXPECT_EQ(left, std::string(5000, left.empty() ? '?' : left.front()));
    EXPECT_EQ(names(), std::vector<std::string>{"a"});
}

} // namespace
} // namespace wardlock::test
