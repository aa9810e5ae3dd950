#pragma once

#include "platform/base/Export.h"
#include "platform/plist/PropertyListFile.h"
#include "platform/values/Value.h"

#include <functional>
#include <optional>
#include <string_view>

namespace wardlock {

/// The preferences document of a bundle identifier as it is on disk now; none when it is missing or no
/// document. Never creates it.
WARDLOCK_API std::optional<platform::Dictionary> document(std::string_view identifier);

/// Changes it on disk, as platform::updateFile does: `change` gets all its entries as they are now and
/// answers whether to write.
WARDLOCK_API platform::Update updateDocument(std::string_view identifier,
                                             const std::function<bool(platform::MutableDictionary&)>& change);

/// Makes the folders above the document, for the user alone, in a device root that lacks them; whether they
/// were missing and stand now. Nothing is made on the device itself (the root "/"), where the system has made
/// them for the one they belong to.
WARDLOCK_API bool makeMissingDocumentFolder(std::string_view identifier);

} // namespace wardlock
