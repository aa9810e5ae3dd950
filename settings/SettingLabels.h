#pragma once

/// The settings by the labels of their rows, for code that names a setting outside the pages.

#include "platform/base/Export.h"

#include <span>
#include <string_view>

namespace wardlock {

struct SettingLabel {
    std::string_view key;
    std::string_view label;
};

/// Returns the top-level keys.
WARDLOCK_API std::span<const SettingLabel> documentLabels();

/// Returns the keys of an account that have a row, in the order of the account's page.
WARDLOCK_API std::span<const SettingLabel> accountLabels();

/// Returns the label of an account's key; the key itself where no row edits it.
WARDLOCK_API std::string_view accountLabel(std::string_view key);

} // namespace wardlock
