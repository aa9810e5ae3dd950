#pragma once

#include "passcode/PasscodeViewDelegate.h"
#include "platform/preferences/PSListController.h"
#include "platform/runtime/Class.h"
#include "platform/runtime/NSNotificationCenter.h"
#include "platform/services/MFMailComposeViewController.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace wardlock {

class PasscodeView;
class PreferenceHelper;

/// The bundle's first page: master switch, passcode, accounts and contact. It is rebuilt from the document on
/// disk each time it is shown. Opening it does not ask for a passcode: the enforcing half guards Settings.
/// Main thread only; failed writes are not reported.
class SettingsListController : public platform::PSListController,
                               public PasscodeViewDelegate,
                               public platform::MFMailComposeViewControllerDelegate {
public:
    static const platform::Class& theClass();

    SettingsListController();
    ~SettingsListController() override;

    const std::shared_ptr<PreferenceHelper>& prefs() const { return prefs_; }
    void setPrefs(std::shared_ptr<PreferenceHelper> prefs) { prefs_ = std::move(prefs); }
    /// The passcode overlay while one is shown; null otherwise.
    const std::shared_ptr<PasscodeView>& passcodeView() const { return passcodeView_; }
    void setPasscodeView(std::shared_ptr<PasscodeView> view) { passcodeView_ = std::move(view); }

    // The list.
    const Specifiers& specifiers() override;
    void viewDidAppear(bool animated) override;
    void tableViewDidSelectRowAtIndexPath(platform::NSIndexPath path) override;
    void scrollViewWillBeginDragging() override;

    // The passcode. Its stage is the keypad's status text: the current passcode first, unless it is empty,
    // then the new one. The fourth wrong entry in a row closes the overlay; a new passcode is accepted on its
    // first entry.
    void passcodePressed();
    void passcodeViewEnteredPasscode(PasscodeView& view, const std::string& passcode) override;
    void passcodeDidCancel(PasscodeView& view) override;
    void passcodeViewDidDestroy(PasscodeView& view) override;
    void cancelPasscodeView(PasscodeView& view);
    void applicationWillResign(const platform::NSNotification& notification);
    void savePasscode(const std::string& passcode);

    // Account creation: asks for a name and appends a copy of the default record. Names are taken as they
    // are.
    void addAccount();
    void alertTextFieldDidChange(const platform::NSNotification& notification);
    /// A document without an account list is left as it is, with an entry in the log.
    void createAccountWithName(const std::string& name);

    // The maker.
    void openTwitter(platform::PSSpecifier& specifier);
    void openEmail(platform::PSSpecifier& specifier);
    void mailComposeControllerDidFinishWithResultError(platform::MFMailComposeViewController& controller,
                                                       platform::MFMailComposeResult result,
                                                       const std::string& error) override;

private:
    Specifiers buildSpecifiers();
    void observeResigning();
    void appendAccounts(Specifiers& rows);

    bool observersAdded_ = false;
    std::int32_t failedCount_ = 0;
    std::shared_ptr<PreferenceHelper> prefs_;
    std::shared_ptr<PasscodeView> passcodeView_;
};

} // namespace wardlock
