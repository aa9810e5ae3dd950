#include "platform/text/SearchFolding.h"
#include "settings/Keys.h"
#include "tests/support/SettingsApplicationFixture.h"

#include <filesystem>

namespace wardlock::test {
namespace {

using platform::MutableArray;
using platform::MutableDictionary;
using platform::NSIndexPath;
using platform::Value;

constexpr double fade = 0.5;
constexpr double hour = 3600;

/// A device on which an account is enabled and the passcode is 1234.
class SettingsGuard : public SettingsApplicationFixture {
protected:
    SettingsGuard() { keepGuard(); }

    static platform::Dictionary protectedDocument(const Value& passcode = "1234") {
        MutableDictionary document(documentOf({"Ann", "Tom"}));
        MutableArray accounts(document.find(kAccounts)->array());
        MutableDictionary account(accounts.at(1).dictionary());
        account.set(kAccountEnabled, true);
        accounts.replace(1, account.copy());
        document.set(kAccounts, accounts.copy());
        document.set(kPasscode, passcode);
        return document.copy();
    }
    static platform::Dictionary with(std::string_view key, const Value& value) {
        MutableDictionary document(protectedDocument());
        document.set(key, value);
        return document.copy();
    }
    void startProtected(double transitionSeconds = 0) {
        writeDocument(protectedDocument());
        start(transitionSeconds);
    }
    /// Opens Wardlock with the right passcode.
    void enterSettings() {
        tap("Wardlock");
        press("1234");
        clock.step(fade);
        ASSERT_EQ(page().title(), "Wardlock");
    }
    bool isAsked() {
        const auto overlay = settings().screen().overlay();
        return overlay && overlay->keypad->takesInput();
    }
    bool isOutside() { return settings().screen().pages().size() == 1; }
    /// Expects that Settings is on its first page, where the entry asks.
    void expectLocked() {
        clock.step(fade);
        EXPECT_TRUE(isOutside());
        EXPECT_FALSE(settings().screen().overlay());
        EXPECT_FALSE(settings().screen().alert());
        tap("Wardlock");
        EXPECT_TRUE(isAsked());
        EXPECT_TRUE(isOutside());
    }
    std::string nameOfAccount(std::size_t index) const {
        return std::string(
            document().find(kAccounts)->array().at(index).dictionary().find(kAccountName)->string());
    }
};

} // namespace

TEST_F(SettingsGuard, AsksForThePasscodeBeforeAnyPageOfTheBundleExists) {
    startProtected();
    tap("Wardlock");
    ASSERT_TRUE(settings().screen().overlay());
    EXPECT_EQ(settings().screen().overlay()->keypad->shownText(), "Enter Passcode");
    EXPECT_FALSE(settings().screen().overlay()->keypad->showsEmergencyCallButton());
    EXPECT_TRUE(settings().screen().overlay()->blur);
    EXPECT_TRUE(isOutside());
}

TEST_F(SettingsGuard, OpensTheBundleAfterTheRightPasscode) {
    startProtected();
    tap("Wardlock");
    press("1234");
    clock.step(fade);
    EXPECT_EQ(page().title(), "Wardlock");
    EXPECT_FALSE(settings().screen().overlay());
    tap("Tom");
    EXPECT_EQ(page().title(), "Tom");
}

TEST_F(SettingsGuard, AcceptsAPasscodeThatIsRecognisedByOtherMeans) {
    startProtected();
    tap("Wardlock");
    EXPECT_TRUE(settings().sheets().enterPasscode("4321"));
    EXPECT_TRUE(isOutside());
    EXPECT_TRUE(settings().sheets().enterPasscode("1234"));
    EXPECT_FALSE(isOutside());
}

TEST_F(SettingsGuard, FadesInAndOutAsThePagesKeypadDoes) {
    startProtected();
    tap("Wardlock");
    const auto keypad = settings().screen().overlay()->keypad;
    EXPECT_EQ(keypad->presentationAlpha(), 0);
    clock.step(0.2);
    EXPECT_NEAR(keypad->presentationAlpha(), 0.5, 0.01);
    press("1234");
    EXPECT_FALSE(settings().page().tapRow({0, 0})) << "the keypad covers the page until it is gone";
    clock.step(0.4);
    EXPECT_FALSE(settings().screen().overlay());
    EXPECT_TRUE(settings().page().tapRow(pathOf("Tom")));
}

TEST_F(SettingsGuard, StaysOutsideAfterTheFourthWrongPasscode) {
    startProtected();
    tap("Wardlock");
    for (int attempt = 1; attempt <= 3; ++attempt) {
        press("9999");
        EXPECT_EQ(settings().screen().overlay()->keypad->failures(), attempt);
        EXPECT_EQ(settings().screen().overlay()->keypad->passcode(), "");
        EXPECT_TRUE(isAsked());
    }
    press("9999");
    EXPECT_FALSE(isAsked());
    expectLocked();
}

TEST_F(SettingsGuard, AcceptsTheRightPasscodeAfterThreeWrongOnes) {
    startProtected();
    tap("Wardlock");
    press("000011112222");
    press("1234");
    EXPECT_FALSE(isOutside());
}

TEST_F(SettingsGuard, CountsWrongPasscodesFromZeroAtEachOpening) {
    startProtected();
    tap("Wardlock");
    press("000011112222");
    EXPECT_TRUE(settings().sheets().cancelKeypad());
    clock.step(fade);
    tap("Wardlock");
    press("000011112222");
    EXPECT_TRUE(isAsked());
}

TEST_F(SettingsGuard, StaysOutsideAfterCancel) {
    startProtected();
    tap("Wardlock");
    press("12");
    EXPECT_TRUE(settings().sheets().cancelKeypad());
    EXPECT_FALSE(settings().sheets().pressDigit(3)) << "the keypad is fading out";
    expectLocked();
}

TEST_F(SettingsGuard, AsksAtEachOpening) {
    startProtected();
    enterSettings();
    EXPECT_TRUE(settings().page().goBack());
    expectLocked();
}

TEST_F(SettingsGuard, AsksForEveryBundleOfTheDevice) {
    installFixtureBundle();
    startProtected();
    tap("Fixture");
    EXPECT_TRUE(isAsked());
    EXPECT_TRUE(isOutside());
}

TEST_F(SettingsGuard, AsksForNothingWhereNothingIsInForce) {
    for (const auto& document :
         {with(kPasscode, ""), with(kEnabled, false), documentOf({"Ann"}), with(kAccounts, "wrong")}) {
        writeDocument(document);
        start();
        tap("Wardlock");
        EXPECT_FALSE(isAsked());
        EXPECT_FALSE(isOutside());
        quit();
    }
}

TEST_F(SettingsGuard, AsksForNothingWhereTheDocumentIsMissingOrDamaged) {
    startProtected();
    removeFile(documentPath);
    tap("Wardlock");
    EXPECT_FALSE(isOutside());
    EXPECT_TRUE(settings().page().goBack());
    writeFile(documentPath, "damaged");
    tap("Wardlock");
    EXPECT_FALSE(isOutside());
}

TEST_F(SettingsGuard, AcceptsNoEntryWhereThePasscodeIsOfAWrongKind) {
    for (const Value& wrong : {Value(1234), Value("12345"), Value(Value::data("1234"))}) {
        writeDocument(protectedDocument(wrong));
        start();
        tap("Wardlock");
        press("1234123412341234");
        clock.step(fade);
        EXPECT_TRUE(isOutside());
        quit();
    }
}

TEST_F(SettingsGuard, AcceptsNoEntryWhereTheDocumentCannotBeRead) {
    startProtected();
    removeFile(documentPath);
    std::filesystem::create_directory(onDisk(documentPath));
    tap("Wardlock");
    EXPECT_TRUE(isAsked());
    press("1234");
    EXPECT_TRUE(isOutside());
}

TEST_F(SettingsGuard, ComparesWithThePasscodeAsItIsNow) {
    startProtected();
    tap("Wardlock");
    writeDocument(protectedDocument("5678"));
    press("1234");
    EXPECT_TRUE(isOutside());
    press("5678");
    EXPECT_FALSE(isOutside());
}

TEST_F(SettingsGuard, OpensWhenAnotherProcessRemovesThePasscodeMeanwhile) {
    startProtected();
    tap("Wardlock");
    press("12");
    changeElsewhere(with(kPasscode, ""), kPasscode);
    clock.step(fade);
    EXPECT_EQ(page().title(), "Wardlock");
    EXPECT_FALSE(settings().screen().overlay());
}

TEST_F(SettingsGuard, OpensWhenAnotherProcessSwitchesWardlockOffMeanwhile) {
    startProtected();
    tap("Wardlock");
    changeElsewhere(with(kEnabled, false), kEnabled);
    clock.step(fade);
    EXPECT_EQ(page().title(), "Wardlock");
}

TEST_F(SettingsGuard, OpensAtTheNextEntryWhereTheRemovalWasNotAnnounced) {
    startProtected();
    tap("Wardlock");
    writeDocument(with(kPasscode, ""));
    press("9999");
    EXPECT_FALSE(isOutside());
}

TEST_F(SettingsGuard, KeepsAskingWhenAnotherProcessChangesSomethingElse) {
    startProtected();
    tap("Wardlock");
    press("12");
    changeElsewhere(with("more", true), "more");
    EXPECT_TRUE(isAsked());
    press("34");
    EXPECT_FALSE(isOutside());
}

TEST_F(SettingsGuard, LocksWhenTheApplicationResignsActive) {
    startProtected();
    enterSettings();
    tap("Tom");
    settings().resignActive();
    expectLocked();
}

TEST_F(SettingsGuard, LeavesThePagesAtOnceEvenWhileTheyMove) {
    startProtected(0.35);
    tap("Wardlock");
    press("1234");
    settings().resignActive();
    EXPECT_TRUE(isOutside());
    EXPECT_FALSE(settings().screen().isInTransition());
    expectLocked();
}

TEST_F(SettingsGuard, StoresWhatWasBeingTypedWhenItLocks) {
    startProtected();
    enterSettings();
    tap("Tom");
    type("Account Name", "Thomas");
    settings().resignActive();
    EXPECT_EQ(nameOfAccount(1), "Thomas");
    expectLocked();
}

TEST_F(SettingsGuard, DismissesAlertsAndSheetsWhenItLocks) {
    startProtected();
    enterSettings();
    EXPECT_TRUE(settings().page().tapBarButton());
    ASSERT_TRUE(settings().screen().alert());
    settings().resignActive();
    EXPECT_EQ(document().find(kAccounts)->array().size(), 2u);
    expectLocked();
    press("1234");
    clock.step(fade);
    tap("support@tavix.example");
    ASSERT_TRUE(settings().screen().composer());
    settings().resignActive();
    EXPECT_FALSE(settings().screen().composer());
    expectLocked();
}

TEST_F(SettingsGuard, ClosesThePagesKeypadWhenItLocks) {
    startProtected();
    enterSettings();
    tap("Passcode");
    press("1234");
    settings().resignActive();
    expectLocked();
    EXPECT_EQ(document().find(kPasscode)->string(), "1234");
}

TEST_F(SettingsGuard, ClosesItsKeypadWhenTheApplicationResignsActive) {
    startProtected();
    tap("Wardlock");
    press("123");
    settings().resignActive();
    EXPECT_FALSE(isAsked());
    expectLocked();
}

TEST_F(SettingsGuard, LeavesThePagesOpenWhereNothingIsInForce) {
    writeDocument(with(kPasscode, ""));
    start();
    tap("Wardlock");
    tap("Tom");
    settings().resignActive();
    clock.step(2 * hour);
    EXPECT_EQ(page().title(), "Tom");
}

TEST_F(SettingsGuard, ProtectsFromTheMomentThePasscodeIsSet) {
    writeDocument(with(kPasscode, ""));
    start();
    tap("Wardlock");
    tap("Passcode");
    press("4711");
    clock.step(fade);
    EXPECT_EQ(page().title(), "Wardlock") << "who set it stays";
    settings().resignActive();
    expectLocked();
    press("4711");
    EXPECT_FALSE(isOutside());
}

TEST_F(SettingsGuard, LocksAfterAnHourWithoutAnInput) {
    startProtected();
    enterSettings();
    tap("Tom");
    type("Account Name", "Thomas");
    clock.step(hour - 1);
    EXPECT_EQ(page().title(), "Tom");
    clock.step(1);
    EXPECT_EQ(nameOfAccount(1), "Thomas");
    expectLocked();
}

TEST_F(SettingsGuard, ClosesThePagesKeypadAfterAnHourWithoutAnInput) {
    startProtected();
    enterSettings();
    tap("Passcode");
    clock.step(hour);
    expectLocked();
}

TEST_F(SettingsGuard, CountsTheHourFromTheLastInput) {
    startProtected();
    enterSettings();
    clock.step(hour - 1);
    tap("Tom");
    clock.step(hour - 1);
    settings().noteActivity();
    clock.step(hour - 1);
    EXPECT_EQ(page().title(), "Tom");
    clock.step(1);
    EXPECT_TRUE(isOutside());
}

TEST_F(SettingsGuard, DoesNotCountReadingThePagesAsAnInput) {
    startProtected();
    enterSettings();
    clock.step(hour - 1);
    EXPECT_FALSE(labels().empty());
    clock.step(1);
    EXPECT_TRUE(isOutside());
}

TEST_F(SettingsGuard, LocksAtTheNextHourWhatAnotherProcessPutInForce) {
    writeDocument(with(kEnabled, false));
    start();
    tap("Wardlock");
    clock.step(1.5 * hour);
    changeElsewhere(protectedDocument(), kEnabled);
    EXPECT_FALSE(isOutside());
    clock.step(hour);
    EXPECT_TRUE(isOutside());
}

TEST_F(SettingsGuard, LeadsToAFoundRowAfterThePasscode) {
    startProtected();
    const auto found =
        settings().search().find(settings().screen().page(), platform::SearchWords("tom siri"));
    ASSERT_EQ(found.size(), 1u);
    EXPECT_TRUE(settings().search().open(found[0]));
    EXPECT_TRUE(isAsked());
    EXPECT_TRUE(isOutside());
    press("1234");
    clock.step(fade);
    EXPECT_EQ(page().title(), "Tom");
}

TEST_F(SettingsGuard, ForgetsTheWayToAFoundRowAfterCancel) {
    startProtected();
    const auto found =
        settings().search().find(settings().screen().page(), platform::SearchWords("tom siri"));
    EXPECT_TRUE(settings().search().open(found.at(0)));
    EXPECT_TRUE(settings().sheets().cancelKeypad());
    clock.step(fade);
    EXPECT_TRUE(isOutside());
    enterSettings();
    EXPECT_EQ(page().title(), "Wardlock");
}

TEST_F(SettingsGuard, ForgetsTheWayToAFoundRowWhenItLocks) {
    startProtected(0.35);
    const auto found =
        settings().search().find(settings().screen().page(), platform::SearchWords("tom siri"));
    EXPECT_TRUE(settings().search().open(found.at(0)));
    press("1234");
    settings().resignActive();
    clock.step(2);
    EXPECT_TRUE(isOutside());
}

TEST_F(SettingsGuard, AsksAgainInASecondSettingsOfTheDevice) {
    startProtected();
    enterSettings();
    quit();
    start();
    tap("Wardlock");
    EXPECT_TRUE(isAsked());
    EXPECT_TRUE(isOutside());
}

TEST_F(SettingsGuard, AsksForNothingWhereTheHostBringsItsOwn) {
    startProtected();
    settings().turnOffGuard();
    tap("Wardlock");
    EXPECT_FALSE(isOutside());
    tap("Tom");
    settings().resignActive();
    clock.step(2 * hour);
    EXPECT_EQ(page().title(), "Tom");
}

TEST_F(SettingsGuard, LogsNothingOfTheEntries) {
    startProtected();
    tap("Wardlock");
    press("9999");
    press("1234");
    clock.step(fade);
    settings().close();
    EXPECT_FALSE(exists(logPath));
}

} // namespace wardlock::test
