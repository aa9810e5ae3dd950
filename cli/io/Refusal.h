#pragma once

#include "shell/input/InputResult.h"

#include <string>

namespace wardlock::cli {

/// Returns the sentence that says why an input was refused; empty when it was not.
inline std::string refusalText(const shell::InputResult& result) {
    return result ? std::string() : "Not possible: " + result.reason() + '.';
}

} // namespace wardlock::cli
