#pragma once

#include "settings/history/Difference.h"

#include <string_view>
#include <vector>

namespace wardlock {

/// Announces changes that lead to the document `now`, each key as the page that writes it does:
/// - a value of a key, at the top or in an account, with the new value;
/// - of several accounts that were enabled and disabled, one: enabling an account disables the other one in
///   the same write, and only the enabling is announced;
/// - an account that was added with its record, one that was deleted with the new list.
///
/// A key that was removed has no value to announce; observers are notified without user info, and reload.
void announceChanges(const std::vector<Change>& changes, const platform::Dictionary& now,
                     std::string_view identifier);

} // namespace wardlock
