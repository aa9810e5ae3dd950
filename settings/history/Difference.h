#pragma once

/// What differs between two versions of the preferences document.

#include "platform/base/Export.h"
#include "platform/values/Value.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace wardlock {

/// One change of one key, or of the list of accounts by one.
struct Change {
    enum class Kind {
        /// A top-level key. The list of accounts counts as one where it is not a list before and after.
        TopLevelValue,
        AccountValue,
        AccountAdded,
        AccountDeleted
    };

    Kind kind = Kind::TopLevelValue;
    /// The key; empty for an account as a whole.
    std::string key = {};
    /// The name of the account, before the change where it is another one afterwards.
    std::string account = {};
    /// The account's positions in the older and the newer list, where it is in that list.
    std::size_t before = 0;
    std::size_t after = 0;
    /// The values, or the records of the account; none where there was or is none.
    std::optional<platform::Value> old = std::nullopt;
    std::optional<platform::Value> now = std::nullopt;
};

/// Returns the changes that lead from one document to the other: top-level keys and accounts in the order of
/// the documents. Documents that differ in the order of keys only have no changes.
WARDLOCK_API std::vector<Change> difference(const platform::Dictionary& before,
                                            const platform::Dictionary& after);

/// The same for a step that took another back: accounts are recognised as in the other, from `after` to
/// `before`.
WARDLOCK_API std::vector<Change> differenceOfUndo(const platform::Dictionary& before,
                                                  const platform::Dictionary& after);

/// For each position of `before`, where the same account is in `after`; none where it is not. Accounts have
/// no identity of their own: those are the same that agree best, in their order.
WARDLOCK_API std::vector<std::optional<std::size_t>> matchAccounts(const platform::Array& before,
                                                                   const platform::Array& after);

} // namespace wardlock
