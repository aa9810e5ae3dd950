#pragma once

/// The list of accounts of the preferences document. An account is known by its position alone, and other
/// processes may change the list at any time.

#include "platform/base/Export.h"
#include "platform/values/Value.h"

#include <cstddef>
#include <string>
#include <vector>

namespace wardlock {

/// What has become of an account between two looks at the list. A record that was changed where it stands is
/// the same account still.
enum class AccountFate {
    Same,
    /// Its record stands at another position, and another one at its own.
    Moved,
    /// Its record is gone; another one may stand at its position.
    Removed
};

/// The accounts as they were at one moment. Main thread only.
class WARDLOCK_API Accounts {
public:
    /// None.
    Accounts() = default;
    explicit Accounts(platform::Array records) : records_(std::move(records)) {}
    /// As they are on disk now; none when there is no document or no list in it.
    static Accounts onDisk();

    std::size_t size() const { return records_.size(); }
    /// Empty where the record has no name or does not exist.
    std::string name(std::size_t index) const;
    std::vector<std::string> names() const;

    /// What has become of the account at `index` in the `later` list. Records carry no identity: one that
    /// stood, or stands, at another position is taken for moved; one that is found nowhere else, for changed,
    /// unless the list has become shorter and the name is another one.
    AccountFate fate(std::size_t index, const Accounts& later) const;

private:
    platform::Array records_;
};

} // namespace wardlock
