#pragma once

/// Changes of the preferences document as a user makes them, from a page or a command: each is one
/// read-modify-write of the whole document, announced once afterwards. The caller announces it, so that it
/// can use the new document first. Main thread only.

#include "platform/base/Export.h"
#include "platform/plist/PropertyListFile.h"
#include "platform/values/Value.h"
#include "settings/Accounts.h"
#include "settings/Constants.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace wardlock {

/// A change that was tried, and what to announce of it.
struct DocumentChange {
    platform::Update update;
    std::string key;
    /// The new value; none when nothing was to be changed.
    std::optional<platform::Value> object;
};

/// Announces the change, also when it could not be written; nothing when there was none.
WARDLOCK_API void announce(const DocumentChange& change, std::string_view identifier = BundleIdentifier,
                           std::string_view post = PostName);

/// Sets a top-level key of the document of a bundle identifier. A null value throws NSException
/// (NSInvalidArgumentException).
WARDLOCK_API DocumentChange setTopLevelValue(std::string_view identifier, std::string_view key,
                                             const platform::Value* value);

/// Returns the position of the account to change in the accounts as they are on disk now; never called for an
/// empty list.
using AccountChoice = std::function<std::size_t(const Accounts&)>;

/// Sets a key of an account.
/// - An empty or missing name becomes "Blank".
/// - Enabling an account switches the first enabled one off in the same write.
///
/// Changes nothing when there are no accounts, or when the chosen one is not a record. A position beyond the
/// accounts throws NSException (NSRangeException), a null value NSInvalidArgumentException.
WARDLOCK_API DocumentChange setAccountValue(std::string_view documentPath, const AccountChoice& account,
                                            std::string_view key, const platform::Value* value);

/// Deletes an account; the default accounts replace the last one. The new list is announced. Changes nothing
/// when there are no accounts.
WARDLOCK_API DocumentChange deleteAccount(std::string_view documentPath, const AccountChoice& account);

/// Appends a copy of the default account with another name. The new record alone is announced. Changes
/// nothing when the document has no list of accounts.
WARDLOCK_API DocumentChange createAccount(std::string_view documentPath, std::string_view name);

enum class Restriction { On, Off };

/// Adds applications to the end of an account's list of restricted ones, each once, or removes every
/// occurrence of them. The new list is announced. An account without the list throws NSException
/// (NSInvalidArgumentException).
WARDLOCK_API DocumentChange setRestricted(std::string_view documentPath, const AccountChoice& account,
                                          std::span<const std::string> applications, Restriction restriction);

} // namespace wardlock
