// These tests reach what the platform's library hides because they are linked with its objects. That must not
// bring a second platform, with a loop and notification centres of its own, into the process.

#include "tests/support/BuildPaths.h"

#include <gtest/gtest.h>

#include <dlfcn.h>
#include <link.h>
#include <string>
#include <string_view>
#include <vector>

namespace wardlock::test {
namespace {

int notePlatform(dl_phdr_info* object, std::size_t, void* found) {
    const std::string_view path = object->dlpi_name;
    if (path.find("libwardlock-platform") != std::string_view::npos)
        static_cast<std::vector<std::string>*>(found)->emplace_back(path);
    return 0;
}

TEST(TestedPlatform, IsLoadedOnceThoughAModuleNeedsIt) {
    ASSERT_NE(dlopen(appListModule().c_str(), RTLD_NOW), nullptr)
        << dlerror(); // NOLINT(concurrency-mt-unsafe)
    std::vector<std::string> platforms;
    dl_iterate_phdr(notePlatform, &platforms);
    ASSERT_EQ(platforms.size(), 1U);
    EXPECT_NE(platforms.front().find("/testing/posix/"), std::string::npos) << platforms.front();
}

} // namespace
} // namespace wardlock::test
