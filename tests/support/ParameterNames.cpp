#include "tests/support/ParameterNames.h"

#include <csignal>

namespace wardlock::test {

std::string seedName(const ::testing::TestParamInfo<unsigned>& seed) {
    return "Seed" + std::to_string(seed.param);
}

std::string signalName(const ::testing::TestParamInfo<int>& signal) {
    return signal.param == SIGINT ? "Interrupt" : signal.param == SIGTERM ? "Termination" : "HangUp";
}

} // namespace wardlock::test
