#include "shell/guard/Guard.h"

#include "settings/RequiredPasscode.h"

#include <utility>

namespace wardlock::shell {

namespace {

/// As on the page that changes the passcode: one more closes the keypad.
constexpr int toleratedFailures = 3;

} // namespace

Guard::Guard(Screen& screen, ScreenChanges& changes, PageBoundary& boundary)
    : screen_(screen), boundary_(boundary), subscription_(changes.observe(*this)) {}

bool Guard::isNeeded() const {
    return on_ && RequiredPasscode::onDisk();
}

void Guard::admit(std::function<void()> open) {
    if (!isNeeded())
        return open();
    open_ = std::move(open);
    failures_ = 0;
    keypad_ = KeypadOverlay::showOn(
        *screen_.window(), [this](const std::string& digits) { enter(digits); }, [this] { cancel(); });
}

void Guard::enter(const std::string& digits) {
    // As it is now: another process may have changed or removed it since the keypad was shown.
    const auto required = RequiredPasscode::onDisk();
    if (!required || required->matches(digits))
        return letIn();
    keypad_->reject();
    if (++failures_ > toleratedFailures)
        cancel();
}

void Guard::letIn() {
    const auto open = std::exchange(open_, {});
    keypad_->takeDown();
    open();
}

void Guard::cancel() {
    if (std::exchange(open_, {}))
        keypad_->takeDown();
}

void Guard::changeAnnounced(const Announcement& /*announcement*/) {
    if (open_ && !isNeeded())
        boundary_.enter([&] { letIn(); });
}

} // namespace wardlock::shell
