#pragma once

#include <string>

// The files installed with the running program, found from the program's own path: an installed tree and a
// build tree have the same layout. Symbolic links are resolved: a link to the program elsewhere does not move
// its installation.
namespace wardlock::shell {

/// Returns the folder of this installation with the settings bundle and the modules; empty when there is
/// none.
std::string installedFolder();

/// Returns the application-list module of this installation; empty when there is none.
std::string installedAppList();

/// Returns the folder of this installation with the pages of the documentation. Empty when there is none, as
/// in a build tree, where they are in the sources.
std::string installedPages();

} // namespace wardlock::shell
