#pragma once

#include "cli/io/Signals.h"

#include <string>

namespace wardlock::cli {

/// Runs a shell command for a change and waits for its end: `json` is its standard input, and WARDLOCK_KEY
/// has the key. Reports a command that fails to standard error. Returns false when a signal of `stop` has
/// arrived first: the command is asked to end, and not waited for. Throws CommandError (Failed) when no
/// process can be started.
bool runForChange(const std::string& command, const std::string& key, const std::string& json,
                  const Signals& stop);

} // namespace wardlock::cli
