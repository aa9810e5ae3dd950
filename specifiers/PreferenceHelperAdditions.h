#pragma once

/// What PreferenceHelper adds to PSSpecifier. Icons of rows: resources of a bundle, named by file name;
/// without an extension, or with an empty one, a ".png" is meant. A file that is not there leaves the row
/// without an icon and without a message.

#include "platform/preferences/PSSpecifier.h"
#include "platform/runtime/NSBundle.h"

#include <memory>
#include <string_view>

namespace wardlock {

/// Gives the row an icon of this bundle, the one that defines PreferenceHelper, and answers the row.
std::shared_ptr<platform::PSSpecifier> addIcon(std::shared_ptr<platform::PSSpecifier> specifier,
                                               std::string_view fileName);

/// Sets the row's "iconImage" to the bundle's icon, or to nothing; a null bundle has no icons.
void setIcon(platform::PSSpecifier& specifier, const platform::NSBundle* bundle, std::string_view fileName);

} // namespace wardlock
