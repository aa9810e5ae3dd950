#include "account/AppsController.h"
#include "platform/ui/UIAlertController.h"
#include "platform/ui/UINavigationController.h"
#include "root/SettingsListController.h"
#include "settings/DefaultSettings.h"
#include "specifiers/SelectedIndex.h"
#include "tests/support/PageFixture.h"
#include "tests/support/ThrownException.h"
#include "tests/support/doubles/PicturingDisplay.h"

namespace wardlock::test {
namespace {

using platform::Array;
using platform::Dictionary;
using platform::UIAlertController;
using platform::Value;

class AccountDeletion : public PageFixture {
protected:
    ~AccountDeletion() override { SelectedIndex = 0; }

    /// The page of the account at the index, reached from the root page.
    void open(std::size_t index) {
        navigation = platform::UINavigationController::initWithRootViewController(root);
        root->tableViewDidSelectRowAtIndexPath({1, index});
    }
    std::shared_ptr<AppsController> page() {
        return std::dynamic_pointer_cast<AppsController>(navigation->topViewController());
    }
    std::shared_ptr<UIAlertController> ask() {
        tap(*page(), "Delete Account");
        return std::dynamic_pointer_cast<UIAlertController>(page()->presentedViewController());
    }
    void remove() {
        const auto alert = ask();
        alert->choose(alert->actions().at(1));
    }
    void expectLeft() {
        EXPECT_EQ(navigation->topViewController(), root);
        EXPECT_EQ(SelectedIndex, 0);
    }

    std::shared_ptr<SettingsListController> root = std::make_shared<SettingsListController>();
    std::shared_ptr<platform::UINavigationController> navigation;
};

TEST_F(AccountDeletion, AsksFirst) {
    writeAccounts({accountNamed("Ann")});
    open(0);
    const auto alert = ask();
    ASSERT_NE(alert, nullptr);
    EXPECT_EQ(alert->title(), "Delete Account");
    EXPECT_EQ(alert->message(), "Are you sure you want to delete this account?");
    EXPECT_EQ(static_cast<int>(alert->preferredStyle()), 1);
    EXPECT_TRUE(alert->textFields().empty());
    ASSERT_EQ(alert->actions().size(), 2u);
    EXPECT_EQ(alert->actions()[0]->title(), "Cancel");
    EXPECT_EQ(static_cast<int>(alert->actions()[0]->style()), 1);
    EXPECT_EQ(alert->actions()[1]->title(), "Delete");
    EXPECT_EQ(static_cast<int>(alert->actions()[1]->style()), 2);
    EXPECT_EQ(accounts().size(), 1u);
    // An alert without a chosen button keeps its page.
    alert->choose(alert->actions()[0]);
}

TEST_F(AccountDeletion, PresentsItsAlertOnceItIsComplete) {
    writeAccounts({accountNamed("Ann")});
    open(0);
    const auto account = page();
    doubles::PicturingDisplay display([&] {
        const auto alert = std::dynamic_pointer_cast<UIAlertController>(account->presentedViewController());
        return alert ? std::to_string(alert->actions().size()) + " actions" : "";
    });
    const auto alert = ask();
    EXPECT_EQ(display.pictures, std::vector<std::string>{"2 actions"});
    alert->choose(alert->actions().at(0));
}

TEST_F(AccountDeletion, LeavesThePageOnceItHasAnnounced) {
    writeAccounts({accountNamed("Ann"), accountNamed("Ben")});
    open(1);
    bool shownThen = false;
    changes.onPost = [&](const RecordingNotificationCenter::Post&) { shownThen = page() != nullptr; };
    remove();
    EXPECT_TRUE(shownThen);
    expectLeft();
}

TEST_F(AccountDeletion, ChangesNothingAndStaysWhenCancelled) {
    writeAccounts({accountNamed("Ann")});
    const auto before = readFile(documentPath);
    open(0);
    const auto alert = ask();
    alert->choose(alert->actions().at(0));
    EXPECT_EQ(page()->presentedViewController(), nullptr);
    EXPECT_NE(page(), nullptr);
    EXPECT_EQ(readFile(documentPath), before);
    expectNoChange();
}

TEST_F(AccountDeletion, RemovesTheSelectedAccountAndAnnouncesTheNewList) {
    writeDocument({{"unknown", 5},
                   {"kAccounts", Array{accountNamed("Ann"), accountNamed("Ben"), accountNamed("Cleo")}}});
    open(1);
    remove();
    const Array left{accountNamed("Ann"), accountNamed("Cleo")};
    EXPECT_EQ(document(), Dictionary({{"unknown", 5}, {"kAccounts", left}}));
    expectOneChange("kAccounts", left);
    expectLeft();
    EXPECT_EQ(root->sections().sections().at(1).rows.size(), 2u);
}

TEST_F(AccountDeletion, LeavesTheSelectedIndexToTheRootPage) {
    writeAccounts({accountNamed("Ann"), accountNamed("Ben")});
    open(1);
    navigation->setTransitionSeconds(0.35);
    std::vector<std::intptr_t> indexThen;
    changes.onPost = [&](const RecordingNotificationCenter::Post&) { indexThen.push_back(SelectedIndex); };
    remove();
    EXPECT_EQ(indexThen, std::vector<std::intptr_t>{1});
    clock.step(0.34);
    EXPECT_EQ(SelectedIndex, 1);
    clock.step(0.02);
    expectLeft();
}

TEST_F(AccountDeletion, RemovesOnlyOneOfTwoEqualAccounts) {
    writeAccounts({accountNamed("Ann"), accountNamed("Ann")});
    open(1);
    remove();
    EXPECT_EQ(accounts(), Array{accountNamed("Ann")});
}

TEST_F(AccountDeletion, BringsTheDefaultAccountsBackAfterTheLast) {
    writeAccounts({accountNamed("Ann", true)});
    open(0);
    remove();
    const Value defaults = *DefaultSettings().find("kAccounts");
    EXPECT_EQ(*document().find("kAccounts"), defaults);
    expectOneChange("kAccounts", defaults);
    expectLeft();
    EXPECT_NE(rowNamed(*root, "Default"), nullptr);
}

TEST_F(AccountDeletion, RemovesFromTheDocumentAsItIsNow) {
    writeAccounts({accountNamed("Ann"), accountNamed("Ben")});
    open(0);
    const auto alert = ask();
    writeDocument({{"kPasscode", "1234"}, {"kAccounts", Array{accountNamed("Cleo"), accountNamed("Dan")}}});
    alert->choose(alert->actions().at(1));
    EXPECT_EQ(document(), Dictionary({{"kPasscode", "1234"}, {"kAccounts", Array{accountNamed("Dan")}}}));
}

TEST_F(AccountDeletion, WritesNothingAndLeavesThePageWithoutAccounts) {
    writeAccounts({accountNamed("Ann")});
    open(0);
    writeAccounts({});
    const auto before = readFile(documentPath);
    remove();
    EXPECT_EQ(readFile(documentPath), before);
    expectNoChange();
    expectLeft();
}

TEST_F(AccountDeletion, CreatesNoDocumentAndLeavesThePageWithoutOne) {
    writeAccounts({accountNamed("Ann")});
    open(0);
    removeFile(documentPath);
    remove();
    EXPECT_FALSE(exists(documentPath));
    expectNoChange();
    expectLeft();
}

TEST_F(AccountDeletion, ThrowsAndWritesNothingBeyondTheAccounts) {
    writeAccounts({accountNamed("Ann"), accountNamed("Ben")});
    open(1);
    writeAccounts({accountNamed("Ann")});
    const auto before = readFile(documentPath);
    EXPECT_EQ(thrown([this] { remove(); }), "NSRangeException");
    EXPECT_EQ(readFile(documentPath), before);
    expectNoChange();
}

TEST_F(AccountDeletion, AnnouncesAndLeavesAlsoWhenTheWriteFails) {
    writeAccounts({accountNamed("Ann"), accountNamed("Ben")});
    open(1);
    const auto before = readFile(documentPath);
    refuseWrites();
    remove();
    EXPECT_EQ(readFile(documentPath), before);
    ASSERT_EQ(changes.posts.size(), 1u);
    EXPECT_EQ(*changes.posts[0].userInfo,
              Dictionary({{"key", "kAccounts"}, {"object", Array{accountNamed("Ann")}}}));
    expectLeft();
}

TEST_F(AccountDeletion, KeepsThePageAliveUntilItHasRun) {
    writeAccounts({accountNamed("Ann"), accountNamed("Ben")});
    open(1);
    const auto alert = ask();
    const std::weak_ptr<AppsController> account = page();
    navigation->popViewControllerAnimated(false);
    EXPECT_FALSE(account.expired());
    SelectedIndex = 1;
    alert->choose(alert->actions().at(1));
    EXPECT_EQ(accounts(), Array{accountNamed("Ann")});
    EXPECT_TRUE(account.expired());
}

TEST_F(AccountDeletion, ReleasesThePageWhenThePopHasEnded) {
    writeAccounts({accountNamed("Ann"), accountNamed("Ben")});
    open(1);
    navigation->setTransitionSeconds(0.35);
    const std::weak_ptr<AppsController> account = page();
    remove();
    EXPECT_EQ(navigation->topViewController(), root);
    EXPECT_FALSE(account.expired());
    clock.step(0.36);
    EXPECT_TRUE(account.expired());
    expectLeft();
}

TEST_F(AccountDeletion, ReleasesThePageAfterACancelledAlert) {
    writeAccounts({accountNamed("Ann")});
    open(0);
    {
        const auto alert = ask();
        alert->choose(alert->actions().at(0));
    }
    const std::weak_ptr<AppsController> account = page();
    navigation->popViewControllerAnimated(false);
    EXPECT_TRUE(account.expired());
}

} // namespace
} // namespace wardlock::test
