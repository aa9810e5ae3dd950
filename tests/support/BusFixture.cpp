#include "tests/support/BusFixture.h"

#include "tests/support/BuildPaths.h"

namespace wardlock::test {

ProcessSetup BusFixture::with(const std::string& variable, const std::string& value) {
    ProcessSetup setup;
    setup.environment[variable] = value;
    return setup;
}

std::unique_ptr<Process> BusFixture::observe(const std::vector<std::string>& arguments,
                                             const ProcessSetup& setup) {
    auto observer = std::make_unique<Process>(programFolder() + "/test-observer", arguments, setup);
    EXPECT_EQ(observer->readLine(), "ready");
    return observer;
}

void BusFixture::post(const std::vector<std::string>& arguments, const ProcessSetup& setup) {
    const auto result = runProcess(programFolder() + "/test-poster", arguments, setup);
    EXPECT_EQ(result.exitCode, 0) << result.errors;
}

} // namespace wardlock::test
