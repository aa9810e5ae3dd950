#include "passcode/PasscodeView.h"
#include "platform/ui/UIApplication.h"
#include "root/DocumentSnapshot.h"
#include "root/SettingsListController.h"
#include "tests/support/PageFixture.h"
#include "tests/support/doubles/RecordingDisplay.h"

namespace wardlock::test {
namespace {

using platform::Dictionary;
using platform::Value;

constexpr const char* current = "Enter Current Passcode";
constexpr const char* fresh = "Enter New Passcode";

class PasscodeWorkflow : public PageFixture {
protected:
    void open() {
        tap(*page, "Passcode");
        clock.step(0.41);
    }
    void openWithPasscode(const char* passcode) {
        writeDocument({{"kEnabled", true}, {"kPasscode", passcode}});
        page->reloadSpecifiers();
        open();
    }
    std::shared_ptr<PasscodeView::Keypad> keypad() { return page->passcodeView()->keypad(); }
    void enter(std::string_view digits) {
        const auto keys = keypad();
        for (const char digit : digits)
            keys->pressDigit(digit - '0');
    }
    std::string status() { return keypad()->_statusText(); }
    void expectOpen() {
        clock.step(0.41);
        EXPECT_NE(page->passcodeView(), nullptr);
        EXPECT_EQ(window->subviews().size(), 1u);
    }
    /// Expects the overlay to fade out in the window and to be gone afterwards.
    void expectClosed() {
        const auto view = page->passcodeView();
        ASSERT_NE(view, nullptr) << "closed before the fade has ended";
        clock.step(0.2);
        EXPECT_EQ(window->subviews(), std::vector<std::shared_ptr<platform::UIView>>{view});
        EXPECT_FALSE(view->isHidden());
        EXPECT_DOUBLE_EQ(view->keypad()->presentationAlpha(), 0.5);
        EXPECT_DOUBLE_EQ(view->blurView()->presentationAlpha(), 0.5);
        EXPECT_EQ(page->passcodeView(), view);
        clock.step(0.21);
        EXPECT_EQ(page->passcodeView(), nullptr);
        EXPECT_TRUE(window->subviews().empty());
    }

    std::shared_ptr<SettingsListController> page = std::make_shared<SettingsListController>();
};

TEST_F(PasscodeWorkflow, OpensOverTheKeyWindowWithThePageAsDelegate) {
    openWithPasscode("");
    ASSERT_EQ(window->subviews().size(), 1u);
    EXPECT_EQ(window->subviews()[0], page->passcodeView());
    EXPECT_EQ(page->passcodeView()->delegate(), page);
    EXPECT_EQ(page->passcodeView()->frame(), device.bounds);
}

TEST_F(PasscodeWorkflow, AsksBeforeItEntersTheWindow) {
    class Witness : public doubles::RecordingDisplay {
    public:
        Witness(platform::UIView& window, SettingsListController& page) : window_(window), page_(page) {}
        void viewChanged(platform::UIView& view) override {
            if (&view != &window_ || window_.subviews().empty())
                return;
            statusThen = page_.passcodeView()->keypad()->_statusText();
            delegateThen = page_.passcodeView()->delegate();
        }
        std::string statusThen;
        std::shared_ptr<PasscodeViewDelegate> delegateThen;

    private:
        platform::UIView& window_;
        SettingsListController& page_;
    };
    writeDocument({{"kPasscode", ""}});
    page->specifiers();
    Witness witness(*window, *page);
    open();
    EXPECT_EQ(witness.statusThen, fresh);
    EXPECT_EQ(witness.delegateThen, page);
}

TEST_F(PasscodeWorkflow, OpensUnseenWithoutAWindow) {
    platform::UIApplication::sharedApplication().setKeyWindow(nullptr);
    openWithPasscode("");
    EXPECT_NE(page->passcodeView(), nullptr);
    EXPECT_EQ(page->passcodeView()->superview(), nullptr);
}

TEST_F(PasscodeWorkflow, AsksForANewPasscodeWhereNoneIsSet) {
    openWithPasscode("");
    EXPECT_EQ(status(), fresh);
    EXPECT_EQ(keypad()->shownText(), fresh);
}

TEST_F(PasscodeWorkflow, AsksForTheCurrentPasscodeWhereOneIsSet) {
    openWithPasscode("1234");
    EXPECT_EQ(status(), current);
    EXPECT_EQ(keypad()->shownText(), current);
}

TEST_F(PasscodeWorkflow, AsksForTheCurrentPasscodeWhereTheKeyIsMissing) {
    writeDocument({{"kEnabled", true}});
    open();
    EXPECT_EQ(status(), current);
}

TEST_F(PasscodeWorkflow, AsksForTheCurrentPasscodeWithoutADocument) {
    open();
    EXPECT_EQ(status(), current);
}

TEST_F(PasscodeWorkflow, AcceptsNoEntryWhenThePasscodeIsNotAString) {
    writeDocument({{"kPasscode", 1234}});
    open();
    EXPECT_EQ(status(), current);
    enter("1234");
    EXPECT_EQ(status(), current);
    EXPECT_EQ(keypad()->failures(), 1);
}

TEST_F(PasscodeWorkflow, ClosesAtTheFourthEntryWithoutAPasscodeToMatch) {
    writeDocument({{"kEnabled", true}});
    open();
    for (const char* digits : {"0000", "1111", "2222"}) {
        enter(digits);
        EXPECT_EQ(status(), current);
    }
    expectOpen();
    enter("3333");
    expectClosed();
    EXPECT_EQ(document(), Dictionary({{"kEnabled", true}}));
    expectNoChange();
}

TEST_F(PasscodeWorkflow, SavesANewPasscodeAtItsFirstEntryAndCloses) {
    openWithPasscode("");
    enter("1234");
    EXPECT_EQ(document(), Dictionary({{"kEnabled", true}, {"kPasscode", "1234"}}));
    expectOneChange("kPasscode", Value("1234"));
    expectClosed();
}

TEST_F(PasscodeWorkflow, AsksForTheNewPasscodeWithClearedDigitsAfterTheRightOne) {
    openWithPasscode("1234");
    enter("1234");
    EXPECT_EQ(status(), fresh);
    EXPECT_EQ(keypad()->shownText(), fresh);
    EXPECT_EQ(keypad()->passcode(), "");
    EXPECT_EQ(keypad()->failures(), 0);
    expectNoChange();
    expectOpen();
    enter("5678");
    EXPECT_EQ(*document().find("kPasscode"), Value("5678"));
    expectOneChange("kPasscode", Value("5678"));
    expectClosed();
}

TEST_F(PasscodeWorkflow, AsksForTheNewPasscodeBeforeItClearsTheDigits) {
    class Witness : public doubles::RecordingDisplay {
    public:
        void viewChanged(platform::UIView& view) override {
            if (const auto* keypad = dynamic_cast<PasscodeView::Keypad*>(&view))
                pictures.push_back(keypad->shownText() + ": " + keypad->passcode());
        }
        std::vector<std::string> pictures;
    };
    openWithPasscode("1234");
    enter("123");
    Witness witness;
    enter("4");
    EXPECT_EQ(witness.pictures,
              (std::vector<std::string>{"Enter Current Passcode: 1234", "Enter New Passcode: 1234",
                                        "Enter New Passcode: "}));
}

TEST_F(PasscodeWorkflow, LeavesItsCountAsItIsAtTheRightPasscode) {
    openWithPasscode("1234");
    enter("1111");
    enter("2222");
    enter("1234");
    page->passcodeView()->setStatus(current);
    enter("3333");
    expectOpen();
    enter("4444");
    expectClosed();
}

TEST_F(PasscodeWorkflow, FollowsTheKeypadsStatusAndNotTheShownText) {
    openWithPasscode("1234");
    keypad()->updateStatusText("Enter New Passcode", "", false);
    enter("9999");
    EXPECT_EQ(keypad()->failures(), 1);
    EXPECT_EQ(*document().find("kPasscode"), Value("1234"));
}

TEST_F(PasscodeWorkflow, ShowsAWrongPasscodeOnTheKeypadAndWaits) {
    openWithPasscode("1234");
    enter("9999");
    EXPECT_EQ(keypad()->failures(), 1);
    EXPECT_EQ(keypad()->passcode(), "");
    EXPECT_EQ(status(), current);
    expectOpen();
}

TEST_F(PasscodeWorkflow, RefusesAnEntryThatDiffersInOneDigit) {
    openWithPasscode("1234");
    int failures = 0;
    for (const char* almost : {"9234", "1934", "1294"}) {
        enter(almost);
        EXPECT_EQ(keypad()->failures(), ++failures) << almost;
        EXPECT_EQ(status(), current) << almost;
    }
    enter("1239");
    EXPECT_EQ(status(), current);
    expectClosed();
    expectNoChange();
}

TEST_F(PasscodeWorkflow, ToleratesThreeWrongEntriesAndClosesAtTheFourth) {
    openWithPasscode("1234");
    for (int entry = 1; entry <= 3; ++entry) {
        enter("9999");
        EXPECT_EQ(keypad()->failures(), entry);
        expectOpen();
    }
    enter("9999");
    EXPECT_EQ(keypad()->failures(), 3);
    expectClosed();
    EXPECT_EQ(*document().find("kPasscode"), Value("1234"));
    expectNoChange();
}

TEST_F(PasscodeWorkflow, ResetsItsCountWhenItCloses) {
    openWithPasscode("1234");
    for (int entry = 1; entry <= 4; ++entry)
        enter("9999");
    const auto view = page->passcodeView();
    page->passcodeViewEnteredPasscode(*view, "9999");
    EXPECT_EQ(view->keypad()->failures(), 4);
}

TEST_F(PasscodeWorkflow, DoesNotReadTheOverlaysOwnLimit) {
    openWithPasscode("1234");
    page->passcodeView()->setMaxAttempts(1);
    page->passcodeView()->setFailedCount(9);
    for (int entry = 1; entry <= 3; ++entry)
        enter("9999");
    expectOpen();
}

TEST_F(PasscodeWorkflow, StartsCountingAgainWithEachOverlay) {
    openWithPasscode("1234");
    for (int entry = 1; entry <= 3; ++entry)
        enter("9999");
    keypad()->pressCancel();
    expectClosed();
    open();
    for (int entry = 1; entry <= 3; ++entry)
        enter("9999");
    expectOpen();
    enter("9999");
    expectClosed();
}

TEST_F(PasscodeWorkflow, AcceptsTheRightPasscodeAfterWrongOnes) {
    openWithPasscode("1234");
    enter("1111");
    enter("2222");
    enter("1234");
    EXPECT_EQ(status(), fresh);
    enter("5678");
    EXPECT_EQ(*document().find("kPasscode"), Value("5678"));
    expectClosed();
}

TEST_F(PasscodeWorkflow, AcceptsAnEntryByTheKeypadsSecondPath) {
    openWithPasscode("1234");
    keypad()->enterViaMesa("1234");
    EXPECT_EQ(status(), fresh);
}

TEST_F(PasscodeWorkflow, WritesAndAnnouncesTheSameDigitsAgain) {
    openWithPasscode("1234");
    enter("1234");
    const std::string written = markDocument();
    enter("1234");
    EXPECT_EQ(readFile(documentPath), written);
    expectOneChange("kPasscode", Value("1234"));
}

TEST_F(PasscodeWorkflow, ChangesNothingWhenCancelledBeforeTheCurrentPasscode) {
    openWithPasscode("1234");
    keypad()->pressCancel();
    expectClosed();
    EXPECT_EQ(*document().find("kPasscode"), Value("1234"));
    expectNoChange();
}

TEST_F(PasscodeWorkflow, ChangesNothingWhenCancelledBeforeTheNewPasscode) {
    openWithPasscode("1234");
    enter("1234");
    keypad()->pressCancel();
    expectClosed();
    EXPECT_EQ(*document().find("kPasscode"), Value("1234"));
    expectNoChange();
}

TEST_F(PasscodeWorkflow, IsCancelledWhenTheApplicationResigns) {
    openWithPasscode("1234");
    enter("1234");
    enter("56");
    platform::UIApplication::sharedApplication().resignActive();
    expectClosed();
    EXPECT_EQ(*document().find("kPasscode"), Value("1234"));
    expectNoChange();
}

TEST_F(PasscodeWorkflow, IsCancelledByAnySenderOfTheResigning) {
    openWithPasscode("1234");
    platform::NSNotificationCenter::defaultCenter().postNotification(
        "UIApplicationWillResignActiveNotification", std::make_shared<platform::UIView>());
    expectClosed();
}

TEST_F(PasscodeWorkflow, IgnoresTheResigningWithoutAnOverlay) {
    writeDocument({{"kPasscode", "1234"}});
    page->specifiers();
    platform::UIApplication::sharedApplication().resignActive();
    EXPECT_EQ(page->passcodeView(), nullptr);
    EXPECT_TRUE(window->subviews().empty());
}

TEST_F(PasscodeWorkflow, AsksByTheSnapshotOfThePage) {
    writeDocument({{"kPasscode", ""}});
    page->specifiers();
    writeDocument({{"kPasscode", "1234"}});
    open();
    EXPECT_EQ(status(), fresh);
}

TEST_F(PasscodeWorkflow, ComparesWithTheSnapshotOfThePage) {
    openWithPasscode("1234");
    writeDocument({{"kPasscode", "5678"}});
    enter("5678");
    EXPECT_EQ(keypad()->failures(), 1);
    enter("1234");
    EXPECT_EQ(status(), fresh);
}

TEST_F(PasscodeWorkflow, SharesItsSnapshotWithTheOtherPagesOfItsKind) {
    writeDocument({{"kPasscode", ""}});
    page->specifiers();
    const auto other = std::make_shared<SettingsListController>();
    other->savePasscode("1234");
    open();
    EXPECT_EQ(status(), current);
    enter("1234");
    EXPECT_EQ(status(), fresh);
}

TEST_F(PasscodeWorkflow, SavesIntoTheDocumentAsItIsNow) {
    openWithPasscode("");
    writeDocument({{"kEnabled", false}, {"kPasscode", "7777"}, {"unknown", 5}});
    enter("1234");
    EXPECT_EQ(document(), Dictionary({{"kEnabled", false}, {"kPasscode", "1234"}, {"unknown", 5}}));
}

TEST_F(PasscodeWorkflow, CreatesADocumentWithOnlyThePasscode) {
    openWithPasscode("");
    removeFile(documentPath);
    enter("1234");
    EXPECT_EQ(document(), Dictionary({{"kPasscode", "1234"}}));
    expectOneChange("kPasscode", Value("1234"));
}

TEST_F(PasscodeWorkflow, UpdatesTheSnapshot) {
    openWithPasscode("");
    enter("1234");
    clock.step(0.41);
    open();
    EXPECT_EQ(status(), current);
    enter("1234");
    EXPECT_EQ(status(), fresh);
}

TEST_F(PasscodeWorkflow, AnnouncesAndKeepsEvenAFailedWrite) {
    openWithPasscode("");
    refuseWrites();
    enter("1234");
    ASSERT_EQ(changes.posts.size(), 1u);
    EXPECT_EQ(*changes.posts[0].userInfo, Dictionary({{"key", "kPasscode"}, {"object", "1234"}}));
    ASSERT_TRUE(documentSnapshot);
    EXPECT_EQ(*documentSnapshot->find("kPasscode"), Value("1234"));
}

TEST_F(PasscodeWorkflow, AnnouncesAfterTheWriteAndWithTheNewSnapshot) {
    std::optional<Dictionary> snapshotThen;
    openWithPasscode("");
    const auto recordDocument = changes.onPost;
    changes.onPost = [&](const RecordingNotificationCenter::Post& post) {
        snapshotThen = documentSnapshot->copy();
        recordDocument(post);
    };
    enter("1234");
    const Dictionary written{{"kEnabled", true}, {"kPasscode", "1234"}};
    ASSERT_EQ(documentThen.size(), 1u);
    EXPECT_EQ(documentThen[0], written);
    EXPECT_EQ(snapshotThen, written);
}

TEST_F(PasscodeWorkflow, SavesAndAnnouncesThePasscodeBeforeTheOverlayGoes) {
    openWithPasscode("");
    std::vector<double> alphaThen;
    changes.onPost = [&](const RecordingNotificationCenter::Post&) {
        alphaThen.push_back(keypad()->alpha());
        EXPECT_EQ(*document().find("kPasscode"), Value("1234"));
    };
    enter("1234");
    EXPECT_EQ(alphaThen, std::vector<double>{1.0}) << "the overlay had begun to go";
    EXPECT_EQ(keypad()->alpha(), 0);
    expectClosed();
}

TEST_F(PasscodeWorkflow, LeavesAReplacedOverlayInTheWindow) {
    openWithPasscode("1234");
    const auto first = page->passcodeView();
    open();
    EXPECT_NE(page->passcodeView(), first);
    EXPECT_EQ(window->subviews().size(), 2u);
    EXPECT_EQ(first->superview(), window);
}

TEST_F(PasscodeWorkflow, KeepsTheOverlayThatReplacedTheOneThatEnds) {
    openWithPasscode("1234");
    const auto first = page->passcodeView();
    open();
    const auto second = page->passcodeView();
    first->keypad()->pressCancel();
    clock.step(0.41);
    EXPECT_EQ(page->passcodeView(), second);
    ASSERT_EQ(window->subviews().size(), 1u);
    EXPECT_EQ(window->subviews()[0], second);
    second->keypad()->pressCancel();
    expectClosed();
}

TEST_F(PasscodeWorkflow, KeepsANewOverlayWhenTheOneBeforeWasClosedTwice) {
    openWithPasscode("1234");
    const auto first = page->passcodeView();
    first->keypad()->pressCancel();
    clock.step(0.3);
    platform::UIApplication::sharedApplication().resignActive();
    clock.step(0.11);
    EXPECT_EQ(page->passcodeView(), nullptr);
    open();
    EXPECT_NE(page->passcodeView(), nullptr) << "cleared by the second end of the overlay before it";
    platform::UIApplication::sharedApplication().resignActive();
    expectClosed();
}

TEST_F(PasscodeWorkflow, IgnoresTheEmergencyButton) {
    openWithPasscode("1234");
    page->passcodeView()->setShowEmergency(true);
    keypad()->pressEmergencyCall();
    EXPECT_EQ(status(), current);
    expectOpen();
}

TEST_F(PasscodeWorkflow, LeavesNothingBehindWhenThePageEndsDuringAFade) {
    openWithPasscode("1234");
    const std::weak_ptr<PasscodeView> view = page->passcodeView();
    const std::weak_ptr<SettingsListController> gone = page;
    keypad()->pressCancel();
    clock.step(0.1);
    page.reset();
    EXPECT_TRUE(gone.expired());
    EXPECT_FALSE(view.expired());
    clock.step(0.41);
    EXPECT_TRUE(window->subviews().empty());
    EXPECT_TRUE(view.expired());
}

TEST_F(PasscodeWorkflow, DropsEntriesOfAnOverlayWithoutItsPage) {
    openWithPasscode("1234");
    const auto keys = keypad();
    page.reset();
    for (const int digit : {1, 2, 3, 4})
        keys->pressDigit(digit);
    keys->pressCancel();
    EXPECT_EQ(keys->_statusText(), current);
    EXPECT_EQ(window->subviews().size(), 1u);
}

TEST_F(PasscodeWorkflow, HasAPlainAccessorForTheOverlay) {
    const auto view = PasscodeView::initWithDefaultSize();
    page->setPasscodeView(view);
    EXPECT_EQ(page->passcodeView(), view);
}

} // namespace
} // namespace wardlock::test
