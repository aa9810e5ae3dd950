#include "linux/posix/TrustedUsers.h"

#include "platform/runtime/Module.h"

#include <algorithm>
#include <cerrno>
#include <grp.h>
#include <mutex>
#include <pwd.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace platform::posix {

namespace {

constexpr std::size_t firstRoom = 1024;
constexpr std::size_t mostRoom = std::size_t{1} << 20;

/// Queries the user data base, with as much memory as the entry takes; returns false when there is no entry.
template <class Entry, class Call>
bool findEntry(Call call, Entry& entry, std::vector<char>& room) {
    Entry* found = nullptr;
    for (room.resize(firstRoom); room.size() <= mostRoom; room.resize(room.size() * 2))
        if (call(&entry, room.data(), room.size(), &found) != ERANGE)
            break;
    return found != nullptr;
}

/// Iterates over the user data base; the whole process shares the position.
class UserWalk {
public:
    UserWalk() : alone_(guard()) { ::setpwent(); }
    ~UserWalk() { ::endpwent(); }
    UserWalk(const UserWalk&) = delete;
    UserWalk& operator=(const UserWalk&) = delete;

    /// Returns 0 with the next entry, ENOENT at the end.
    int next(passwd& entry) {
        passwd* found = nullptr;
        int error = 0;
        while ((error = ::getpwent_r(&entry, room_.data(), room_.size(), &found)) == ERANGE &&
               room_.size() < mostRoom)
            room_.resize(room_.size() * 2);
        return error;
    }

private:
    static std::mutex& guard() {
        static std::mutex one;
        return one;
    }

    const std::lock_guard<std::mutex> alone_;
    std::vector<char> room_ = std::vector<char>(firstRoom);
};

/// A group's list does not name the users whose first group it is: their own entries do.
bool isFirstGroupOfAnother(uid_t user, gid_t group) {
    UserWalk users;
    passwd entry = {};
    int error = 0;
    while ((error = users.next(entry)) == 0)
        if (entry.pw_gid == group && entry.pw_uid != user)
            return true;
    // The data base could still let in a user whom it does not list.
    return error != ENOENT;
}

/// Returns whether the group has the user's name, is the first group of this user only, and has no other
/// member.
bool isGroupOfUserAlone(uid_t user, gid_t group) {
    std::vector<char> userRoom;
    passwd owner = {};
    const auto askForUser = [&](auto... room) { return ::getpwuid_r(user, room...); };
    if (!findEntry(askForUser, owner, userRoom) || owner.pw_gid != group)
        return false;
    std::vector<char> groupRoom;
    ::group entry = {};
    const auto askForGroup = [&](auto... room) { return ::getgrgid_r(group, room...); };
    const std::string name = owner.pw_name;
    if (!findEntry(askForGroup, entry, groupRoom) || name != entry.gr_name)
        return false;
    for (char** member = entry.gr_mem; *member; ++member)
        if (name != *member)
            return false;
    return !isFirstGroupOfAnother(user, group);
}

bool hasAccessList(const std::string& path) {
    return ::getxattr(path.c_str(), "system.posix_acl_access", nullptr, 0) > 0;
}

} // namespace

TrustedUsers::TrustedUsers() : users_{0, ::geteuid()} {
    // An object of this library, to find the library's file.
    static const char here = 0;
    for (const std::string& path : {std::string("/"), moduleContaining(&here)}) {
        FileStatus status;
        if (!FileSystem::native().status(path, Links::NoFollow, status))
            users_.push_back(status.owner);
    }
}

bool TrustedUsers::include(std::uint32_t user) const {
    return std::ranges::find(users_, user) != users_.end();
}

bool TrustedUsers::haveGroupAlone(const std::string& path, std::uint32_t group) const {
    return !hasAccessList(path) &&
           std::ranges::any_of(users_, [&](std::uint32_t user) { return isGroupOfUserAlone(user, group); });
}

} // namespace platform::posix
