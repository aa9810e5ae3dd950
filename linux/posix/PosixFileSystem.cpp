#include "linux/posix/PosixFileSystem.h"

#include "linux/posix/AccessList.h"
#include "linux/posix/FileDescriptor.h"
#include "linux/posix/FileReading.h"
#include "linux/posix/LastError.h"
#include "linux/posix/TrustedSymlink.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform::posix {

namespace {

/// Converts the result of a call that returns 0 on success.
std::error_code outcome(int result) {
    return result == 0 ? std::error_code() : lastError();
}

/// The kernel would read a name with a NUL inside as a shorter one, of another file.
bool hasNul(const std::string& path) {
    return path.find('\0') != std::string::npos;
}

std::error_code invalidName() {
    return std::make_error_code(std::errc::invalid_argument);
}

FileKind kindOf(mode_t mode) {
    if (S_ISREG(mode))
        return FileKind::Regular;
    if (S_ISDIR(mode))
        return FileKind::Folder;
    return S_ISLNK(mode) ? FileKind::Link : FileKind::Other;
}

FileStatus statusOf(const struct stat& found) {
    return {.kind = kindOf(found.st_mode),
            .mode = static_cast<unsigned>(found.st_mode & 07777),
            .owner = found.st_uid,
            .group = found.st_gid,
            .device = found.st_dev,
            .inode = found.st_ino,
            .links = found.st_nlink,
            .size = static_cast<std::uint64_t>(found.st_size)};
}

/// In a process without standard output the next file takes its number, and printed text would be written
/// into it.
std::error_code aboveStandardOnes(FileDescriptor& opened, FileHandle& file) {
    const int number = opened.get();
    const int moved = number > STDERR_FILENO ? number : ::fcntl(number, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    if (moved < 0)
        return lastError();
    if (moved == number)
        opened.release();
    file = moved;
    return {};
}

/// Opens regular files only; O_NONBLOCK prevents a wait at a pipe without a writer.
std::error_code openRegular(const std::string& path, int flags, Links links, FileHandle& file,
                            FileStatus& status) {
    if (hasNul(path))
        return invalidName();
    int number = noFile;
    flags |= O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
    if (links == Links::NoFollow)
        number = ::open(path.c_str(), flags | O_NOFOLLOW);
    else if (std::error_code error = openThroughTrustedSymlinks(path, flags, number))
        return error;
    if (number < 0)
        return lastError();
    FileDescriptor opened(number);
    struct stat found;
    if (::fstat(opened.get(), &found) != 0)
        return lastError();
    status = statusOf(found);
    if (status.kind == FileKind::Folder)
        return std::make_error_code(std::errc::is_a_directory);
    if (status.kind != FileKind::Regular)
        return std::make_error_code(std::errc::not_supported);
    file = opened.release();
    return {};
}

std::error_code openToRead(const std::string& path, FileHandle& file, FileStatus& status) {
    return uninterrupted([&] { return openRegular(path, O_RDONLY, Links::Follow, file, status); });
}

} // namespace

std::uint32_t PosixFileSystem::user() const {
    return ::geteuid();
}

std::error_code PosixFileSystem::status(const std::string& path, Links links, FileStatus& status) {
    if (hasNul(path))
        return invalidName();
    struct stat found;
    if ((links == Links::Follow ? ::stat(path.c_str(), &found) : ::lstat(path.c_str(), &found)) != 0)
        return lastError();
    status = statusOf(found);
    return {};
}

std::error_code PosixFileSystem::status(FileHandle file, FileStatus& status) {
    struct stat found;
    if (::fstat(file, &found) != 0)
        return lastError();
    status = statusOf(found);
    return {};
}

std::error_code PosixFileSystem::readLink(const std::string& path, std::string& target) {
    if (hasNul(path))
        return invalidName();
    return readTrustedSymlink(path, target);
}

std::error_code PosixFileSystem::resolve(const std::string& path, std::string& resolved) {
    if (hasNul(path))
        return invalidName();
    const std::unique_ptr<char, void (*)(void*)> text(::realpath(path.c_str(), nullptr), &std::free);
    if (!text)
        return lastError();
    resolved = text.get();
    return {};
}

std::error_code PosixFileSystem::readFile(const std::string& path, std::size_t maximum, std::string& bytes) {
    FileHandle file = noFile;
    FileStatus status;
    if (std::error_code error = openToRead(path, file, status))
        return error;
    const FileDescriptor opened(file);
    if (status.size > maximum)
        return std::make_error_code(std::errc::file_too_large);
    return readToEnd(file, status.size, maximum, bytes);
}

std::error_code PosixFileSystem::compareFile(const std::string& path, std::string_view bytes, bool& same) {
    FileHandle file = noFile;
    FileStatus status;
    if (std::error_code error = openToRead(path, file, status))
        return error;
    const FileDescriptor opened(file);
    if (status.size == bytes.size())
        return compareToEnd(file, bytes, same);
    same = false;
    return {};
}

std::error_code PosixFileSystem::list(const std::string& folder, std::vector<std::string>& names) {
    if (hasNul(folder))
        return invalidName();
    const std::unique_ptr<DIR, int (*)(DIR*)> opened(::opendir(folder.c_str()), &::closedir);
    if (!opened)
        return lastError();
    std::vector<std::string> found;
    errno = 0;
    // readdir is safe on a stream that no other thread uses.
    while (const dirent* entry = ::readdir(opened.get())) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..")
            found.emplace_back(name);
        errno = 0;
    }
    if (errno != 0)
        return lastError();
    names = std::move(found);
    return {};
}

std::error_code PosixFileSystem::create(const std::string& path, unsigned mode, FileHandle& file) {
    if (hasNul(path))
        return invalidName();
    FileDescriptor opened(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode));
    return opened ? aboveStandardOnes(opened, file) : lastError();
}

std::error_code PosixFileSystem::open(const std::string& path, FileHandle& file) {
    FileStatus status;
    return openRegular(path, O_RDONLY, Links::NoFollow, file, status);
}

std::error_code PosixFileSystem::openToAppend(const std::string& path, FileHandle& file) {
    FileStatus status;
    FileHandle opened = noFile;
    if (std::error_code error = openRegular(path, O_WRONLY | O_APPEND, Links::Follow, opened, status))
        return error;
    FileDescriptor owned(opened);
    return aboveStandardOnes(owned, file);
}

std::error_code PosixFileSystem::lock(FileHandle file) {
    return outcome(::flock(file, LOCK_EX | LOCK_NB));
}

std::error_code PosixFileSystem::write(FileHandle file, std::string_view bytes, std::size_t& written) {
    const ssize_t count = ::write(file, bytes.data(), bytes.size());
    if (count < 0)
        return lastError();
    written = static_cast<std::size_t>(count);
    return {};
}

std::error_code PosixFileSystem::setMode(FileHandle file, unsigned mode) {
    return outcome(::fchmod(file, mode));
}

std::error_code PosixFileSystem::setOwner(FileHandle file, std::uint32_t owner, std::uint32_t group) {
    return outcome(::fchown(file, owner, group));
}

std::error_code PosixFileSystem::setGroup(FileHandle file, std::uint32_t group) {
    return outcome(::fchown(file, static_cast<uid_t>(-1), group));
}

std::error_code PosixFileSystem::copyAccessList(const std::string& path, FileHandle file) {
    return hasNul(path) ? invalidName() : posix::copyAccessList(path, file);
}

std::error_code PosixFileSystem::sync(FileHandle file, Sync sync) {
    if (sync == Sync::None)
        return {};
    return outcome(sync == Sync::Full ? ::fsync(file) : ::fdatasync(file));
}

std::error_code PosixFileSystem::close(FileHandle file) {
    // Interrupted or not, the descriptor is gone afterwards; a second close could close another thread's
    // file.
    return ::close(file) == 0 || errno == EINTR ? std::error_code() : lastError();
}

std::error_code PosixFileSystem::rename(const std::string& from, const std::string& to) {
    return hasNul(from) || hasNul(to) ? invalidName() : outcome(::rename(from.c_str(), to.c_str()));
}

std::error_code PosixFileSystem::link(const std::string& file, const std::string& name) {
    return hasNul(file) || hasNul(name) ? invalidName() : outcome(::link(file.c_str(), name.c_str()));
}

std::error_code PosixFileSystem::makeSymbolicLink(const std::string& target, const std::string& path) {
    return hasNul(target) || hasNul(path) ? invalidName() : outcome(::symlink(target.c_str(), path.c_str()));
}

std::error_code PosixFileSystem::syncFolder(const std::string& folder) {
    if (hasNul(folder))
        return invalidName();
    const FileDescriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!opened)
        return errno == EACCES ? std::error_code() : lastError();
    return ::fsync(opened.get()) == 0 || errno == EINVAL ? std::error_code() : lastError();
}

std::error_code PosixFileSystem::remove(const std::string& path) {
    return hasNul(path) ? invalidName() : outcome(std::remove(path.c_str()));
}

std::error_code PosixFileSystem::makeFolder(const std::string& path, unsigned mode) {
    return hasNul(path) ? invalidName() : outcome(::mkdir(path.c_str(), mode));
}

} // namespace platform::posix
