#include "account/AppsController.h"
#include "platform/runtime/NSOperationQueue.h"
#include "platform/ui/UIAlertController.h"
#include "root/DocumentSnapshot.h"
#include "root/SettingsListController.h"
#include "settings/DefaultSettings.h"
#include "tests/support/PageFixture.h"
#include "tests/support/doubles/PicturingDisplay.h"

namespace wardlock::test {
namespace {

using platform::Array;
using platform::Dictionary;
using platform::NSNotificationCenter;
using platform::UIAlertController;
using platform::Value;

class AccountCreation : public PageFixture {
protected:
    AccountCreation() {
        writeAccounts({accountNamed("Ann")});
        page->specifiers();
    }

    void ask() { page->navigationItem().rightBarButtonItem()->press(); }
    std::shared_ptr<UIAlertController> alert() {
        return std::dynamic_pointer_cast<UIAlertController>(page->presentedViewController());
    }
    void type(const std::string& text) { alert()->textFields().at(0)->edit(text); }
    std::shared_ptr<platform::UIAlertAction> create() { return alert()->actions().at(1); }
    bool canCreate() { return create()->isEnabled(); }
    void cancel() { alert()->choose(alert()->actions().at(0)); }
    void createNamed(const std::string& name) {
        ask();
        type(name);
        alert()->choose(create());
    }
    std::vector<std::string> accountRows() {
        std::vector<std::string> rows;
        for (const auto& row : page->sections().sections().at(1).rows)
            rows.push_back(row->name());
        return rows;
    }
    static std::size_t textObservers() {
        return NSNotificationCenter::defaultCenter().observerCount(
            platform::UITextFieldTextDidChangeNotification);
    }

    std::shared_ptr<SettingsListController> page = std::make_shared<SettingsListController>();
};

TEST_F(AccountCreation, AsksForTheNameInAnAlert) {
    ask();
    ASSERT_NE(alert(), nullptr);
    EXPECT_EQ(alert()->title(), "New Account");
    EXPECT_EQ(alert()->message(), "");
    EXPECT_EQ(static_cast<int>(alert()->preferredStyle()), 1);
    ASSERT_EQ(alert()->textFields().size(), 1u);
    EXPECT_EQ(alert()->textFields()[0]->placeholder(), "New Account Name");
    EXPECT_EQ(alert()->textFields()[0]->text(), "");
}

TEST_F(AccountCreation, OffersCancelAndThenCreateDisabledAtFirst) {
    ask();
    ASSERT_EQ(alert()->actions().size(), 2u);
    EXPECT_EQ(alert()->actions()[0]->title(), "Cancel");
    EXPECT_EQ(static_cast<int>(alert()->actions()[0]->style()), 1);
    EXPECT_TRUE(alert()->actions()[0]->isEnabled());
    EXPECT_EQ(alert()->actions()[1]->title(), "Create");
    EXPECT_EQ(static_cast<int>(alert()->actions()[1]->style()), 0);
    EXPECT_FALSE(alert()->actions()[1]->isEnabled());
}

TEST_F(AccountCreation, PresentsTheAlertOnceItIsComplete) {
    doubles::PicturingDisplay display([&] {
        return alert() ? std::to_string(alert()->textFields().size()) + " field, " +
                             std::to_string(alert()->actions().size()) + " actions"
                       : "";
    });
    ask();
    EXPECT_EQ(display.pictures, std::vector<std::string>{"1 field, 2 actions"});
}

TEST_F(AccountCreation, AsksOnceHoweverOftenItsButtonIsPressed) {
    ask();
    const auto first = alert();
    type("Ben");
    ask();
    EXPECT_EQ(alert(), first);
    EXPECT_TRUE(canCreate());
    alert()->choose(create());
    EXPECT_EQ(account(1), accountNamed("Ben"));
    EXPECT_EQ(alert(), nullptr);
}

TEST_F(AccountCreation, EnablesCreateExactlyWhileThereIsText) {
    ask();
    type("B");
    EXPECT_TRUE(canCreate());
    type("Be");
    EXPECT_TRUE(canCreate());
    type("");
    EXPECT_FALSE(canCreate());
    type("Ben");
    EXPECT_TRUE(canCreate());
}

TEST_F(AccountCreation, AcceptsANameOfASingleBlank) {
    ask();
    type(" ");
    EXPECT_TRUE(canCreate());
    alert()->choose(create());
    EXPECT_EQ(*account(1).find("kAccountName"), Value(" "));
}

TEST_F(AccountCreation, KeepsTheBlanksAroundAName) {
    createNamed("  Ben  ");
    EXPECT_EQ(account(1), accountNamed("  Ben  "));
    EXPECT_EQ(accountRows(), (std::vector<std::string>{"Ann", "  Ben  "}));
    expectOneChange("kAccounts", accountNamed("  Ben  "));
}

TEST_F(AccountCreation, AcceptsANameOfAnyLength) {
    const std::string name(5000, 'x');
    createNamed(name);
    EXPECT_EQ(*account(1).find("kAccountName"), Value(name));
}

TEST_F(AccountCreation, KeepsANameOfAnyScriptAsItWasTyped) {
    const std::string name =
        " Zo\u00EB <&> \"q\" \u0639\u0645\u0631 \u4E2D\u6587 \U0001F469\u200D\U0001F467\t";
    createNamed(name);
    EXPECT_EQ(*account(1).find("kAccountName"), Value(name));
    EXPECT_EQ(accountRows(), (std::vector<std::string>{"Ann", name}));
    expectOneChange("kAccounts", accountNamed(name));
}

TEST_F(AccountCreation, IgnoresTheTextOfOtherFields) {
    ask();
    // Not reported, so that only the other field's report could enable the button.
    alert()->textFields().at(0)->setText("Ben");
    const auto other = std::make_shared<platform::UITextField>();
    other->edit("text");
    EXPECT_FALSE(canCreate());
}

TEST_F(AccountCreation, CreatesNothingWithoutText) {
    ask();
    alert()->choose(create());
    EXPECT_NE(alert(), nullptr);
    EXPECT_EQ(accounts().size(), 1u);
    expectNoChange();
}

TEST_F(AccountCreation, AppendsTheDefaultRecordUnderTheName) {
    createNamed("Ben");
    ASSERT_EQ(accounts().size(), 2u);
    EXPECT_EQ(account(0), accountNamed("Ann"));
    EXPECT_EQ(account(1), accountNamed("Ben"));
    platform::MutableDictionary renamed(account(1));
    renamed.set("kAccountName", Value("Default"));
    EXPECT_EQ(renamed.copy(), DefaultSettings().find("kAccounts")->array().at(0).dictionary());
}

TEST_F(AccountCreation, AnnouncesTheNewRecordAlone) {
    createNamed("Ben");
    expectOneChange("kAccounts", accountNamed("Ben"));
}

TEST_F(AccountCreation, AnnouncesAfterTheWriteAndBeforeTheNewRow) {
    ask();
    type("Ben");
    doubles::RecordingDisplay display;
    changes.onPost = [&](const RecordingNotificationCenter::Post&) {
        display.events.push_back("announced with " + std::to_string(accounts().size()) + " on disk");
    };
    alert()->choose(create());
    EXPECT_EQ(display.events, (std::vector<std::string>{"announced with 2 on disk",
                                                        "row inserted 2/4 animated", "list reloaded"}));
}

TEST_F(AccountCreation, ShowsTheNewAccountAsTheLastOfTheAccounts) {
    createNamed("Ben");
    EXPECT_EQ(accountRows(), (std::vector<std::string>{"Ann", "Ben"}));
    EXPECT_EQ(rowNamed(*page, "Ben")->detailControllerClass(), &AppsController::theClass());
    EXPECT_EQ(names(*page).back(), "More From Tavix");
}

TEST_F(AccountCreation, GivesTwoAccountsOfOneNameTwoRecordsAndTwoRows) {
    createNamed("Ben");
    createNamed("Ben");
    ASSERT_EQ(accounts().size(), 3u);
    EXPECT_EQ(account(1), account(2));
    EXPECT_EQ(accountRows(), (std::vector<std::string>{"Ann", "Ben", "Ben"}));
}

TEST_F(AccountCreation, AppendsToTheDocumentAsItIsNow) {
    ask();
    type("Ben");
    writeDocument({{"kAccounts", Array{accountNamed("Cleo"), accountNamed("Dan")}}, {"unknown", 5}});
    alert()->choose(create());
    EXPECT_EQ(document(), Dictionary({{"kAccounts",
                                       Array{accountNamed("Cleo"), accountNamed("Dan"), accountNamed("Ben")}},
                                      {"unknown", 5}}));
}

TEST_F(AccountCreation, AppendsToAnEmptyList) {
    writeAccounts({});
    createNamed("Ben");
    EXPECT_EQ(accounts(), Array{accountNamed("Ben")});
}

TEST_F(AccountCreation, UpdatesTheSnapshotBeforeItAnnounces) {
    writeDocument({{"kAccounts", Array{}}, {"kPasscode", "1234"}});
    std::optional<Dictionary> snapshotThen;
    changes.onPost = [&](const RecordingNotificationCenter::Post&) {
        snapshotThen = documentSnapshot->copy();
    };
    page->createAccountWithName("Ben");
    EXPECT_EQ(snapshotThen, document());
}

TEST_F(AccountCreation, ChangesNothingWhenCancelled) {
    const auto before = readFile(documentPath);
    ask();
    type("Ben");
    cancel();
    EXPECT_EQ(alert(), nullptr);
    EXPECT_EQ(readFile(documentPath), before);
    expectNoChange();
}

TEST_F(AccountCreation, KeepsTheTextRegistrationWhenCancelled) {
    ask();
    EXPECT_EQ(textObservers(), 1u);
    cancel();
    EXPECT_EQ(textObservers(), 1u);
}

TEST_F(AccountCreation, RemovesAllTextRegistrationsWhenItCreates) {
    ask();
    cancel();
    ask();
    type("Ben");
    EXPECT_EQ(textObservers(), 2u);
    alert()->choose(create());
    EXPECT_EQ(textObservers(), 0u);
}

TEST_F(AccountCreation, RemovesTheTextRegistrationsBeforeItCreates) {
    std::optional<std::size_t> registrationsThen;
    changes.onPost = [&](const RecordingNotificationCenter::Post&) { registrationsThen = textObservers(); };
    createNamed("Ben");
    EXPECT_EQ(registrationsThen, 0u);
}

TEST_F(AccountCreation, DismissesItsAlertBeforeItAnnounces) {
    bool alertThen = true;
    changes.onPost = [&](const RecordingNotificationCenter::Post&) { alertThen = alert() != nullptr; };
    createNamed("Ben");
    EXPECT_FALSE(alertThen);
}

TEST_F(AccountCreation, KeepsObservingResigningWhenItCreates) {
    createNamed("Ben");
    EXPECT_EQ(
        NSNotificationCenter::defaultCenter().observerCount("UIApplicationWillResignActiveNotification"), 1u);
}

TEST_F(AccountCreation, IgnoresLateTextOfADismissedField) {
    ask();
    const auto field = alert()->textFields()[0];
    cancel();
    field->edit("late");
    EXPECT_EQ(accounts().size(), 1u);
    ask();
    field->edit("later");
    EXPECT_FALSE(canCreate());
}

TEST_F(AccountCreation, StopsWithALogEntryOnlyWithoutAListOfAccounts) {
    writeDocument({{"kEnabled", true}});
    page->reloadSpecifiers();
    doubles::RecordingDisplay display;
    const auto before = readFile(documentPath);
    page->createAccountWithName("Ben");
    EXPECT_EQ(readFile(documentPath), before);
    EXPECT_EQ(documentSnapshot->copy(), Dictionary({{"kEnabled", true}}));
    EXPECT_EQ(display.events, std::vector<std::string>{});
    expectNoChange();
    platform::NSOperationQueue::mainQueue().drain();
    const auto log = readFile(logPath);
    EXPECT_EQ(log.substr(0, 1), "\n");
    EXPECT_EQ(log.find('\n', 1), std::string::npos);
    EXPECT_NE(log.find("account"), std::string::npos);
}

TEST_F(AccountCreation, StopsWhenTheListIsOfAWrongKind) {
    writeDocument({{"kAccounts", "none"}});
    const auto before = readFile(documentPath);
    page->createAccountWithName("Ben");
    EXPECT_EQ(readFile(documentPath), before);
    expectNoChange();
}

TEST_F(AccountCreation, StopsAndCreatesNoDocumentWithoutOne) {
    removeFile(documentPath);
    page->createAccountWithName("Ben");
    EXPECT_FALSE(exists(documentPath));
    expectNoChange();
}

TEST_F(AccountCreation, LogsNothingWhenItSucceeds) {
    createNamed("Ben");
    platform::NSOperationQueue::mainQueue().drain();
    EXPECT_FALSE(exists(logPath));
}

TEST_F(AccountCreation, AnnouncesEvenAFailedWrite) {
    const auto before = readFile(documentPath);
    refuseWrites();
    createNamed("Ben");
    EXPECT_EQ(readFile(documentPath), before);
    ASSERT_EQ(changes.posts.size(), 1u);
    EXPECT_EQ(*changes.posts[0].userInfo,
              Dictionary({{"key", "kAccounts"}, {"object", accountNamed("Ben")}}));
    EXPECT_EQ(accountRows(), std::vector<std::string>{"Ann"});
}

TEST_F(AccountCreation, ReleasesThePageWithItsAlert) {
    ask();
    type("Ben");
    const auto shown = alert();
    const std::weak_ptr<SettingsListController> gone = page;
    page.reset();
    EXPECT_TRUE(gone.expired());
    shown->choose(shown->actions().at(1));
    EXPECT_EQ(accounts().size(), 1u);
    expectNoChange();
}

TEST_F(AccountCreation, ReleasesThePageAfterTheAlert) {
    ask();
    type("Ben");
    const std::weak_ptr<UIAlertController> shown = alert();
    alert()->choose(create());
    EXPECT_TRUE(shown.expired());
    const std::weak_ptr<SettingsListController> gone = page;
    page.reset();
    EXPECT_TRUE(gone.expired());
    EXPECT_EQ(textObservers(), 0u);
}

TEST_F(AccountCreation, ReleasesThePageAfterACancelledAlert) {
    ask();
    cancel();
    const std::weak_ptr<SettingsListController> gone = page;
    page.reset();
    EXPECT_TRUE(gone.expired());
    EXPECT_EQ(textObservers(), 0u);
}

} // namespace
} // namespace wardlock::test
