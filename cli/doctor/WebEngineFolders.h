#pragma once

#include <string>
#include <vector>

namespace wardlock::cli {

/// Where Qt looks for QML modules: the folders of QML_IMPORT_PATH and QML2_IMPORT_PATH, then Qt's own.
std::vector<std::string> qmlFolders();

/// The module in these folders in which the window finds its web engine; empty when there is none.
std::string webEngineFolder(const std::vector<std::string>& folders);

} // namespace wardlock::cli
