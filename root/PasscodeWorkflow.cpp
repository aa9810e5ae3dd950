// The root page's passcode: setting it, and changing it after the current one was entered.

#include "passcode/PasscodeView.h"
#include "platform/ui/UIApplication.h"
#include "root/DocumentSnapshot.h"
#include "root/SettingsListController.h"
#include "settings/Constants.h"
#include "settings/DocumentChange.h"
#include "settings/Keys.h"

#include <optional>
#include <string_view>

namespace wardlock {
namespace {

constexpr const char* enterCurrentPasscode = "Enter Current Passcode";
constexpr const char* enterNewPasscode = "Enter New Passcode";
constexpr std::int32_t toleratedFailures = 3;

/// Returns none, which no entry equals, when the document has no passcode; the empty passcode is a different
/// value.
std::optional<std::string_view> currentPasscode() {
    return documentSnapshot ? platform::stringValue(documentSnapshot->find(kPasscode)) : std::nullopt;
}

} // namespace

void SettingsListController::passcodePressed() {
    setPasscodeView(PasscodeView::initWithDefaultSize());
    passcodeView_->setDelegate(self(this));
    failedCount_ = 0;
    passcodeView_->setStatus(currentPasscode() == "" ? enterNewPasscode : enterCurrentPasscode);
    if (const auto& window = platform::UIApplication::sharedApplication().keyWindow())
        window->addSubview(passcodeView_);
}

void SettingsListController::passcodeViewEnteredPasscode(PasscodeView& view, const std::string& passcode) {
    const auto keypad = view.keypad();
    if (!keypad || keypad->_statusText() != enterCurrentPasscode) {
        savePasscode(passcode);
        view.destroyPasscodeWithCompletion({});
        return;
    }
    if (currentPasscode() == passcode) {
        view.setStatus(enterNewPasscode);
        view.reset();
        return;
    }
    if (++failedCount_ > toleratedFailures) {
        failedCount_ = 0;
        cancelPasscodeView(view);
    } else {
        keypad->resetForFailedPasscode();
    }
}

void SettingsListController::passcodeDidCancel(PasscodeView& view) {
    cancelPasscodeView(view);
}

void SettingsListController::passcodeViewDidDestroy(PasscodeView& view) {
    // An earlier overlay may end after the next one has been shown; then the later one is kept.
    if (passcodeView_.get() == &view)
        setPasscodeView(nullptr);
}

void SettingsListController::cancelPasscodeView(PasscodeView& view) {
    view.destroyPasscodeWithCompletion({});
}

void SettingsListController::applicationWillResign(const platform::NSNotification& /*notification*/) {
    if (const auto view = passcodeView_)
        cancelPasscodeView(*view);
}

void SettingsListController::savePasscode(const std::string& passcode) {
    const platform::Value value(passcode);
    const DocumentChange change = setTopLevelValue(BundleIdentifier, kPasscode, &value);
    documentSnapshot.emplace(change.update.dictionary);
    announce(change);
}

} // namespace wardlock
