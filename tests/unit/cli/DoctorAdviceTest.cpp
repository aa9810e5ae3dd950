#include "tests/support/BusFixture.h"
#include "tests/unit/cli/CommandFixture.h"

namespace wardlock::test {
namespace {

class DoctorAdvice : public BusFixture {};

TEST_F(DoctorAdvice, NamesTheRootOfTheOption) {
    const std::string missing = root() + "/not here";
    const ProcessResult result = wardlockCommand({"doctor", "--device-root", missing});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.output.find("\n        -> Create it: wardlock device init '" + missing + "'\n"),
              std::string::npos)
        << result.output;
}

} // namespace
} // namespace wardlock::test
