#include "platform/plist/PropertyListFile.h"
#include "settings/Keys.h"
#include "tests/support/SettingsApplicationFixture.h"

#include <gtest/gtest.h>

namespace wardlock::test {
namespace {

using platform::Dictionary;
using platform::Value;

/// Another process changes the list of accounts while one of them is shown.
class ShownAccount : public SettingsApplicationFixture {
protected:
    /// The page of the account of that name.
    void open(std::initializer_list<std::string_view> names, std::string_view name) {
        start();
        writeDocument(documentOf(names));
        tap("Wardlock");
        tap(name);
        ASSERT_EQ(settings().screen().pages().size(), 3u);
    }
    /// The document as it is, with one key of an account changed.
    Dictionary withAccountValue(std::size_t index, std::string_view key, const Value& value) const {
        platform::MutableArray accounts(document().find(kAccounts)->array());
        platform::MutableDictionary account(accounts.at(index).dictionary());
        account.set(key, value);
        accounts.replace(index, account.copy());
        platform::MutableDictionary changed(document());
        changed.set(kAccounts, accounts.copy());
        return changed.copy();
    }
    const std::string& notice() { return settings().screen().notice(); }
    void expectFirstPage(std::string_view sentence) {
        EXPECT_EQ(page().title(), "Wardlock");
        EXPECT_EQ(settings().screen().pages().size(), 2u);
        EXPECT_EQ(notice(), sentence);
    }
    void expectStillOpen(std::string_view name) {
        EXPECT_EQ(settings().screen().pages().size(), 3u);
        EXPECT_EQ(row("Account Name").text, name);
        EXPECT_EQ(notice(), "");
    }
    /// That nothing has been written since.
    void expectDocument(const Dictionary& expected) { EXPECT_EQ(document(), expected); }
};

constexpr const char* tomRemoved = "Another program removed the account “Tom”.";
constexpr const char* tomMoved = "Another program moved the account “Tom” in the list of accounts.";

TEST_F(ShownAccount, GoesBackWithANoticeWhenItsRemovalIsAnnounced) {
    open({"Ann", "Tom"}, "Tom");
    changeElsewhere(documentOf({"Ann"}));
    expectFirstPage(tomRemoved);
    EXPECT_TRUE(hasRow("Ann"));
    EXPECT_FALSE(hasRow("Tom"));
}

TEST_F(ShownAccount, GoesBackWhenATapFindsItRemoved) {
    open({"Ann", "Tom"}, "Tom");
    writeDocument(documentOf({"Ann"}));
    EXPECT_EQ(settings().page().tapRow(pathOf("Siri")).reason(), "the page is gone");
    expectFirstPage(tomRemoved);
    expectDocument(documentOf({"Ann"}));
}

TEST_F(ShownAccount, GoesBackWhenItsPositionBelongsToAnotherAccount) {
    open({"Ann", "Tom", "Eva"}, "Tom");
    changeElsewhere(documentOf({"Tom", "Eva"}));
    expectFirstPage(tomMoved);
}

TEST_F(ShownAccount, StoresNothingInAnotherAccountThatTookItsPosition) {
    open({"Ann", "Tom", "Eva"}, "Tom");
    writeDocument(documentOf({"Ann", "Eva"}));
    EXPECT_FALSE(settings().page().tapRow(pathOf("Siri")));
    expectFirstPage(tomRemoved);
    expectDocument(documentOf({"Ann", "Eva"}));
}

TEST_F(ShownAccount, DeletesNoOtherAccountThatTookItsPosition) {
    open({"Ann", "Tom", "Eva"}, "Tom");
    tap("Delete Account");
    writeDocument(documentOf({"Ann", "Eva"}));
    EXPECT_EQ(settings().sheets().chooseAlertAction(1).reason(), "the page is gone");
    EXPECT_FALSE(settings().screen().alert());
    expectFirstPage(tomRemoved);
    expectDocument(documentOf({"Ann", "Eva"}));
}

TEST_F(ShownAccount, DropsAnAlertOfItsPageWhenItsRemovalIsAnnounced) {
    open({"Ann", "Tom"}, "Tom");
    tap("Delete Account");
    changeElsewhere(documentOf({"Ann"}));
    EXPECT_FALSE(settings().screen().alert());
    expectFirstPage(tomRemoved);
}

TEST_F(ShownAccount, ReportsThatTypedTextIsNotStored) {
    open({"Ann", "Tom"}, "Tom");
    type("Account Name", "Thomas");
    writeDocument(documentOf({"Ann"}));
    settings().page().endEditing();
    expectFirstPage(std::string(tomRemoved) + " What was being typed is not stored.");
    EXPECT_FALSE(page().edit());
    expectDocument(documentOf({"Ann"}));
}

TEST_F(ShownAccount, StoresNoTypedTextWhenTheWindowCloses) {
    open({"Ann", "Tom"}, "Tom");
    type("Account Name", "Thomas");
    writeDocument(documentOf({"Ann"}));
    quit();
    expectDocument(documentOf({"Ann"}));
}

TEST_F(ShownAccount, LeavesThePickerTooAndStoresNothing) {
    open({"Ann", "Tom"}, "Tom");
    tap("Apps");
    EXPECT_EQ(page().title(), "Apps");
    writeDocument(documentOf({"Ann"}));
    EXPECT_EQ(settings().page().flipTableSwitch({0, 0}).reason(), "the page is gone");
    expectFirstPage(tomRemoved);
    expectDocument(documentOf({"Ann"}));
}

TEST_F(ShownAccount, OpensNoPickerOfAnAccountThatIsGone) {
    open({"Ann", "Tom"}, "Tom");
    writeDocument(documentOf({"Ann"}));
    EXPECT_FALSE(settings().page().tapRow(pathOf("Apps")));
    expectFirstPage(tomRemoved);
}

TEST_F(ShownAccount, IsNotOpenedByARowThatIsGoneOrBelongsToAnotherAccount) {
    start();
    writeDocument(documentOf({"Ann", "Tom"}));
    tap("Wardlock");
    writeDocument(documentOf({"Ann"}));
    tap("Tom");
    expectFirstPage(tomRemoved);
    EXPECT_EQ(row("Ann").label, "Ann");
    settings().dismissNotice();
    writeDocument(documentOf({"Tom", "Ann"}));
    tap("Ann");
    expectFirstPage("Another program moved the account “Ann” in the list of accounts.");
}

TEST_F(ShownAccount, IsFoundGoneOnTheWayBackFromThePicker) {
    open({"Ann", "Tom"}, "Tom");
    tap("Apps");
    writeDocument(documentOf({"Ann"}));
    EXPECT_TRUE(settings().page().goBack());
    expectFirstPage(tomRemoved);
}

TEST_F(ShownAccount, GoesBackWhileItsPageIsStillMoving) {
    start(0.35);
    writeDocument(documentOf({"Ann", "Tom"}));
    tap("Wardlock");
    clock.step(0.35);
    tap("Tom");
    clock.step(0.1);
    changeElsewhere(documentOf({"Ann"}));
    clock.step(0.35);
    expectFirstPage(tomRemoved);
    EXPECT_FALSE(hasRow("Tom"));
}

TEST_F(ShownAccount, GoesBackWhenTheDocumentIsGone) {
    open({"Ann", "Tom"}, "Ann");
    removeFile(documentPath);
    EXPECT_FALSE(settings().page().tapRow(pathOf("Siri")));
    expectFirstPage("Another program removed the account “Ann”.");
    EXPECT_FALSE(exists(documentPath));
}

TEST_F(ShownAccount, StaysWhenOthersAreAddedOrChangedOrRemovedAfterIt) {
    open({"Ann", "Tom", "Eva"}, "Tom");
    changeElsewhere(documentOf({"Ann", "Tom", "Eva", "Kim"}));
    changeElsewhere(withAccountValue(0, kAccountName, "Anna"));
    changeElsewhere(documentOf({"Anna", "Tom"}));
    expectStillOpen("Tom");
    tap("Siri");
    EXPECT_TRUE(
        platform::boolValue(document().find(kAccounts)->array().at(1).dictionary().find(kRestrictSiri)));
}

TEST_F(ShownAccount, StaysWhenItIsChangedOrRenamedElsewhere) {
    open({"Ann", "Tom"}, "Tom");
    changeElsewhere(withAccountValue(1, kRestrictSiri, true));
    EXPECT_TRUE(row("Siri").isOn());
    changeElsewhere(withAccountValue(1, kAccountName, "Thomas"));
    expectStillOpen("Thomas");
}

TEST_F(ShownAccount, StaysThroughItsOwnChanges) {
    open({"Ann", "Tom"}, "Tom");
    tap("Siri");
    type("Account Name", "Thomas");
    tap("Enabled");
    tap("Editing");
    expectStillOpen("Thomas");
    // What the page itself has made of the record is what is looked for.
    changeElsewhere(withAccountValue(0, kRestrictSiri, true));
    expectStillOpen("Thomas");
}

TEST_F(ShownAccount, LeavesPagesAloneThatShowNoAccount) {
    start();
    writeDocument(documentOf({"Ann", "Tom", "Eva"}));
    tap("Wardlock");
    tap("Change Log");
    changeElsewhere(documentOf({"Ann"}));
    EXPECT_EQ(page().title(), "Change Log");
    EXPECT_EQ(notice(), "");
}

TEST_F(ShownAccount, ShowsNoNoticeWhenItsOwnPageDeletesIt) {
    open({"Ann", "Tom"}, "Tom");
    tap("Delete Account");
    chooseInAlert("Delete");
    EXPECT_EQ(page().title(), "Wardlock");
    EXPECT_EQ(notice(), "");
    tap("Ann");
    expectStillOpen("Ann");
}

TEST_F(ShownAccount, IsReportedWithoutAName) {
    open({"Ann", ""}, "");
    changeElsewhere(documentOf({"Ann"}));
    expectFirstPage("Another program removed the account.");
}

TEST_F(ShownAccount, FlipsTheStateShownWhenThePageAppeared) {
    open({"Ann", "Tom"}, "Tom");
    // The switch has not been read, and no notification reports its change.
    const auto path = platform::NSIndexPath{4, 1};
    writeDocument(withAccountValue(1, kRestrictSiri, true));
    EXPECT_TRUE(settings().page().tapRow(path));
    EXPECT_EQ(row("Siri").isOn(), true);
    EXPECT_TRUE(
        platform::boolValue(document().find(kAccounts)->array().at(1).dictionary().find(kRestrictSiri)));
}

} // namespace
} // namespace wardlock::test
