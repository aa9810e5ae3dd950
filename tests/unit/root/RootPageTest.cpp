#include "account/AppsController.h"
#include "info/ChangeLogController.h"
#include "info/DeveloperController.h"
#include "platform/ui/UIApplication.h"
#include "platform/ui/UINavigationController.h"
#include "platform/values/NSException.h"
#include "root/DocumentSnapshot.h"
#include "root/Maker.h"
#include "root/SettingsListController.h"
#include "settings/ExceptionReport.h"
#include "specifiers/PreferenceHelper.h"
#include "specifiers/SelectedIndex.h"
#include "tests/support/PageFixture.h"
#include "tests/support/doubles/PicturingDisplay.h"

namespace wardlock::test {
namespace {

using platform::Dictionary;
using platform::NSNotificationCenter;
using platform::PSCellType;
using platform::Value;

using Names = std::vector<std::string>;

class RootPage : public PageFixture {
protected:
    /// Puts the page on a stack of its own, which shows it.
    void show() { navigation = platform::UINavigationController::initWithRootViewController(page); }

    std::string footer(std::string_view group) {
        for (const auto& section : page->sections().sections())
            if (section.header() == group)
                return section.footer();
        ADD_FAILURE() << "no group " << group;
        return "";
    }
    static std::size_t resignObservers() {
        return NSNotificationCenter::defaultCenter().observerCount(
            platform::UIApplicationWillResignActiveNotification);
    }

    std::shared_ptr<SettingsListController> page = std::make_shared<SettingsListController>();
    std::shared_ptr<platform::UINavigationController> navigation;
};

TEST_F(RootPage, IsTheClassOfItsName) {
    EXPECT_EQ(SettingsListController::theClass().name(), "SettingsListController");
    EXPECT_NE(std::dynamic_pointer_cast<SettingsListController>(SettingsListController::theClass().create()),
              nullptr);
}

TEST_F(RootPage, ListsItsRowsInOrder) {
    writeAccounts({accountNamed("Ann"), accountNamed("Ben")});
    EXPECT_EQ(names(*page), (Names{"General", "Enabled", "Passcode", "Accounts", "Ann", "Ben", "Contact",
                                   "@TavixCo", "support@tavix.example", "Change Log", "More From Tavix"}));
}

TEST_F(RootPage, HasRowsOfTheseKinds) {
    writeAccounts({accountNamed("Ann")});
    std::vector<PSCellType> kinds;
    for (const auto& row : page->specifiers())
        kinds.push_back(row->cellType());
    EXPECT_EQ(kinds, (std::vector<PSCellType>{PSCellType::Group, PSCellType::Switch, PSCellType::Button,
                                              PSCellType::Group, PSCellType::Link, PSCellType::Group,
                                              PSCellType::Button, PSCellType::Button, PSCellType::Link,
                                              PSCellType::Link}));
}

TEST_F(RootPage, PutsTheContactGroupRightAfterTheAccountsGroupWithoutAccounts) {
    writeAccounts({});
    EXPECT_EQ(names(*page), (Names{"General", "Enabled", "Passcode", "Accounts", "Contact", "@TavixCo",
                                   "support@tavix.example", "Change Log", "More From Tavix"}));
}

TEST_F(RootPage, HasTheseFooters) {
    EXPECT_EQ(
        footer("General"),
        "To set a passcode, simply tap on \"Passcode\" above. This will protect the settings app while a "
        "restricted account is enabled. Without a passcode, restricted users can easily access settings "
        "and disable all restrictions!");
    EXPECT_EQ(footer("Accounts"),
              "Use the '+' button at the top right of the screen to create a new account.");
    EXPECT_NE(footer("Contact").find("Tavix"), std::string::npos);
    EXPECT_EQ(footer("Contact").find('\n'), std::string::npos);
}

TEST_F(RootPage, LinksItsRowsToThesePages) {
    writeAccounts({accountNamed("Ann")});
    EXPECT_EQ(rowNamed(*page, "Ann")->detailControllerClass(), &AppsController::theClass());
    EXPECT_EQ(rowNamed(*page, "Change Log")->detailControllerClass(), &ChangeLogController::theClass());
    EXPECT_EQ(rowNamed(*page, "More From Tavix")->detailControllerClass(), &DeveloperController::theClass());
}

TEST_F(RootPage, SendsItsButtonsActionsToItself) {
    const auto expectAction = [this](std::string_view label, std::string_view action) {
        const auto row = rowNamed(*page, label);
        EXPECT_EQ(row->target(), page);
        EXPECT_EQ(row->buttonAction().name(), action);
    };
    expectAction("Passcode", "passcodePressed");
    expectAction("@TavixCo", "openTwitter:");
    expectAction("support@tavix.example", "openEmail:");
}

TEST_F(RootPage, ShowsNoValueBesideThePasscode) {
    writeDocument({{"kPasscode", "1234"}});
    EXPECT_FALSE(rowNamed(*page, "Passcode")->performGetter());
}

TEST_F(RootPage, BindsTheMasterSwitchToTheDocument) {
    writeAccounts({accountNamed("Ann")});
    const auto row = rowNamed(*page, "Enabled");
    EXPECT_EQ(row->identifier(), "kEnabled");
    EXPECT_EQ(row->performGetter(), Value(true));
    const Value off(false);
    row->performSetter(&off);
    EXPECT_EQ(document(), Dictionary({{"kEnabled", false}, {"kPasscode", ""}, {"kAccounts", accounts()}}));
    expectOneChange("kEnabled", off);
}

TEST_F(RootPage, ShowsTheFixedRowsAndCreatesNoDocumentWithoutOne) {
    EXPECT_EQ(page->specifiers().size(), 9u);
    EXPECT_FALSE(rowNamed(*page, "Enabled")->performGetter());
    EXPECT_FALSE(exists(documentPath));
    EXPECT_FALSE(documentSnapshot);
}

TEST_F(RootPage, TreatsAnUnreadableDocumentAsMissing) {
    writeFile(documentPath, "<array/>");
    EXPECT_EQ(page->specifiers().size(), 9u);
    EXPECT_FALSE(documentSnapshot);
    EXPECT_EQ(readFile(documentPath), "<array/>");
}

TEST_F(RootPage, TreatsAListOfAccountsOfTheWrongKindAsMissing) {
    writeDocument({{"kAccounts", "none"}});
    EXPECT_EQ(page->specifiers().size(), 9u);
}

TEST_F(RootPage, GivesAnAccountWithoutANameARowWithoutALabel) {
    writeAccounts({accountNamed("Ann"), Dictionary{{"kHideApps", true}}, accountNamed("Ben")});
    show();
    const auto& accounts = page->sections().sections().at(1);
    ASSERT_EQ(accounts.rows.size(), 3u);
    EXPECT_EQ(accounts.rows[1]->name(), "");
    page->tableViewDidSelectRowAtIndexPath({1, 1});
    EXPECT_NE(std::dynamic_pointer_cast<AppsController>(navigation->topViewController()), nullptr);
    EXPECT_EQ(SelectedIndex, 1);
}

TEST_F(RootPage, BuildsItsListOnceUntilItIsReloaded) {
    writeAccounts({accountNamed("Ann")});
    const auto first = page->specifiers();
    const auto helper = page->prefs();
    writeAccounts({accountNamed("Ben")});
    EXPECT_EQ(page->specifiers(), first);
    EXPECT_EQ(page->prefs(), helper);
    page->reloadSpecifiers();
    EXPECT_NE(page->prefs(), helper);
    EXPECT_NE(rowNamed(*page, "Ben"), nullptr);
}

TEST_F(RootPage, RebuildsAnEmptyList) {
    page->specifiers();
    page->setSpecifiers({});
    EXPECT_EQ(page->specifiers().size(), 9u);
}

TEST_F(RootPage, MakesItsHelperForTheDocumentAndItsChanges) {
    page->specifiers();
    ASSERT_NE(page->prefs(), nullptr);
    EXPECT_EQ(page->prefs()->identifier(), "com.tavix.wardlock");
    EXPECT_EQ(page->prefs()->post(), "update");
    EXPECT_EQ(platform::NSGetUncaughtExceptionHandler(), &TweakExceptionHandler);
}

TEST_F(RootPage, KeepsASnapshotOfTheDocumentThatItRead) {
    writeDocument({{"kPasscode", "1234"}});
    page->specifiers();
    writeDocument({{"kPasscode", "5678"}});
    ASSERT_TRUE(documentSnapshot);
    EXPECT_EQ(*documentSnapshot->find("kPasscode"), Value("1234"));
    page->reloadSpecifiers();
    EXPECT_EQ(*documentSnapshot->find("kPasscode"), Value("5678"));
    removeFile(documentPath);
    page->reloadSpecifiers();
    EXPECT_FALSE(documentSnapshot);
}

TEST_F(RootPage, HasAnAddButtonRenewedWithEachList) {
    page->specifiers();
    const auto button = page->navigationItem().rightBarButtonItem();
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(static_cast<int>(button->systemItem()), 4);
    EXPECT_EQ(button->action().name(), "addAccount");
    page->reloadSpecifiers();
    EXPECT_NE(page->navigationItem().rightBarButtonItem(), button);
    page->navigationItem().rightBarButtonItem()->press();
    EXPECT_NE(page->presentedViewController(), nullptr);
}

TEST_F(RootPage, ObservesAndReadsBeforeItSetsItsButtonAndCreatesItsHelper) {
    writeDocument({{"kPasscode", "1234"}});
    documentSnapshot.reset();
    doubles::PicturingDisplay display([&] {
        return std::to_string(resignObservers()) + " observing, " + (documentSnapshot ? "read" : "unread") +
               (page->prefs() ? ", helper" : ", no helper");
    });
    page->specifiers();
    EXPECT_EQ(display.pictures, Names{"1 observing, read, no helper"});
}

TEST_F(RootPage, ObservesResigningOnceHoweverOftenItIsShown) {
    EXPECT_EQ(resignObservers(), 0u);
    show();
    EXPECT_EQ(resignObservers(), 1u);
    page->viewDidAppear(false);
    page->reloadSpecifiers();
    EXPECT_EQ(resignObservers(), 1u);
}

TEST_F(RootPage, StopsObservingWhenItGoes) {
    page->specifiers();
    const std::weak_ptr<SettingsListController> gone = page;
    page.reset();
    EXPECT_TRUE(gone.expired());
    EXPECT_EQ(resignObservers(), 0u);
    platform::UIApplication::sharedApplication().resignActive();
}

TEST_F(RootPage, ReadsTheDocumentAgainEachTimeItIsShown) {
    writeAccounts({accountNamed("Ann"), accountNamed("Ben")});
    show();
    tap(*page, "Ann");
    writeAccounts({accountNamed("Ben")});
    navigation->popViewControllerAnimated(true);
    EXPECT_EQ(page->sections().sections().at(1).rows.size(), 1u);
}

TEST_F(RootPage, ReloadsItsListWhenItIsShown) {
    page->specifiers();
    doubles::RecordingDisplay display;
    page->viewDidAppear(true);
    EXPECT_EQ(display.events, Names{"list reloaded"});
}

TEST_F(RootPage, ResetsTheSelectedIndexOnlyOnceItsListIsReloaded) {
    class Witness : public doubles::RecordingDisplay {
    public:
        void listReloaded(platform::UIViewController&) override { indexThen = SelectedIndex; }
        std::intptr_t indexThen = -1;
    };
    page->specifiers();
    SelectedIndex = 5;
    Witness witness;
    page->viewDidAppear(true);
    EXPECT_EQ(witness.indexThen, 5);
    EXPECT_EQ(SelectedIndex, 0);
}

TEST_F(RootPage, ResetsTheSelectedIndexWhenItIsShown) {
    SelectedIndex = 5;
    show();
    EXPECT_EQ(SelectedIndex, 0);
}

TEST_F(RootPage, ResetsTheSelectedIndexAfterReturningFromAnAccount) {
    writeAccounts({accountNamed("Ann"), accountNamed("Ben")});
    show();
    tap(*page, "Ben");
    EXPECT_EQ(SelectedIndex, 1);
    navigation->popViewControllerAnimated(true);
    EXPECT_EQ(SelectedIndex, 0);
}

TEST_F(RootPage, ResetsTheSelectedIndexOnlyWhenTheReturnHasEnded) {
    writeAccounts({accountNamed("Ann"), accountNamed("Ben")});
    show();
    navigation->setTransitionSeconds(0.35);
    tap(*page, "Ben");
    clock.step(0.35);
    navigation->popViewControllerAnimated(true);
    EXPECT_EQ(SelectedIndex, 1);
    clock.step(0.36);
    EXPECT_EQ(SelectedIndex, 0);
}

/// A navigation stack that keeps the selected index as it is when a page comes.
class AccountRow : public RootPage {
protected:
    void expectIndexWhenPushed(std::string_view label, std::intptr_t index) {
        class Witness : public doubles::RecordingDisplay {
        public:
            void controllerChanged(platform::UIViewController& controller) override {
                const auto* stack = dynamic_cast<platform::UINavigationController*>(&controller);
                if (stack && stack->viewControllers().size() == 2 && indexThen < 0)
                    indexThen = SelectedIndex;
            }
            std::intptr_t indexThen = -1;
        };
        show();
        Witness witness;
        tap(*page, label);
        EXPECT_EQ(witness.indexThen, index);
        EXPECT_EQ(SelectedIndex, index);
        ASSERT_EQ(navigation->viewControllers().size(), 2u);
        EXPECT_NE(std::dynamic_pointer_cast<AppsController>(navigation->topViewController()), nullptr);
        EXPECT_EQ(navigation->topViewController()->title(), label);
    }
};

TEST_F(AccountRow, SetsTheSelectedIndexBeforeItsPageIsPushed) {
    writeAccounts({accountNamed("Ann"), accountNamed("Ben"), accountNamed("Cleo")});
    expectIndexWhenPushed("Cleo", 2);
}

TEST_F(AccountRow, SetsTheSelectedIndexToZeroForTheFirstAccount) {
    writeAccounts({accountNamed("Ann"), accountNamed("Ben")});
    SelectedIndex = 7;
    expectIndexWhenPushed("Ann", 0);
}

TEST_F(RootPage, SetsTheSelectedIndexForTapsInOtherGroups) {
    show();
    page->tableViewDidSelectRowAtIndexPath({0, 1});
    EXPECT_EQ(SelectedIndex, 1);
}

TEST_F(RootPage, ClosesTheKeyboardWhenItsListIsDragged) {
    show();
    doubles::RecordingDisplay display;
    page->scrollViewWillBeginDragging();
    EXPECT_EQ(display.endedEditing, std::vector<platform::UIView*>{page->view().get()});
}

TEST_F(RootPage, AsksForNoPasscodeWhenItIsOpened) {
    writeDocument({{"kPasscode", "1234"}});
    show();
    EXPECT_EQ(page->passcodeView(), nullptr);
    EXPECT_TRUE(window->subviews().empty());
}

TEST_F(RootPage, WritesNothingByBeingShown) {
    writeDocument({{"kPasscode", "1234"}});
    const auto before = readFile(documentPath);
    show();
    tap(*page, "Change Log");
    navigation->popViewControllerAnimated(true);
    EXPECT_EQ(readFile(documentPath), before);
    expectNoChange();
}

TEST_F(RootPage, LeavesRowsOfAnOldListWithoutValues) {
    writeDocument({{"kEnabled", true}});
    const auto row = rowNamed(*page, "Enabled");
    page->reloadSpecifiers();
    EXPECT_FALSE(row->performGetter());
    EXPECT_EQ(rowNamed(*page, "Enabled")->performGetter(), Value(true));
}

TEST_F(RootPage, LeavesNothingBehindWhenRemovedFromItsStack) {
    writeAccounts({accountNamed("Ann")});
    show();
    tap(*page, "Ann");
    const std::weak_ptr<SettingsListController> root = page;
    const std::weak_ptr<platform::UIViewController> account = navigation->topViewController();
    const std::weak_ptr<PreferenceHelper> helper = page->prefs();
    page.reset();
    navigation.reset();
    EXPECT_TRUE(root.expired());
    EXPECT_TRUE(account.expired());
    EXPECT_TRUE(helper.expired());
}

} // namespace
} // namespace wardlock::test
