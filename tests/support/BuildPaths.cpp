#include "tests/support/BuildPaths.h"

namespace wardlock::test {

std::string sourceFolder() {
    return WARDLOCK_SOURCE_FOLDER;
}

std::string buildFolder() {
    return WARDLOCK_BUILD_FOLDER;
}

std::string programFolder() {
    return WARDLOCK_PROGRAM_FOLDER;
}

std::string testModulesFolder() {
    return WARDLOCK_TEST_MODULES;
}

std::string appListModule() {
    return WARDLOCK_APPLIST_MODULE;
}

} // namespace wardlock::test
