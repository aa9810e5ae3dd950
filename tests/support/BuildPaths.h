#pragma once

#include <string>

namespace wardlock::test {

// The paths of this build, absolute and without a closing slash.

std::string sourceFolder();
std::string buildFolder();
/// The programs that were built, those that are the other process of a test included.
std::string programFolder();
/// The modules that tests load.
std::string testModulesFolder();
/// The AppList library.
std::string appListModule();

} // namespace wardlock::test
