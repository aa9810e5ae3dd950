#pragma once

#include <string>
#include <vector>

namespace platform::applist {

struct DesktopFile {
    /// Its path below its folder of applications, with "-" for "/" and without ".desktop".
    std::string identifier;
    std::string path;
};

/// Returns the files of the desktop's entries: those of the user's folder, then those of the system's in
/// their order. Of several with one identifier only the first counts, whatever its content: it masks the
/// others. Bounded in depth and number, whatever links lead to.
std::vector<DesktopFile> desktopFiles();

} // namespace platform::applist
