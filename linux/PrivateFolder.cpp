#include "linux/PrivateFolder.h"

#include "linux/FileDescriptor.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

bool preparePrivateFolder(const std::string& path) {
    const bool made = mkdir(path.c_str(), S_IRWXU) == 0;
    const FileDescriptor folder(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat status {};
    if (!folder || fstat(folder.get(), &status) != 0 || status.st_uid != geteuid())
        return false;
    // The umask may have taken more away than we wanted.
    if (made && fchmod(folder.get(), S_IRWXU) != 0)
        return false;
    return made || (status.st_mode & ALLPERMS) == S_IRWXU;
}

} // namespace platform
