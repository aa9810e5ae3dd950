#include "platform/files/HomeFolder.h"

#include <cerrno>
#include <pwd.h>
#include <unistd.h>
#include <vector>

namespace platform {

std::optional<std::string> homeFolderOfUser() {
    std::vector<char> room(1024);
    passwd entry = {};
    passwd* found = nullptr;
    int error = 0;
    while ((error = ::getpwuid_r(::geteuid(), &entry, room.data(), room.size(), &found)) == ERANGE)
        room.resize(room.size() * 2);
    if (error != 0 || !found || !found->pw_dir || *found->pw_dir == '\0')
        return std::nullopt;
    return found->pw_dir;
}

} // namespace platform
