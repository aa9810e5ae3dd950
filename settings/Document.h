#pragma once

#include "../platform/base/Export.h"
#include "../platform/plist/PropertyListFile.h"
#include "../platform/values/Value.h"

#include <functional>
#include <optional>
#include <string_view>

namespace wardlock {

/// Reads the preferences document of a bundle identifier from disk. Returns nothing when it is missing or not
/// a document. Never creates it.
WARDLOCK_API std::optional<platform::Dictionary> document(std::string_view identifier);

/// The same. Sets `isUnreadable` to whether the bytes cannot be read although the document may exist, for
/// example on a failing disk: that says nothing about its entries.
WARDLOCK_API std::optional<platform::Dictionary> document(std::string_view identifier, bool& isUnreadable);

/// Changes the document on disk, as platform::updateFile does: `change` receives all its entries as they are
/// now and returns whether to write.
WARDLOCK_API platform::Update updateDocument(std::string_view identifier,
                                             const std::function<bool(platform::MutableDictionary&)>& change);

/// Creates the missing folders above the document, for the user alone, in a device root. Returns whether they
/// were missing and exist now. Creates nothing on the device itself (the root "/"), where the system has
/// created them for their owner.
WARDLOCK_API bool makeMissingDocumentFolder(std::string_view identifier);

} // namespace wardlock
