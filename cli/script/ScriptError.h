#pragma once

#include "shell/input/InputResult.h"

#include <stdexcept>

namespace wardlock::cli {

/// Thrown for a command that cannot be carried out: becomes the reply {"error": ...}. Never thrown through
/// code of pages.
class ScriptError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Throws ScriptError with the reason of a refused input.
inline void expectDone(const shell::InputResult& result) {
    if (!result)
        throw ScriptError(result.reason());
}

} // namespace wardlock::cli
