#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace platform::applist {

/// An installed application in the list.
struct Application {
    std::string identifier;
    std::string name;
    /// The .app folder, a path of this machine; empty for an entry of the desktop.
    std::string folder;
    /// The file of the desktop's entry; empty for a .app folder.
    std::string entry;
    /// Names of icon files inside the folder, from its Info.plist.
    std::vector<std::string> icons;
    /// Distinguishes installations of the application.
    std::uint64_t version = 0;

    bool operator==(const Application&) const = default;
};

} // namespace platform::applist
