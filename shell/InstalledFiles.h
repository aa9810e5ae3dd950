#pragma once

#include <string>

namespace wardlock::shell {

/// The folder of this installation that holds the settings bundle and the modules, found from where the
/// running program lies: an installed tree and a build tree look alike. Empty when there is none.
std::string installedFolder();

} // namespace wardlock::shell
