#include "shell/InstalledFiles.h"

#include <filesystem>
#include <system_error>

namespace wardlock::shell {

namespace fs = std::filesystem;

std::string installedFolder() {
    std::error_code error;
    // Symbolic links are resolved: a link to the program elsewhere does not move its installation.
    const fs::path program = fs::canonical("/proc/self/exe", error);
    if (error)
        return {};
    const fs::path prefix = program.parent_path().parent_path();
    for (const char* library : {"lib", WARDLOCK_LIBRARY_FOLDER}) {
        const fs::path folder = prefix / library / "wardlock";
        if (fs::is_directory(folder / "PreferenceBundles", error))
            return folder.string();
    }
    return {};
}

} // namespace wardlock::shell
