#include "apps/AppsListController.h"

#include "tests/support/ViewListPage.h"
#include "tests/unit/apps/PickerFixture.h"

namespace wardlock::test {
namespace {

class AppsListPage : public PickerFixture {
protected:
    AppsListPage() {
        install({{"a", "Alpha"}, {"b", "Bravo"}, {"c", "Charlie"}});
        restrict({"b"});
    }

    AppsListView& shown() { return dynamic_cast<AppsListView&>(*page->view()); }

    std::shared_ptr<AppsListController> page = std::make_shared<AppsListController>();
};

TEST_F(AppsListPage, IsMadeByName) {
    EXPECT_EQ(AppsListController::theClass().name(), "AppsListController");
    EXPECT_NE(std::dynamic_pointer_cast<AppsListController>(AppsListController::theClass().create()),
              nullptr);
}

TEST_F(AppsListPage, IsTitledApps) {
    expectTitle(*page, "Apps");
}

TEST_F(AppsListPage, HasAListWithoutRowsReady) {
    EXPECT_FALSE(page->hasSpecifiers());
    page->viewWillAppear(false);
    ASSERT_TRUE(page->hasSpecifiers());
    EXPECT_TRUE(page->specifiers().empty());
}

TEST_F(AppsListPage, ShowsANewViewOfThePreviousSize) {
    page->setView(std::make_shared<platform::UIView>(frame));
    page->viewWillAppear(true);
    EXPECT_EQ(shown().frame(), frame);
    EXPECT_FALSE(page->showsList());
    const std::weak_ptr<platform::UIView> first = page->view();
    page->viewWillAppear(true);
    EXPECT_TRUE(first.expired());
    EXPECT_EQ(shown().frame(), frame);
}

TEST_F(AppsListPage, SetsItsTitleBeforeItsNewViewAndAfterItsListIsReady) {
    EXPECT_EQ(picturesOfAppearing(*page),
              (std::vector<std::string>{"Apps, list ready, view of before", "Apps, list ready, new view"}));
}

TEST_F(AppsListPage, RegroupsItsRowsWhenItIsShownAgain) {
    page->viewWillAppear(false);
    EXPECT_EQ(rows(shown()), (Identifiers{"b", "a", "c"}));
    tap(shown(), 2);
    tap(shown(), 0);
    EXPECT_EQ(rows(shown()), (Identifiers{"b", "a", "c"}));
    page->viewWillAppear(false);
    EXPECT_EQ(rows(shown()), (Identifiers{"c", "a", "b"}));
}

TEST_F(AppsListPage, ShowsAnApplicationThatWasInstalledLater) {
    page->viewWillAppear(false);
    install({{"d", "Delta"}});
    page->viewWillAppear(false);
    EXPECT_EQ(rows(shown()), (Identifiers{"b", "d"}));
    EXPECT_EQ(list->listings(), 2);
}

} // namespace
} // namespace wardlock::test
