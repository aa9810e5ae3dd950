#pragma once

#include "platform/files/FileSystem.h"

#include <cstdint>
#include <string>
#include <vector>

namespace platform::posix {

/// The users whose code this process runs in any case: root, its own, the owner of the file system's root (in
/// a container root may have another number) and the owner of this library.
class TrustedUsers {
public:
    TrustedUsers();

    bool include(std::uint32_t user) const;
    /// Returns whether only these users can write through the group's permission. Many systems give each user
    /// a group of the same name and create files that it may write. Others get into it by the group's
    /// list, by a first group in their own entry, or by an access list in the file's attributes.
    bool haveGroupAlone(const std::string& path, std::uint32_t group) const;

private:
    std::vector<std::uint32_t> users_;
};

} // namespace platform::posix
