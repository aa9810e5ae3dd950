#pragma once

#include "platform/preferences/PSListController.h"
#include "platform/runtime/CFNotificationCenter.h"
#include "platform/runtime/NSNotificationCenter.h"
#include "platform/services/MFMailComposeViewController.h"
#include "platform/services/PasscodeLockView.h"

#include <string>
#include <string_view>

namespace wardlock::test {

/// A page that can be entered in every way there is. Each way comes to a failAt(), named after it, and writes
/// into the preferences document afterwards when the user has caused it.
class FailingListController : public platform::PSListController,
                              public platform::MFMailComposeViewControllerDelegate,
                              public platform::SBUIPasscodeLockViewDelegate {
public:
    static const platform::Class& theClass();

    FailingListController();
    ~FailingListController() override;

    const Specifiers& specifiers() override;
    std::string navigationTitle() const override;
    void viewWillAppear(bool animated) override;
    void viewDidAppear(bool animated) override;
    void viewWillDisappear(bool animated) override;
    void viewDidDisappear(bool animated) override;
    void tableViewDidSelectRowAtIndexPath(platform::NSIndexPath path) override;
    void scrollViewWillBeginDragging() override;

    void setValue(const platform::Value* value, platform::PSSpecifier& specifier);
    std::optional<platform::Value> getValue(platform::PSSpecifier& specifier);
    void add();
    void press();
    void ask();
    void showKeypad();
    void writeMail();
    void fade();
    void queue();
    void alertTextDidChange(const platform::NSNotification& notification);
    void willResign(const platform::NSNotification& notification);

    void mailComposeControllerDidFinishWithResultError(platform::MFMailComposeViewController& controller,
                                                       platform::MFMailComposeResult result,
                                                       const std::string& error) override;
    void passcodeLockViewPasscodeEntered(platform::SBUIPasscodeLockViewSimple4DigitKeypad& keypad) override;
    void
    passcodeLockViewPasscodeEnteredViaMesa(platform::SBUIPasscodeLockViewSimple4DigitKeypad& keypad) override;
    void
    passcodeLockViewCancelButtonPressed(platform::SBUIPasscodeLockViewSimple4DigitKeypad& keypad) override;
    void passcodeLockViewEmergencyCallButtonPressed(
        platform::SBUIPasscodeLockViewSimple4DigitKeypad& keypad) override;

private:
    std::shared_ptr<platform::PSSpecifier> row(std::string name, platform::PSCellType cell,
                                               std::string_view key);
    std::shared_ptr<platform::PSSpecifier> button(std::string name,
                                                  platform::PSSpecifier::ButtonAction action);
    void observe();
};

} // namespace wardlock::test
