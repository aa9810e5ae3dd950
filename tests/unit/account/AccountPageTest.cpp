#include "account/AppsController.h"
#include "apps/AppsListController.h"
#include "platform/ui/UINavigationController.h"
#include "specifiers/PreferenceHelper.h"
#include "specifiers/SelectedIndex.h"
#include "tests/support/PageFixture.h"
#include "tests/support/doubles/RecordingDisplay.h"

namespace wardlock::test {
namespace {

using platform::PSCellType;
using platform::Value;

class AccountPage : public PageFixture {
protected:
    ~AccountPage() override { SelectedIndex = 0; }

    std::shared_ptr<AppsController> page = std::make_shared<AppsController>();
};

TEST_F(AccountPage, IsTheClassOfItsName) {
    EXPECT_EQ(AppsController::theClass().name(), "AppsController");
    EXPECT_NE(std::dynamic_pointer_cast<AppsController>(AppsController::theClass().create()), nullptr);
}

struct ExpectedRow {
    PSCellType cell;
    const char* name;
    const char* key;
};

TEST_F(AccountPage, ListsItsTwentySixRowsInOrder) {
    using enum PSCellType;
    const ExpectedRow expected[] = {
        {Switch, "Enabled", "kAccountEnabled"},
        {PSCellType::EditText, "", "kAccountName"},
        {Group, "Restricted Apps", ""},
        {PSCellType::Link, "Apps", ""},
        {Group, "Restrictions", ""},
        {Switch, "Disable Lockscreen Passcode", "kPasscodeDisabled"},
        {Group, "Icons", ""},
        {Switch, "Hide Icons", "kHideApps"},
        {Switch, "Editing", "kRestrictEdit"},
        {Switch, "Dragging", "kRestrictDrag"},
        {Switch, "Uninstall", "kRestrictUninstall"},
        {Group, "System", ""},
        {Switch, "Power Down", "kRestrictPowerDown"},
        {Switch, "Siri", "kRestrictSiri"},
        {Switch, "Control Center", "kRestrictCC"},
        {Switch, "Notification Center", "kRestrictNC"},
        {Switch, "App Switcher", "kRestrictSwitcher"},
        {Switch, "App Switcher Contacts", "kRestrictSwitcherContacts"},
        {Switch, "Keyboard", "kRestrictKeyboard"},
        {Switch, "Volume Buttons", "kRestrictVolume"},
        {Switch, "Vibrate Switch", "kRestrictVibrate"},
        {Group, "Media", ""},
        {Switch, "Camera", "kRestrictCamera"},
        {Switch, "Video", "kRestrictVideo"},
        {Group, "", ""},
        {PSCellType::Button, "Delete Account", ""},
    };
    const auto& rows = page->specifiers();
    ASSERT_EQ(rows.size(), std::size(expected));
    for (std::size_t index = 0; index < rows.size(); ++index) {
        SCOPED_TRACE(index + 1);
        EXPECT_EQ(rows[index]->cellType(), expected[index].cell);
        EXPECT_EQ(rows[index]->name(), expected[index].name);
        EXPECT_EQ(rows[index]->identifier(), expected[index].key);
    }
}

TEST_F(AccountPage, HasTheseFootersAndNoOthers) {
    std::vector<std::pair<std::string, std::string>> footers;
    for (const auto& section : page->sections().sections())
        footers.emplace_back(section.header(), section.footer());
    EXPECT_EQ(
        footers,
        (std::vector<std::pair<std::string, std::string>>{
            {"", ""},
            {"Restricted Apps", ""},
            {"Restrictions", "Will disable the lockscreen passcode during restricted use only. The settings "
                             "application will remain locked with the passcode you set for wardlock"},
            {"Icons", "\"Hide Icons\" will fully hide the icons for restricted applications, but will keep a "
                      "blank spot to retain the grid map."},
            {"System", ""},
            {"Media", "Some media applications may need to be restarted to restore full unrestricted "
                      "functionality after disabling restrictions."},
            {"", ""},
        }));
}

TEST_F(AccountPage, StartsWithAGroupThatHasNoHeaderRecord) {
    EXPECT_EQ(page->sections().sections().front().group, nullptr);
    EXPECT_EQ(page->sections().sections().front().rows.size(), 2u);
}

TEST_F(AccountPage, HasAPlainNameFieldWithAPlaceholder) {
    const auto field =
        std::dynamic_pointer_cast<platform::PSTextFieldSpecifier>(rowOfKey(*page, "kAccountName"));
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(field->placeholder(), "Account Name");
    EXPECT_EQ(field->keyboardType(), platform::UIKeyboardType::Default);
}

TEST_F(AccountPage, LinksToThePickerAndDeletesThroughItself) {
    EXPECT_EQ(rowNamed(*page, "Apps")->detailControllerClass(), &AppsListController::theClass());
    const auto row = rowNamed(*page, "Delete Account");
    EXPECT_EQ(row->target(), page);
    EXPECT_EQ(row->buttonAction().name(), "deleteAccount");
}

TEST_F(AccountPage, BindsItsRowsToItsOwnAccessors) {
    for (const auto& row : page->specifiers())
        if (!row->identifier().empty()) {
            EXPECT_EQ(row->target(), page);
            EXPECT_EQ(row->setAction().name(), "setValue:specifier:");
            EXPECT_EQ(row->getAction().name(), "getValue:");
        }
    EXPECT_EQ(page->prefs()->target(), page);
    EXPECT_EQ(page->prefs()->identifier(), "");
    EXPECT_EQ(page->prefs()->post(), "");
    EXPECT_EQ(platform::NSGetUncaughtExceptionHandler(), nullptr);
}

TEST_F(AccountPage, SetsNoDefaults) {
    for (const auto& row : page->specifiers())
        EXPECT_EQ(row->valueForKey("default"), nullptr);
}

TEST_F(AccountPage, BuildsItsListOnceUntilItIsCleared) {
    const auto first = page->specifiers();
    const auto helper = page->prefs();
    EXPECT_EQ(page->specifiers(), first);
    EXPECT_EQ(page->prefs(), helper);
    page->reloadSpecifiers();
    EXPECT_NE(page->specifiers(), first);
}

TEST_F(AccountPage, ReturnsAnEmptyListThatWasSet) {
    page->setSpecifiers({});
    EXPECT_TRUE(page->specifiers().empty());
}

TEST_F(AccountPage, ShowsTheAccountAtTheSelectedIndex) {
    writeAccounts({accountNamed("Ann"), accountNamed("Ben", true)});
    SelectedIndex = 1;
    EXPECT_EQ(rowOfKey(*page, "kAccountName")->performGetter(), Value("Ben"));
    EXPECT_EQ(rowNamed(*page, "Enabled")->performGetter(), Value(true));
    SelectedIndex = 0;
    EXPECT_EQ(rowOfKey(*page, "kAccountName")->performGetter(), Value("Ann"));
}

TEST_F(AccountPage, ClosesTheKeyboardWhenItsListIsDragged) {
    page->specifiers();
    doubles::RecordingDisplay display;
    page->scrollViewWillBeginDragging();
    EXPECT_EQ(display.endedEditing, std::vector<platform::UIView*>{page->view().get()});
}

TEST_F(AccountPage, IsNotKeptAliveByItsRows) {
    const auto rows = page->specifiers();
    const std::weak_ptr<AppsController> gone = page;
    page.reset();
    EXPECT_TRUE(gone.expired());
    EXPECT_FALSE(rows.front()->performGetter());
}

} // namespace
} // namespace wardlock::test
