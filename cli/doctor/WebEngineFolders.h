#pragma once

#include <string>
#include <vector>

namespace wardlock::cli {

/// Returns where Qt searches for QML modules: the folders of QML_IMPORT_PATH and QML2_IMPORT_PATH, then Qt's
/// own.
std::vector<std::string> qmlFolders();

/// Returns the path of the web engine module in these folders; empty when there is none.
std::string webEngineFolder(const std::vector<std::string>& folders);

} // namespace wardlock::cli
