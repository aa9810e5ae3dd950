#include "cli/doctor/WebEngineFolders.h"

#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <system_error>
#include <vector>

namespace wardlock::cli {

namespace fs = std::filesystem;

std::vector<std::string> qmlFolders() {
    std::vector<std::string> folders;
    for (const char* variable : {"QML_IMPORT_PATH", "QML2_IMPORT_PATH"}) {
        const char* value = std::getenv(variable);
        std::istringstream list(value ? value : "");
        for (std::string folder; std::getline(list, folder, ':');)
            if (!folder.empty())
                folders.push_back(folder);
    }
    // Empty in a build without the window.
    if (const std::string own = WARDLOCK_QML_FOLDER; !own.empty())
        folders.push_back(own);
    return folders;
}

std::string webEngineFolder(const std::vector<std::string>& folders) {
    for (const std::string& folder : folders) {
        const fs::path module = fs::path(folder) / "QtWebEngine";
        std::error_code error;
        if (fs::is_regular_file(module / "qmldir", error))
            return module.string();
    }
    return {};
}

} // namespace wardlock::cli
