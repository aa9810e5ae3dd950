#pragma once

/// What PreferenceHelper adds to PSSpecifier: icons of rows. They are resources of a bundle, named by file
/// name; without an extension, or with an empty one, ".png" is added. A missing file leaves the row without
/// an icon and is not reported.

#include "platform/preferences/PSSpecifier.h"
#include "platform/runtime/NSBundle.h"

#include <memory>
#include <string_view>

namespace wardlock {

/// Gives the row an icon of the bundle that defines PreferenceHelper, and returns the row.
std::shared_ptr<platform::PSSpecifier> addIcon(std::shared_ptr<platform::PSSpecifier> specifier,
                                               std::string_view fileName);

/// Sets the row's "iconImage" to the bundle's icon, or to nothing. A null bundle has no icons.
void setIcon(platform::PSSpecifier& specifier, const platform::NSBundle* bundle, std::string_view fileName);

} // namespace wardlock
