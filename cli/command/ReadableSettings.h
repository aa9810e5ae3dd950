#pragma once

#include "cli/io/Arguments.h"
#include "cli/io/CommandError.h"

namespace wardlock::cli {

/// Throws CommandError (Failed), with a way out, when there is a document that cannot be read or is damaged.
/// To load such settings gives defaults, and the next change replaces the document by them. A person who
/// runs a verb has to know; other programs that load the settings cannot ask.
void requireReadableSettings();

/// A verb that loads the settings.
template <ExitCode (*run)(const Arguments&)>
ExitCode onReadableSettings(const Arguments& arguments) {
    requireReadableSettings();
    return run(arguments);
}

} // namespace wardlock::cli
