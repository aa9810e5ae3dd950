#include "tests/support/EnglishLocale.h"

#include "tests/support/Process.h"

#include <gtest/gtest.h>

namespace wardlock::test {

EnglishLocale::EnglishLocale(Environment& environment) {
    constexpr const char* name = "en_US.UTF-8";
    const auto made = runProcess("/usr/bin/localedef", {"-f", "UTF-8", "-i", "en_US", folder_ / name});
    EXPECT_EQ(made.exitCode, 0) << made.errors;
    environment.set("LOCPATH", folder_.path());
    environment.set("LC_ALL", name);
}

} // namespace wardlock::test
