#pragma once

#include <string>

namespace wardlock::test {

// Where this build stands, as absolute paths without a closing slash.

std::string sourceFolder();
std::string buildFolder();
/// The programs that were built, those that stand beside a test as the other process included.
std::string programFolder();
/// The modules that tests load.
std::string testModulesFolder();
/// The AppList library.
std::string appListModule();

} // namespace wardlock::test
