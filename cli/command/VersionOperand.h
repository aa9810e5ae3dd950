#pragma once

#include "settings/history/History.h"

#include <cstdint>
#include <string_view>

namespace wardlock::cli {

/// Returns the number in an operand; throws CommandError(WrongUsage) for anything else.
std::uint64_t versionNumber(std::string_view operand);

/// Returns the version that an operand names; throws CommandError where there is none that can be read.
platform::Dictionary documentOfOperand(const History& history, std::string_view operand);

} // namespace wardlock::cli
