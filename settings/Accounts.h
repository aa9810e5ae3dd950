#pragma once

/// The list of accounts of the preferences document. Only its position identifies an account, and other
/// processes may change the list at any time.

#include "../platform/base/Export.h"
#include "../platform/values/Value.h"

#include <cstddef>
#include <string>
#include <vector>

namespace wardlock {

/// What happened to an account between two readings of the list. A record that was changed at its position is
/// still the same account.
enum class AccountFate {
    Same,
    /// Its record is at another position, and another one at its own.
    Moved,
    /// Its record is gone; another one may be at its position.
    Removed
};

/// The accounts at one moment. Main thread only.
class WARDLOCK_API Accounts {
public:
    /// An empty list.
    Accounts() = default;
    explicit Accounts(platform::Array records) : records_(std::move(records)) {}
    /// Reads the accounts on disk; an empty list when the document or its list is missing.
    static Accounts onDisk();

    std::size_t size() const { return records_.size(); }
    /// Empty where the record has no name or does not exist.
    std::string name(std::size_t index) const;
    std::vector<std::string> names() const;

    /// Compares the account at `index` with the `later` list. Records have no identity of their own:
    /// - A record that was, or is, at another position counts as moved.
    /// - A record found nowhere else counts as changed, unless the list has become shorter and the name
    ///   differs.
    AccountFate fate(std::size_t index, const Accounts& later) const;

private:
    platform::Array records_;
};

} // namespace wardlock
