#include "linux/posix/PrivateFolder.h"

#include "linux/posix/FileDescriptor.h"
#include "linux/posix/LastError.h"
#include "linux/posix/PosixFileSystem.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform::posix {

bool preparePrivateFolder(const std::string& path) {
    const bool made = mkdir(path.c_str(), S_IRWXU) == 0;
    const FileDescriptor folder(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat status {};
    if (!folder || fstat(folder.get(), &status) != 0 || status.st_uid != geteuid())
        return false;
    // The creation mask may have removed more than it should.
    if (made && fchmod(folder.get(), S_IRWXU) != 0)
        return false;
    return made || (status.st_mode & ALLPERMS) == S_IRWXU;
}

std::error_code prepareUserFolder(const std::string& path) {
    PosixFileSystem files;
    if (const std::error_code error = makeFolders(files, path, S_IRWXU))
        return error;
    const FileDescriptor folder(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat status {};
    if (!folder || fstat(folder.get(), &status) != 0)
        return lastError();
    const bool isOurs = status.st_uid == geteuid() && (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
    return isOurs ? std::error_code() : std::make_error_code(std::errc::operation_not_permitted);
}

bool isFolderOfOwnUser(const std::string& path) {
    PosixFileSystem files;
    std::string folder = path;
    FileStatus status;
    return !followLinks(files, folder, status) && status.kind == FileKind::Folder &&
           (status.owner == geteuid() || status.owner == 0);
}

bool isPrivateFolder(const std::string& path) {
    struct stat status {};
    return lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == geteuid() &&
           (status.st_mode & ALLPERMS) == S_IRWXU;
}

} // namespace platform::posix
