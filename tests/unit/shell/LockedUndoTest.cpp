// Locked settings are not changed from the page outside of them.

#include "platform/text/SearchFolding.h"
#include "settings/history/History.h"
#include "tests/unit/shell/UndoFixture.h"

#include <gtest/gtest.h>

namespace wardlock::test {
namespace {

class LockedUndo : public UndoFixture {
protected:
    LockedUndo() { keepGuard(); }

    static constexpr const char* reason = "the passcode protects the settings";

    /// An enabled account and a passcode.
    static platform::Dictionary protectedDocument() {
        platform::MutableDictionary document(documentOf({"Ann", "Tom"}));
        document.set(kPasscode, "1234");
        Accounts accounts = *Accounts::of(document.find(kAccounts));
        const platform::Value on(true);
        accounts.set(0, kAccountEnabled, &on);
        document.set(kAccounts, accounts.records());
        return document.copy();
    }
    void startProtected(double transitionSeconds = 0) {
        writeDocument(protectedDocument());
        start(transitionSeconds);
        observe();
        enter();
    }
    void enter() {
        tap("Wardlock");
        press("1234");
        clock.step(1);
    }
    bool isAsked() { return settings().screen().overlay().has_value(); }
    /// Takes the disabling of an account back on the page outside of the settings, so that they are locked.
    void undoDisablingOutside() {
        startProtected();
        tap("Ann");
        tap("Enabled");
        back();
        back();
        EXPECT_EQ(pages(), Names{"Settings"});
        undo();
        EXPECT_TRUE(isOn(0, kAccountEnabled));
        EXPECT_TRUE(isAsked());
    }
};

TEST_F(LockedUndo, IsRefusedOutsideThePages) {
    startProtected();
    tap("Ann");
    tap("Siri");
    const std::string before = readFile(documentPath);
    settings().resignActive();
    EXPECT_EQ(pages(), Names{"Settings"});
    EXPECT_EQ(settings().history().undo().reason(), reason);
    EXPECT_EQ(settings().history().redo().reason(), reason);
    EXPECT_EQ(readFile(documentPath), before);
    EXPECT_EQ(pages(), Names{"Settings"});
    tap("Wardlock");
    press("1234");
    clock.step(1);
    undo();
    EXPECT_FALSE(isOn(0, kRestrictSiri));
}

TEST_F(LockedUndo, EndsTheOfferOfADeletion) {
    startProtected();
    deleteAccount("Tom");
    EXPECT_EQ(offer(), "Tom was deleted");
    settings().resignActive();
    EXPECT_EQ(offer(), "");
}

TEST_F(LockedUndo, LeadsToTheChangeAfterThePasscode) {
    undoDisablingOutside();
    press("1234");
    clock.step(1);
    EXPECT_EQ(pages(), (Names{"Settings", "Wardlock", "Ann"}));
    EXPECT_EQ(found, Names{"Ann: Enabled"});
}

TEST_F(LockedUndo, AsksOnceAndNotAgainAfterCancel) {
    undoDisablingOutside();
    ASSERT_TRUE(settings().sheets().cancelKeypad());
    for (int step = 0; step < 5; ++step) {
        clock.step(1);
        EXPECT_FALSE(isAsked());
    }
    EXPECT_EQ(pages(), Names{"Settings"});
    enter();
    EXPECT_EQ(pages(), (Names{"Settings", "Wardlock"})) << "the way has ended";
}

TEST_F(LockedUndo, DoesNotAskWhenItIsLockedOnTheWay) {
    startProtected(0.35);
    tap("Tom");
    clock.step(1);
    tap("Siri");
    back();
    clock.step(1);
    tap("Ann");
    clock.step(1);
    undo();
    EXPECT_TRUE(settings().screen().isInTransition());
    settings().resignActive();
    for (int step = 0; step < 5; ++step) {
        clock.step(1);
        EXPECT_FALSE(isAsked());
    }
    EXPECT_EQ(pages(), Names{"Settings"});
}

TEST_F(LockedUndo, LeavesNoNamesOfEarlierSettingsToTheSearch) {
    startProtected();
    back();
    const auto found = [&](const char* name) {
        return settings()
            .search()
            .find(settings().screen().pages().front(), platform::SearchWords(name))
            .size();
    };
    EXPECT_GT(found("Tom"), 0u);
    enter();
    const platform::Value eva("Eva");
    const platform::Dictionary renamed = withAccountValue(1, kAccountName, eva);
    removeFile(documentPath);
    writeFile(documentPath, platform::dataWithPropertyList(renamed));
    settings().resignActive();
    EXPECT_EQ(found("Tom"), 0u);
    EXPECT_GT(found("Eva"), 0u);
}

TEST_F(LockedUndo, IsRefusedAfterThePagesWereLeft) {
    startProtected();
    tap("Enabled");
    tap("Enabled");
    back();
    EXPECT_EQ(settings().history().undo().reason(), reason);
}

TEST_F(LockedUndo, IncludesTheOfferToRestoreWhatIsProtectedAgain) {
    writeDocument(documentOf({"Ann"}));
    keepForeignVersion();
    removeFile(documentPath);
    writeFile(documentPath, "no document");
    start();
    observe();
    EXPECT_NE(offer(), "");
    // Another program repairs the settings without an announcement.
    writeDocument(protectedDocument());
    const std::string before = readFile(documentPath);
    EXPECT_EQ(settings().recovery().restore().reason(), reason);
    EXPECT_EQ(readFile(documentPath), before);
}

} // namespace
} // namespace wardlock::test
