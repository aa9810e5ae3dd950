#pragma once

#include "platform/base/Export.h"
#include "settings/Accounts.h"

#include <cstddef>
#include <cstdint>

namespace wardlock {

/// The position in "kAccounts" of the account being edited: the row tapped last on the root page, 0 whenever
/// that page is shown. One per process, exported under this plain name; not saved. Main thread only.
extern "C" WARDLOCK_API std::intptr_t SelectedIndex;

/// SelectedIndex as a position in a list: a negative one becomes one beyond every list.
inline std::size_t selectedPosition() {
    return static_cast<std::size_t>(SelectedIndex);
}

/// Chooses the account at SelectedIndex for a change (settings/DocumentChange.h).
inline std::size_t selectedAccount(const Accounts&) {
    return selectedPosition();
}

} // namespace wardlock
