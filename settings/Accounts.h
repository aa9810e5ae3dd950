#pragma once

/// The list of accounts of the preferences document. Only its position identifies an account, and other
/// processes may change the list at any time.

#include "../platform/base/Export.h"
#include "../platform/plist/PropertyListFile.h"
#include "../platform/values/Value.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
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

/// The accounts at one moment. Changing them changes no document; updateAccounts() does that. An index beyond
/// the end throws NSException (NSRangeException) and changes nothing; name() and fate() accept it. Main
/// thread only.
class WARDLOCK_API Accounts {
public:
    /// An empty list.
    Accounts() = default;
    explicit Accounts(platform::Array records) : records_(std::move(records)) {}
    /// Reads the value of "kAccounts"; none when it is missing or not a list.
    static std::optional<Accounts> of(const platform::Value* list);
    /// The accounts of the default document: one, which is not enabled.
    static Accounts defaults();
    /// Reads the accounts on disk; an empty list when the document or its list is missing.
    static Accounts onDisk();
    /// The same, but none when a document is there and cannot be read now, for example on a failing disk:
    /// that says nothing about its accounts.
    static std::optional<Accounts> onDiskIfReadable();

    std::size_t size() const { return records_.size(); }
    bool empty() const { return records_.empty(); }
    const platform::Array& records() const { return records_; }
    /// Returns null when the element there is not a record. Valid until the accounts are changed.
    const platform::Dictionary* record(std::size_t index) const;
    /// Returns the position of the account whose restrictions apply; none when no account is enabled.
    std::optional<std::size_t> firstEnabled() const;
    /// Empty where the record has no name or does not exist.
    std::string name(std::size_t index) const;
    std::vector<std::string> names() const;

    void append(const platform::Dictionary& record);
    /// Replaces the record by one with a new value of the key. Returns false, having changed nothing, when
    /// the element there is not a record. A null value throws NSException (NSInvalidArgumentException).
    bool set(std::size_t index, std::string_view key, const platform::Value* value);
    /// Removes the account; the default accounts replace the last one, so that the list is never left empty.
    void remove(std::size_t index);

    /// Compares the account at `index` with the `later` list. Records have no identity of their own:
    /// - A record that was, or is, at another position counts as moved.
    /// - A record found nowhere else counts as changed, unless the list has become shorter and the name
    ///   differs.
    AccountFate fate(std::size_t index, const Accounts& later) const;

private:
    platform::Array records_;
};

/// Changes the list of the document at a device path in one read-modify-write, as platform::updateFile does:
/// `change` gets the accounts as they are on disk now and returns whether to write. It is not called, and
/// nothing is written, when the document has no list.
WARDLOCK_API platform::Update updateAccounts(std::string_view documentPath,
                                             const std::function<bool(Accounts&)>& change);

} // namespace wardlock
