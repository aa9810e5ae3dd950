#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace platform::applist {

/// An installed application as the list knows it.
struct Application {
    std::string identifier;
    std::string name;
    /// The .app folder, a path of this machine; empty for an entry of the desktop.
    std::string folder;
    /// The file of the desktop's entry; empty for a .app folder.
    std::string entry;
    /// Names of icon files inside the folder, as its Info.plist gives them.
    std::vector<std::string> icons;
    /// Tells installations of the application apart.
    std::uint64_t version = 0;

    bool operator==(const Application&) const = default;
};

} // namespace platform::applist
