#include "platform/preferences/PSListController.h"

#include "platform/preferences/PSListItemsController.h"
#include "platform/ui/UINavigationController.h"
#include "tests/support/doubles/RecordingDisplay.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

class DetailPage : public PSListController {
public:
    static const Class& theClass() {
        static const Class detail("DetailPage", makeInstance<DetailPage>);
        return detail;
    }
};

class Page : public PSListController {
public:
    const Specifiers& specifiers() override {
        if (!hasSpecifiers()) {
            ++built;
            setSpecifiers({row("Loose", PSCellType::StaticText), row("Group", PSCellType::Group),
                           row("Link", PSCellType::Link, &DetailPage::theClass()),
                           row("Button", PSCellType::Button), choices()});
            (*std::next(PSListController::specifiers().begin(), 3))
                ->setButtonAction(PSSpecifier::ButtonAction::of<&Page::pressed>("pressed"));
        }
        return PSListController::specifiers();
    }
    std::shared_ptr<PSSpecifier> row(const std::string& name, PSCellType cell,
                                     const Class* detail = nullptr) {
        return PSSpecifier::preferenceSpecifierNamed(name, shared_from_this(), {}, {}, detail, cell, nullptr);
    }
    std::shared_ptr<PSSpecifier> choices() {
        auto list = PSSpecifier::preferenceSpecifierNamed(
            "Choice", shared_from_this(), PSSpecifier::SetAction::of<&Page::choose>("choose"),
            PSSpecifier::GetAction::of<&Page::chosen>("chosen"), &PSListItemsController::theClass(),
            PSCellType::LinkList, nullptr);
        list->setValues({Value(1), Value(2)}, {"One", "Two"}, {"One", "Two"});
        return list;
    }
    void pressed(PSSpecifier&) {
        ++presses;
        if (!rowsAfterPress.empty())
            setSpecifiers(rowsAfterPress);
    }
    void choose(const Value* value, PSSpecifier&) { choice = *value; }
    std::optional<Value> chosen(PSSpecifier&) { return choice; }

    int built = 0;
    int presses = 0;
    Specifiers rowsAfterPress;
    Value choice = Value(1);
};

class List : public ::testing::Test {
protected:
    doubles::RecordingDisplay display;
    std::shared_ptr<Page> page = std::make_shared<Page>();
    std::shared_ptr<UINavigationController> stack = UINavigationController::initWithRootViewController(page);
};

TEST_F(List, HasItsRowsReadyWhenItAppears) {
    EXPECT_EQ(page->built, 1);
}

TEST_F(List, PutsRowsBeforeTheFirstGroupIntoASectionWithoutHeader) {
    const auto& sections = page->sections().sections();
    ASSERT_EQ(sections.size(), 2U);
    EXPECT_EQ(sections[0].header(), "");
    EXPECT_EQ(sections[0].rows.size(), 1U);
    EXPECT_EQ(sections[1].header(), "Group");
    EXPECT_EQ(sections[1].rows.size(), 3U);
}

TEST_F(List, BuildsItsRowsAgainOnReload) {
    page->reloadSpecifiers();
    EXPECT_EQ(page->built, 2);
    EXPECT_EQ(display.events, std::vector<std::string>{"list reloaded"});
}

TEST_F(List, AddsARowAtItsEnd) {
    ASSERT_FALSE(page->sections().at({1, 3}));
    page->addSpecifier(page->row("New", PSCellType::Link), true);
    EXPECT_EQ(display.events, std::vector<std::string>{"row inserted 1/3 animated"});
    EXPECT_EQ(page->sections().at({1, 3})->name(), "New");
}

TEST_F(List, PushesTheDetailPageOfALinkUnderItsLabel) {
    page->tableViewDidSelectRowAtIndexPath({1, 0});
    const auto pushed = std::dynamic_pointer_cast<DetailPage>(stack->topViewController());
    ASSERT_TRUE(pushed);
    EXPECT_EQ(pushed->title(), "Link");
}

TEST_F(List, PerformsTheActionOfAButton) {
    page->tableViewDidSelectRowAtIndexPath({1, 1});
    EXPECT_EQ(page->presses, 1);
    EXPECT_EQ(stack->topViewController(), page);
}

TEST_F(List, PushesNoPageOfTheRowThatTakesTheButtonsPlace) {
    page->rowsAfterPress = {page->row("Group", PSCellType::Group), page->row("Other", PSCellType::Group),
                            page->row("Text", PSCellType::StaticText),
                            page->row("Link", PSCellType::Link, &DetailPage::theClass())};
    page->tableViewDidSelectRowAtIndexPath({1, 1});
    ASSERT_EQ(page->sections().at({1, 1})->name(), "Link");
    EXPECT_EQ(stack->topViewController(), page);
}

TEST_F(List, IgnoresATapOutsideItsRows) {
    page->tableViewDidSelectRowAtIndexPath({1, 9});
    page->tableViewDidSelectRowAtIndexPath({9, 0});
    EXPECT_EQ(stack->topViewController(), page);
}

TEST_F(List, MarksTheChoiceOfALinkListAndStoresAnother) {
    page->tableViewDidSelectRowAtIndexPath({1, 2});
    const auto items = std::dynamic_pointer_cast<PSListItemsController>(stack->topViewController());
    ASSERT_TRUE(items);
    EXPECT_EQ(items->title(), "Choice");
    EXPECT_TRUE(items->isChosen({0, 0}));
    display.events.clear();
    items->tableViewDidSelectRowAtIndexPath({0, 1});
    EXPECT_EQ(page->choice, Value(2));
    EXPECT_FALSE(items->isChosen({0, 0}));
    EXPECT_TRUE(items->isChosen({0, 1}));
    EXPECT_EQ(display.events, (std::vector<std::string>{"list reloaded", "row reloaded 1/2"}));
    EXPECT_EQ(stack->topViewController(), items);
}

TEST_F(List, ShowsItsListUntilItsViewIsReplaced) {
    EXPECT_TRUE(page->showsList());
    page->setView(std::make_shared<UIView>());
    EXPECT_FALSE(page->showsList());
}

} // namespace
} // namespace platform
