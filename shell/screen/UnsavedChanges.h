#pragma once

#include "platform/base/Subscription.h"
#include "shell/screen/Screen.h"
#include "shell/screen/ScreenChanges.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace wardlock::shell {

/// Notifies the user of changes that could not be stored. Pages ignore what a writer returns, so the writers
/// report their failures here. Main thread only.
class UnsavedChanges {
public:
    UnsavedChanges(Screen& screen, ScreenChanges& changes);

    /// Shows a notice of what could not be stored since the last call. Returns whether there was anything:
    /// the pages then show values that are not stored.
    bool notify();
    /// The number of changes that could not be stored since the start.
    std::size_t count() const { return count_; }

private:
    void receive(std::string_view reason);

    Screen& screen_;
    ScreenChanges& changes_;
    std::size_t count_ = 0;
    /// The last reason without a notice; empty for none.
    std::string reason_;
    platform::Subscription subscription_;
};

} // namespace wardlock::shell
