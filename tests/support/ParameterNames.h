// How a test is called after its parameter.
#pragma once

#include <gtest/gtest.h>

#include <string>

namespace wardlock::test {

std::string seedName(const ::testing::TestParamInfo<unsigned>& seed);
/// One of the signals that ask a process to end.
std::string signalName(const ::testing::TestParamInfo<int>& signal);

} // namespace wardlock::test
