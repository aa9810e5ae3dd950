#include "linux/ModuleTrust.h"

#include "platform/foundation/FileSystem.h"
#include "platform/foundation/RealFileSystem.h"

#include <cerrno>
#include <grp.h>
#include <pwd.h>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace platform {

namespace {

constexpr unsigned writableByGroup = 0020;
constexpr unsigned writableByAll = 0002;

/// Many systems give each user a group of the same name and let everybody create files it may write. Those
/// are the user's own all the same.
bool isGroupOfUserAlone(gid_t id) {
    std::vector<char> room(1024);
    passwd userEntry = {};
    passwd* user = nullptr;
    while (::getpwuid_r(::geteuid(), &userEntry, room.data(), room.size(), &user) == ERANGE)
        room.resize(room.size() * 2);
    if (!user || user->pw_gid != id)
        return false;
    const std::string name = user->pw_name;
    group groupEntry = {};
    group* found = nullptr;
    while (::getgrgid_r(id, &groupEntry, room.data(), room.size(), &found) == ERANGE)
        room.resize(room.size() * 2);
    if (!found || name != found->gr_name)
        return false;
    for (char** member = found->gr_mem; *member; ++member)
        if (name != *member)
            return false;
    return true;
}

std::string reasonToDistrust(const std::string& path, FileKind kind) {
    FileStatus status;
    if (std::error_code error = realFileSystem().status(path, Links::Follow, status))
        return path + ": " + error.message();
    if (status.kind != kind)
        return path + ": " + (kind == FileKind::Regular ? "not a file" : "not a folder");
    if (status.owner != 0 && status.owner != ::geteuid())
        return path + " belongs to another user";
    if (status.mode & writableByAll)
        return path + " can be changed by every user";
    if ((status.mode & writableByGroup) && !isGroupOfUserAlone(status.group))
        return path + " can be changed by a group of users";
    return "";
}

} // namespace

std::string reasonToDistrust(const std::string& path) {
    const std::string reason = reasonToDistrust(path, FileKind::Regular);
    return reason.empty() ? reasonToDistrust(folderOf(path), FileKind::Folder) : reason;
}

} // namespace platform
