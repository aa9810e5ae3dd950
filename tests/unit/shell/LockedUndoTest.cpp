// Locked settings are not changed from the page outside of them.

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
    void startProtected() {
        writeDocument(protectedDocument());
        start();
        observe();
        tap("Wardlock");
        press("1234");
        clock.step(1);
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
