#pragma once

#include <string>

// What lies beside the running program, found from where that lies: an installed tree and a build tree look
// alike. Symbolic links are resolved: a link to the program elsewhere does not move its installation.
namespace wardlock::shell {

/// The folder of this installation that holds the settings bundle and the modules. Empty when there is none.
std::string installedFolder();

/// The folder of this installation that holds the pages of the documentation. Empty when there is none, as in
/// a build tree: there they lie in the source.
std::string installedPages();

} // namespace wardlock::shell
