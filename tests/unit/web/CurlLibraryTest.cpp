#include "linux/web/CurlLibrary.h"

#include <gtest/gtest.h>

namespace wardlock::test {
namespace {

using platform::web::CurlLibrary;

TEST(CurlLibrary, HasEveryFunctionOfTheInstalledLibrary) {
    const CurlLibrary& curl = platform::web::curl();
    EXPECT_EQ(curl.error, "");
    EXPECT_NE(curl.urlCleanup, nullptr);
    EXPECT_STREQ(curl.easyStrerror(CURLE_OK), "No error");
}

TEST(CurlLibrary, NamesTheFileThatIsMissing) {
    EXPECT_NE(CurlLibrary("libnowhere.so.4").error.find("libnowhere.so.4"), std::string::npos);
}

TEST(CurlLibrary, NamesAFunctionThatTheFileDoesNotHave) {
    EXPECT_EQ(CurlLibrary("libc.so.6").error, "libc.so.6: no function curl_global_init");
}

} // namespace
} // namespace wardlock::test
