#include "platform/services/PasscodeLockView.h"

#include "platform/runtime/Class.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace platform {
namespace {

using Keypad = SBUIPasscodeLockViewSimple4DigitKeypad;

class Reports : public Object, public SBUIPasscodeLockViewDelegate {
public:
    void passcodeLockViewPasscodeEntered(Keypad& keypad) override {
        log.push_back("entered " + keypad.passcode());
    }
    void passcodeLockViewPasscodeEnteredViaMesa(Keypad& keypad) override {
        log.push_back("mesa " + keypad.passcode());
    }
    void passcodeLockViewCancelButtonPressed(Keypad&) override { log.emplace_back("cancel"); }
    void passcodeLockViewEmergencyCallButtonPressed(Keypad&) override { log.emplace_back("emergency"); }

    std::vector<std::string> log;
};

class PasscodeLockView : public ::testing::Test {
protected:
    void SetUp() override {
        auto* factory =
            objc_getClass("SBUIPasscodeLockViewFactory")->classMethods<SBUIPasscodeLockViewFactory>();
        keypad = factory->passcodeLockViewForStyle(0);
        keypad->setDelegate(reports);
    }
    void press(const std::string& digits) {
        for (const char digit : digits)
            keypad->pressDigit(digit - '0');
    }

    std::shared_ptr<Reports> reports = std::make_shared<Reports>();
    std::shared_ptr<Keypad> keypad;
};

using Log = std::vector<std::string>;

TEST_F(PasscodeLockView, ReportsTheFourthDigitAndIgnoresAFifth) {
    press("12345");
    EXPECT_EQ(reports->log, Log{"entered 1234"});
    EXPECT_EQ(keypad->passcode(), "1234");
}

TEST_F(PasscodeLockView, DeletesTheLastDigit) {
    press("12");
    keypad->pressDelete();
    press("934");
    EXPECT_EQ(reports->log, Log{"entered 1934"});
}

TEST_F(PasscodeLockView, ClearsItsDigitsOnReset) {
    press("12");
    keypad->reset();
    EXPECT_EQ(keypad->passcode(), "");
    EXPECT_EQ(keypad->failures(), 0);
}

TEST_F(PasscodeLockView, ShowsAFailureAndClearsItsDigits) {
    press("12");
    keypad->resetForFailedPasscode();
    EXPECT_EQ(keypad->passcode(), "");
    EXPECT_EQ(keypad->failures(), 1);
}

TEST_F(PasscodeLockView, ReportsTheSecondEntryPathAsSuch) {
    keypad->enterViaMesa("4321");
    EXPECT_EQ(reports->log, Log{"mesa 4321"});
}

TEST_F(PasscodeLockView, AcceptsOnlyFourDigitsByTheSecondPath) {
    for (const char* passcode : {"", "432", "43210", "432a", " 432", "\u0664\u0663", "4.32"})
        keypad->enterViaMesa(passcode);
    EXPECT_TRUE(reports->log.empty());
    EXPECT_EQ(keypad->passcode(), "");
}

TEST_F(PasscodeLockView, ReportsAnEmergencyCallOnlyWhileItsButtonIsShown) {
    keypad->setShowsEmergencyCallButton(false);
    keypad->pressEmergencyCall();
    EXPECT_TRUE(reports->log.empty());
    keypad->setShowsEmergencyCallButton(true);
    keypad->pressEmergencyCall();
    EXPECT_EQ(reports->log, Log{"emergency"});
}

TEST_F(PasscodeLockView, IgnoresInputWhileItFadesOut) {
    UIView::animateWithDuration(0.4, [this] { keypad->setAlpha(0); });
    press("1234");
    keypad->pressCancel();
    keypad->enterViaMesa("1234");
    EXPECT_TRUE(reports->log.empty());
}

TEST_F(PasscodeLockView, AcceptsInputFromTheStartOfItsFade) {
    keypad->setAlpha(0);
    UIView::animateWithDuration(0.4, [this] { keypad->setAlpha(1); });
    press("1234");
    EXPECT_EQ(reports->log, Log{"entered 1234"});
}

TEST_F(PasscodeLockView, KeepsItsStatusTextApartFromTheTextShown) {
    keypad->_setStatusText("Status");
    EXPECT_EQ(keypad->_statusText(), "Status");
    EXPECT_EQ(keypad->shownText(), "");
    keypad->updateStatusText("Shown", "Subtitle", true);
    EXPECT_EQ(keypad->shownText(), "Shown");
    EXPECT_EQ(keypad->shownSubtitle(), "Subtitle");
    EXPECT_EQ(keypad->_statusText(), "Status");
}

TEST_F(PasscodeLockView, OffersOnlyTheSimpleStyle) {
    auto* factory = objc_getClass("SBUIPasscodeLockViewFactory")->classMethods<SBUIPasscodeLockViewFactory>();
    EXPECT_EQ(factory->passcodeLockViewForStyle(1), nullptr);
}

} // namespace
} // namespace platform
