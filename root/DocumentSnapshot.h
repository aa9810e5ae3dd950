#pragma once

#include "platform/values/Value.h"

#include <optional>

namespace wardlock {

/// The preferences document as the root page last read or wrote it; none while there is no document. All root
/// pages of the process share it. Passcode and account creation replace it after each write. Main thread
/// only.
extern std::optional<platform::MutableDictionary> documentSnapshot;

/// Replaces it with the document on disk.
void readDocumentSnapshot();

} // namespace wardlock
