#pragma once

#include "shell/input/InputResult.h"

#include <stdexcept>

namespace wardlock::cli {

/// A command of a script that cannot be carried out: becomes the answer {"error": ...}. Never thrown where
/// pages are on the stack.
class ScriptError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

inline void expectDone(const shell::InputResult& answer) {
    if (!answer)
        throw ScriptError(answer.reason());
}

} // namespace wardlock::cli
