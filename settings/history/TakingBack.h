#pragma once

#include "platform/base/Export.h"
#include "settings/history/Difference.h"

#include <optional>
#include <string>
#include <vector>

namespace wardlock {

/// What happens to changes that were made to the same keys since.
enum class LaterChanges {
    /// Nothing is taken back then.
    Keep,
    Overwrite
};

/// A document in which a change is taken back.
struct TakingBack {
    /// None where it was refused.
    std::optional<platform::Dictionary> document;
    /// Why it was refused, one text per key: "Tom: Siri was changed again".
    std::vector<std::string> conflicts;
};

/// Takes the change from `before` to `after` back in the document as it is `now`. Every other key of it
/// stays, with its value and its position. A document that is `after` becomes `before`, in its order of keys.
///
/// `since` are the documents between `after` and `now`, from the oldest on. They show what became of an
/// account: from one document to the next it can be recognised, over many changes it may look like another.
///
/// A key that has the value of `before` again needs nothing. One that has a third value is a conflict. So is
/// an account that was added and then changed, and one that was enabled since where another becomes enabled
/// again: overwriting disables it in the same step, as the account page does. A change in an account that is
/// gone cannot be taken back, whatever is asked for.
WARDLOCK_API TakingBack takeBack(const platform::Dictionary& before, const platform::Dictionary& after,
                                 const std::vector<platform::Dictionary>& since,
                                 const platform::Dictionary& now, LaterChanges later);

} // namespace wardlock
