#include "passcode/PasscodeView.h"

#include "platform/runtime/Class.h"
#include "tests/support/doubles/FakeDevice.h"
#include "tests/support/doubles/ManualClock.h"
#include "tests/support/doubles/RecordingDisplay.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace wardlock::test {
namespace {

using platform::UIView;

using Events = std::vector<std::string>;

class Recorder : public PasscodeViewDelegate {
public:
    explicit Recorder(Events& events) : events_(events) {}

    void passcodeViewEnteredPasscode(PasscodeView&, const std::string& passcode) override {
        events_.push_back("delegate entered " + passcode);
    }
    void passcodeDidCancel(PasscodeView&) override { events_.push_back("delegate cancelled"); }
    void passcodeDidPressEmergency(PasscodeView&) override { events_.push_back("delegate emergency"); }
    void passcodeViewDidDestroy(PasscodeView&) override { events_.push_back("delegate destroyed"); }

private:
    Events& events_;
};

class PasscodeOverlay : public testing::Test {
protected:
    void show() {
        view = PasscodeView::initWithDefaultSize();
        window->addSubview(view);
        clock.step(0.4);
    }
    void recordBlocks() {
        view->setPasscodeCancelledBlock([this](PasscodeView&) { events.push_back("block cancelled"); });
        view->setPasscodeEnteredBlock([this](PasscodeView&, const std::string& passcode) {
            events.push_back("block entered " + passcode);
        });
        view->setPasscodeViewDestroyedBlock([this](PasscodeView&) { events.push_back("block destroyed"); });
        view->setEmergencyPressedBlock([this](PasscodeView&) { events.push_back("block emergency"); });
    }
    void enter(const char* digits) {
        const auto keypad = view->keypad();
        for (; *digits; ++digits)
            keypad->pressDigit(*digits - '0');
    }

    FakeDevice device;
    doubles::ManualClock clock;
    std::shared_ptr<UIView> window = std::make_shared<UIView>(device.bounds);
    std::shared_ptr<PasscodeView> view;
    Events events;
    std::shared_ptr<Recorder> recorder = std::make_shared<Recorder>(events);
};

TEST_F(PasscodeOverlay, HasTheBoundsOfTheScreen) {
    device.bounds = {{0, 0}, {414, 736}};
    view = PasscodeView::initWithDefaultSize();
    EXPECT_EQ(view->frame(), device.bounds);
}

TEST_F(PasscodeOverlay, HasADarkBlurBeneathTheKeypad) {
    view = PasscodeView::initWithDefaultSize();
    ASSERT_EQ(view->subviews().size(), 2u);
    EXPECT_EQ(view->subviews()[0], view->blurView());
    EXPECT_EQ(view->subviews()[1], view->keypad());
    EXPECT_EQ(static_cast<int>(view->blurView()->effect().style), 2);
    EXPECT_EQ(view->blurView()->autoresizingMask(), 10u);
    EXPECT_EQ(view->blurView()->frame(), view->bounds());
}

TEST_F(PasscodeOverlay, AddsBlurAndThenKeypadOnceTheyAreSetUpAndInvisible) {
    class Witness : public doubles::RecordingDisplay {
    public:
        void viewChanged(UIView& view) override {
            const auto* overlay = dynamic_cast<PasscodeView*>(&view);
            if (!overlay || overlay->subviews().empty())
                return;
            const auto& added = overlay->subviews().back();
            std::string picture = added == overlay->keypad() ? "keypad" : "blur";
            picture += added->alpha() == 0 ? ", invisible" : ", visible";
            if (const auto* keypad = dynamic_cast<const PasscodeView::Keypad*>(added.get()))
                picture +=
                    keypad->backgroundAlpha() == 0 && !keypad->showsEmergencyCallButton() ? ", bare" : "";
            else
                picture += added->frame() == overlay->bounds() && added->autoresizingMask() == 10
                               ? ", laid out"
                               : "";
            pictures.push_back(picture + ", attempts " + std::to_string(overlay->maxAttempts()));
        }
        Events pictures;
    };
    Witness witness;
    PasscodeView::initWithDefaultSize();
    EXPECT_EQ(witness.pictures,
              (Events{"blur, invisible, laid out, attempts 0", "keypad, invisible, bare, attempts 4"}));
}

TEST_F(PasscodeOverlay, CreatesASeparateBlurInvisible) {
    show();
    const auto first = view->blurView();
    view->createBlurView();
    EXPECT_NE(view->blurView(), first);
    EXPECT_EQ(view->blurView()->alpha(), 0);
    EXPECT_EQ(view->subviews().back(), view->blurView());
}

TEST_F(PasscodeOverlay, AllowsFourAttemptsToItsDelegate) {
    view = PasscodeView::initWithDefaultSize();
    EXPECT_EQ(view->maxAttempts(), 4);
    EXPECT_EQ(view->failedCount(), 0);
}

TEST_F(PasscodeOverlay, NeverTouchesTheCountsItKeepsForItsDelegate) {
    show();
    view->setFailedCount(2);
    view->setMaxAttempts(7);
    enter("1234");
    view->reset();
    enter("5678");
    EXPECT_EQ(view->failedCount(), 2);
    EXPECT_EQ(view->maxAttempts(), 7);
}

TEST_F(PasscodeOverlay, HidesTheKeypadsBackgroundAndEmergencyButton) {
    view = PasscodeView::initWithDefaultSize();
    EXPECT_EQ(view->keypad()->backgroundAlpha(), 0);
    EXPECT_FALSE(view->keypad()->showsEmergencyCallButton());
}

TEST_F(PasscodeOverlay, FadesKeypadAndBlurInOverFourTenthsOfASecond) {
    view = PasscodeView::initWithDefaultSize();
    EXPECT_EQ(view->keypad()->presentationAlpha(), 0);
    EXPECT_EQ(view->blurView()->presentationAlpha(), 0);
    clock.step(0.2);
    EXPECT_DOUBLE_EQ(view->keypad()->presentationAlpha(), 0.5);
    EXPECT_DOUBLE_EQ(view->blurView()->presentationAlpha(), 0.5);
    clock.step(0.2);
    EXPECT_DOUBLE_EQ(view->keypad()->presentationAlpha(), 1);
    EXPECT_DOUBLE_EQ(view->blurView()->presentationAlpha(), 1);
}

TEST_F(PasscodeOverlay, AcceptsDigitsFromTheStartOfItsFade) {
    view = PasscodeView::initWithDefaultSize();
    view->setDelegate(recorder);
    clock.step(0.1);
    enter("1234");
    EXPECT_EQ(events, Events{"delegate entered 1234"});
}

TEST_F(PasscodeOverlay, IgnoresDigitsWhileItFadesOut) {
    show();
    view->setDelegate(recorder);
    view->destroyPasscode();
    clock.step(0.1);
    enter("1234");
    EXPECT_EQ(events, Events{});
}

/// A factory of keypads under the system's name, in front of the system's own.
class CountingFactory : public platform::SBUIPasscodeLockViewFactory {
public:
    std::shared_ptr<PasscodeView::Keypad> passcodeLockViewForStyle(int style) override {
        styles.push_back(style);
        return offersKeypads ? std::make_shared<PasscodeView::Keypad>(platform::CGRect{}) : nullptr;
    }
    static CountingFactory& instance() {
        static const auto factory = std::make_shared<CountingFactory>();
        return *factory;
    }
    static Object& classMethods() { return instance(); }

    std::vector<int> styles;
    bool offersKeypads = true;
};

const platform::Class countingFactory("SBUIPasscodeLockViewFactory", nullptr, &CountingFactory::classMethods);
const platform::Class* const factoryTable[] = {&countingFactory};

TEST_F(PasscodeOverlay, AsksTheCurrentFactoryForTheSimpleFourDigitKeypad) {
    platform::registerClasses(factoryTable);
    view = PasscodeView::initWithDefaultSize();
    platform::withdrawClasses(factoryTable);
    EXPECT_EQ(CountingFactory::instance().styles, std::vector<int>{0});
    EXPECT_NE(view->keypad(), nullptr);
}

TEST_F(PasscodeOverlay, IgnoresCallsWithoutAKeypad) {
    CountingFactory::instance().offersKeypads = false;
    platform::registerClasses(factoryTable);
    view = PasscodeView::initWithDefaultSize();
    platform::withdrawClasses(factoryTable);
    EXPECT_EQ(view->keypad(), nullptr);
    view->setStatus("Enter Passcode");
    view->resetStatus();
    view->reset();
    view->setShowEmergency(true);
    view->setDelegate(recorder);
    view->destroyPasscode();
    clock.step(0.4);
    EXPECT_EQ(events, Events{"delegate destroyed"});
}

TEST_F(PasscodeOverlay, SetsTheStatusTextAndShowsItWithoutASubtitle) {
    show();
    view->setStatus("Enter New Passcode");
    EXPECT_EQ(view->keypad()->_statusText(), "Enter New Passcode");
    EXPECT_EQ(view->keypad()->shownText(), "Enter New Passcode");
    EXPECT_EQ(view->keypad()->shownSubtitle(), "");
}

TEST_F(PasscodeOverlay, HasItsStatusBeforeTheTextIsShown) {
    class Witness : public doubles::RecordingDisplay {
    public:
        void viewChanged(UIView& view) override {
            if (const auto* keypad = dynamic_cast<PasscodeView::Keypad*>(&view))
                pictures.push_back(keypad->shownText() + " of " + keypad->_statusText());
        }
        Events pictures;
    };
    show();
    Witness witness;
    view->setStatus("Enter New Passcode");
    EXPECT_EQ(witness.pictures, Events{"Enter New Passcode of Enter New Passcode"});
}

TEST_F(PasscodeOverlay, ResetsTheStatusToTheKeypadsDefault) {
    show();
    view->setStatus("Enter New Passcode");
    view->resetStatus();
    EXPECT_EQ(view->keypad()->_statusText(), view->keypad()->_defaultStatusText());
    EXPECT_EQ(view->keypad()->shownText(), view->keypad()->_defaultStatusText());
}

TEST_F(PasscodeOverlay, ClearsTheDigitsOnReset) {
    show();
    enter("12");
    view->reset();
    EXPECT_EQ(view->keypad()->passcode(), "");
    EXPECT_EQ(view->keypad()->failures(), 0);
}

TEST_F(PasscodeOverlay, ShowsTheEmergencyButtonOnRequest) {
    show();
    view->setShowEmergency(true);
    EXPECT_TRUE(view->keypad()->showsEmergencyCallButton());
    view->setShowEmergency(false);
    EXPECT_FALSE(view->keypad()->showsEmergencyCallButton());
}

TEST_F(PasscodeOverlay, FadesAndThenCallsItsCompletionWhenHidden) {
    show();
    int calls = 0;
    view->setPasscodeHidden(true, [&calls] { ++calls; });
    clock.step(0.39);
    EXPECT_EQ(calls, 0);
    clock.step(0.02);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(view->keypad()->presentationAlpha(), 0);
    EXPECT_EQ(view->blurView()->presentationAlpha(), 0);
    view->setPasscodeHidden(false, {});
    clock.step(0.41);
    EXPECT_EQ(view->keypad()->presentationAlpha(), 1);
    EXPECT_EQ(calls, 1);
}

TEST_F(PasscodeOverlay, OnlyReportsACancel) {
    show();
    view->setDelegate(recorder);
    recordBlocks();
    view->keypad()->pressCancel();
    view->cancelPasscode();
    clock.step(1);
    EXPECT_EQ(events,
              (Events{"delegate cancelled", "block cancelled", "delegate cancelled", "block cancelled"}));
    EXPECT_EQ(view->superview(), window);
    EXPECT_EQ(view->subviews().size(), 2u);
    EXPECT_EQ(view->keypad()->presentationAlpha(), 1);
}

TEST_F(PasscodeOverlay, OnlyReportsAnEntryAndLeavesItsDigits) {
    show();
    view->setDelegate(recorder);
    enter("1234");
    clock.step(1);
    EXPECT_EQ(events, Events{"delegate entered 1234"});
    EXPECT_EQ(view->superview(), window);
    EXPECT_EQ(view->keypad()->passcode(), "1234");
    EXPECT_EQ(view->keypad()->failures(), 0);
}

TEST_F(PasscodeOverlay, NotifiesDelegateThenBlockOfAnEntry) {
    show();
    view->setDelegate(recorder);
    recordBlocks();
    enter("0907");
    EXPECT_EQ(events, (Events{"delegate entered 0907", "block entered 0907"}));
}

TEST_F(PasscodeOverlay, TreatsAnEntryByTheSecondPathAsATypedOne) {
    show();
    view->setDelegate(recorder);
    recordBlocks();
    view->keypad()->enterViaMesa("0907");
    EXPECT_EQ(events, (Events{"delegate entered 0907", "block entered 0907"}));
}

TEST_F(PasscodeOverlay, NotifiesDelegateThenBlockOfACancel) {
    show();
    view->setDelegate(recorder);
    recordBlocks();
    view->keypad()->pressCancel();
    EXPECT_EQ(events, (Events{"delegate cancelled", "block cancelled"}));
}

TEST_F(PasscodeOverlay, CancelsWhenAskedToAsIfTheButtonWasPressed) {
    show();
    view->setDelegate(recorder);
    recordBlocks();
    view->cancelPasscode();
    EXPECT_EQ(events, (Events{"delegate cancelled", "block cancelled"}));
    EXPECT_NE(view->keypad(), nullptr);
}

TEST_F(PasscodeOverlay, NotifiesDelegateThenBlockOfAnEmergencyCall) {
    show();
    view->setShowEmergency(true);
    view->setDelegate(recorder);
    recordBlocks();
    view->keypad()->pressEmergencyCall();
    EXPECT_EQ(events, (Events{"delegate emergency", "block emergency"}));
}

TEST_F(PasscodeOverlay, NotifiesCompletionThenDelegateThenBlockOfItsEnd) {
    show();
    view->setDelegate(recorder);
    recordBlocks();
    view->destroyPasscodeWithCompletion([this] { events.push_back("completion"); });
    clock.step(0.39);
    EXPECT_EQ(events, Events{});
    clock.step(0.02);
    EXPECT_EQ(events, (Events{"completion", "delegate destroyed", "block destroyed"}));
}

TEST_F(PasscodeOverlay, IsEmptyHiddenAndDetachedBeforeItReportsItsEnd) {
    show();
    bool checked = false;
    view->destroyPasscodeWithCompletion([this, &checked] {
        checked = true;
        EXPECT_TRUE(view->subviews().empty());
        EXPECT_EQ(view->keypad(), nullptr);
        EXPECT_EQ(view->blurView(), nullptr);
        EXPECT_TRUE(view->isHidden());
        EXPECT_EQ(view->superview(), nullptr);
        EXPECT_TRUE(window->subviews().empty());
    });
    EXPECT_FALSE(view->isHidden());
    EXPECT_EQ(view->superview(), window);
    clock.step(0.41);
    EXPECT_TRUE(checked);
}

TEST_F(PasscodeOverlay, IsEmptiedThenHiddenThenDetached) {
    class Witness : public doubles::RecordingDisplay {
    public:
        explicit Witness(PasscodeView& overlay) : overlay_(overlay) {}
        void viewChanged(UIView& view) override {
            const auto above = overlay_.superview();
            if (&view == &overlay_ || (&view == above.get()) || !above)
                pictures.push_back(picture());
        }
        std::string picture() const {
            return std::to_string(overlay_.subviews().size()) + " inside, " +
                   (overlay_.keypad() && overlay_.blurView() ? "kept" : "let go of") +
                   (overlay_.isHidden() ? ", hidden" : "") + (overlay_.superview() ? "" : ", detached");
        }
        Events pictures;

    private:
        PasscodeView& overlay_;
    };
    show();
    view->destroyPasscode();
    Witness witness(*view);
    clock.step(0.41);
    EXPECT_EQ(witness.pictures, (Events{"1 inside, kept", "0 inside, kept", "0 inside, let go of, hidden",
                                        "0 inside, let go of, hidden, detached"}));
}

TEST_F(PasscodeOverlay, FadesOutBeforeItGoes) {
    show();
    view->destroyPasscode();
    clock.step(0.2);
    EXPECT_DOUBLE_EQ(view->keypad()->presentationAlpha(), 0.5);
    EXPECT_DOUBLE_EQ(view->blurView()->presentationAlpha(), 0.5);
    EXPECT_EQ(window->subviews().size(), 1u);
}

TEST_F(PasscodeOverlay, ReportsItsEndWithoutASuperview) {
    view = PasscodeView::initWithDefaultSize();
    view->setDelegate(recorder);
    recordBlocks();
    view->destroyPasscodeWithCompletion([this] { events.push_back("completion"); });
    clock.step(0.41);
    EXPECT_EQ(events, (Events{"completion", "delegate destroyed", "block destroyed"}));
}

TEST_F(PasscodeOverlay, RunsBothCompletionsWhenDestroyedTwice) {
    show();
    view->destroyPasscodeWithCompletion([this] { events.push_back("first"); });
    clock.step(0.1);
    view->destroyPasscodeWithCompletion([this] { events.push_back("second"); });
    clock.step(0.35);
    EXPECT_EQ(events, Events{"first"});
    clock.step(0.1);
    EXPECT_EQ(events, (Events{"first", "second"}));
}

TEST_F(PasscodeOverlay, DropsEveryEventThatItsDelegateIgnores) {
    class Indifferent : public PasscodeViewDelegate {};
    show();
    const auto indifferent = std::make_shared<Indifferent>();
    view->setDelegate(indifferent);
    view->setShowEmergency(true);
    enter("1234");
    view->keypad()->enterViaMesa("1234");
    view->keypad()->pressEmergencyCall();
    view->keypad()->pressCancel();
    EXPECT_EQ(view->superview(), window);
    view->destroyPasscode();
    clock.step(0.41);
    EXPECT_EQ(view->superview(), nullptr);
}

TEST_F(PasscodeOverlay, DoesNotRetainItsDelegate) {
    show();
    view->setDelegate(recorder);
    recordBlocks();
    const std::weak_ptr<Recorder> gone = recorder;
    recorder.reset();
    EXPECT_TRUE(gone.expired());
    EXPECT_EQ(view->delegate(), nullptr);
    enter("1234");
    EXPECT_EQ(events, Events{"block entered 1234"});
}

TEST_F(PasscodeOverlay, LivesUntilItsFadeEndsWhenReleasedDuringTheFade) {
    show();
    view->setDelegate(recorder);
    const std::weak_ptr<PasscodeView> weak = view;
    const std::weak_ptr<PasscodeView::Keypad> keypad = view->keypad();
    view->destroyPasscode();
    clock.step(0.1);
    view->removeFromSuperview();
    view.reset();
    EXPECT_FALSE(weak.expired());
    clock.step(0.31);
    EXPECT_EQ(events, Events{"delegate destroyed"});
    EXPECT_TRUE(weak.expired());
    EXPECT_TRUE(keypad.expired());
}

TEST_F(PasscodeOverlay, IsGoneAtOnceWhenReleasedDuringItsFirstFade) {
    view = PasscodeView::initWithDefaultSize();
    const std::weak_ptr<PasscodeView> weak = view;
    clock.step(0.1);
    view.reset();
    EXPECT_TRUE(weak.expired());
    clock.step(1);
}

TEST_F(PasscodeOverlay, OutlivesItsDelegateDuringAFade) {
    show();
    view->setDelegate(recorder);
    recordBlocks();
    view->destroyPasscode();
    recorder.reset();
    clock.step(0.41);
    EXPECT_EQ(events, Events{"block destroyed"});
}

TEST_F(PasscodeOverlay, SurvivesABlockThatReplacesItself) {
    show();
    view->setPasscodeCancelledBlock([this](PasscodeView& cancelled) {
        cancelled.setPasscodeCancelledBlock({});
        events.push_back("cancelled");
    });
    view->cancelPasscode();
    view->cancelPasscode();
    EXPECT_EQ(events, Events{"cancelled"});
}

TEST_F(PasscodeOverlay, SurvivesABlockThatReleasesIt) {
    show();
    const std::weak_ptr<PasscodeView> weak = view;
    view->setPasscodeEnteredBlock([this](PasscodeView& entered, const std::string& passcode) {
        view->removeFromSuperview();
        view.reset();
        events.push_back(passcode + " in " + std::to_string(entered.subviews().size()));
    });
    enter("1234");
    EXPECT_EQ(events, Events{"1234 in 2"});
    EXPECT_TRUE(weak.expired());
}

TEST_F(PasscodeOverlay, NotifiesItsBlockEvenWhenItsDelegateReleasesIt) {
    class Dropping : public PasscodeViewDelegate {
    public:
        explicit Dropping(std::function<void()> letGo) : letGo_(std::move(letGo)) {}
        void passcodeViewEnteredPasscode(PasscodeView&, const std::string&) override { letGo_(); }
        void passcodeDidCancel(PasscodeView&) override { letGo_(); }
        void passcodeDidPressEmergency(PasscodeView&) override { letGo_(); }

    private:
        std::function<void()> letGo_;
    };
    std::weak_ptr<PasscodeView> weak;
    const auto dropping = std::make_shared<Dropping>([&] {
        view->removeFromSuperview();
        view.reset();
        EXPECT_FALSE(weak.expired());
    });
    for (const auto event : {+[](PasscodeView& overlay) { overlay.passcodeEntered("1234"); },
                             +[](PasscodeView& overlay) { overlay.cancelPasscode(); },
                             +[](PasscodeView& overlay) {
                                 overlay.passcodeLockViewEmergencyCallButtonPressed(*overlay.keypad());
                             }}) {
        show();
        weak = view;
        recordBlocks();
        view->setDelegate(dropping);
        event(*view);
        EXPECT_TRUE(weak.expired());
    }
    EXPECT_EQ(events, (Events{"block entered 1234", "block cancelled", "block emergency"}));
}

TEST_F(PasscodeOverlay, HasPlainAccessorsForItsViews) {
    view = PasscodeView::initWithDefaultSize();
    const auto keypad = std::make_shared<PasscodeView::Keypad>(device.bounds);
    const auto blur = std::make_shared<platform::UIVisualEffectView>(
        platform::UIBlurEffect::effectWithStyle(platform::UIBlurEffectStyle::Light));
    view->setKeypad(keypad);
    view->setBlurView(blur);
    EXPECT_EQ(view->keypad(), keypad);
    EXPECT_EQ(view->blurView(), blur);
}

} // namespace
} // namespace wardlock::test
