#pragma once

#include "settings/DocumentChange.h"

#include <string>

namespace wardlock::cli {

/// Loads the settings as every process does, which writes the defaults where the document or a top-level key
/// is missing. Throws CommandError (Failed) when they cannot be written: no change could be either.
void loadToChange();

/// Announces a change that is in place. Throws CommandError (Failed) when it was not written, when a power
/// cut may take it back, or when there was no account to change.
void finish(const DocumentChange& change);

/// Throws CommandError (Failed) when a change could not be written, or a power cut may take it back.
void requireStored(const platform::Update& update);

} // namespace wardlock::cli
