#include "platform/ui/UINavigationController.h"

#include "tests/support/doubles/ManualClock.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace platform {
namespace {

class Page : public UIViewController {
public:
    Page(std::string name, std::vector<std::string>& log) : name_(std::move(name)), log_(log) {}

    void viewWillAppear(bool animated) override { note("will appear", animated); }
    void viewDidAppear(bool animated) override { note("did appear", animated); }
    void viewWillDisappear(bool animated) override { note("will disappear", animated); }
    void viewDidDisappear(bool animated) override { note("did disappear", animated); }

private:
    void note(const std::string& what, bool animated) {
        log_.push_back(name_ + " " + what + (animated ? "~" : ""));
    }

    std::string name_;
    std::vector<std::string>& log_;
};

class Navigation : public ::testing::Test {
protected:
    std::shared_ptr<Page> page(const std::string& name) { return std::make_shared<Page>(name, log); }

    doubles::ManualClock clock;
    std::vector<std::string> log;
    std::shared_ptr<Page> root = page("root");
    std::shared_ptr<UINavigationController> stack = UINavigationController::initWithRootViewController(root);
};

using Log = std::vector<std::string>;

TEST_F(Navigation, ShowsItsRootAtOnce) {
    EXPECT_EQ(log, (Log{"root will appear", "root did appear"}));
    EXPECT_EQ(root->navigationController(), stack);
}

TEST_F(Navigation, NotifiesPagesOfAnImmediatePushAtOnce) {
    log.clear();
    stack->pushViewController(page("next"), true);
    EXPECT_EQ(log,
              (Log{"root will disappear~", "next will appear~", "root did disappear~", "next did appear~"}));
    EXPECT_FALSE(stack->isInTransition());
}

TEST_F(Navigation, ReportsThatAPageHasAppearedOnlyWhenThePushHasEnded) {
    stack->setTransitionSeconds(0.35);
    log.clear();
    stack->pushViewController(page("next"), true);
    EXPECT_EQ(log, (Log{"root will disappear~", "next will appear~"}));
    EXPECT_TRUE(stack->isInTransition());
    clock.step(0.35);
    EXPECT_EQ(log,
              (Log{"root will disappear~", "next will appear~", "root did disappear~", "next did appear~"}));
}

TEST_F(Navigation, KeepsAPoppedPageUntilThePopHasEnded) {
    auto next = page("next");
    stack->pushViewController(next, true);
    stack->setTransitionSeconds(0.35);
    const std::weak_ptr<UIViewController> watched = next;
    next.reset();
    stack->popViewControllerAnimated(true);
    EXPECT_FALSE(watched.expired());
    clock.step(0.35);
    EXPECT_TRUE(watched.expired());
}

TEST_F(Navigation, NeverPopsItsRoot) {
    EXPECT_EQ(stack->popViewControllerAnimated(true), nullptr);
    EXPECT_EQ(stack->topViewController(), root);
}

/// Goes back as soon as it has appeared.
class PassingPage : public UIViewController {
public:
    void viewDidAppear(bool) override {
        if (const auto stack = navigationController())
            stack->popViewControllerAnimated(false);
    }
};

TEST_F(Navigation, NeverPopsItsRootWhereTheLastPushEndsInAPop) {
    stack->setTransitionSeconds(0.35);
    stack->pushViewController(std::make_shared<PassingPage>(), true);
    EXPECT_EQ(stack->popViewControllerAnimated(true), nullptr);
    EXPECT_EQ(stack->topViewController(), root);
    EXPECT_EQ(stack->viewControllers().size(), 1U);
}

TEST_F(Navigation, EndsARunningTransitionBeforeTheNextOne) {
    stack->setTransitionSeconds(0.35);
    stack->pushViewController(page("next"), true);
    log.clear();
    stack->popViewControllerAnimated(true);
    EXPECT_EQ(log,
              (Log{"root did disappear~", "next did appear~", "next will disappear~", "root will appear~"}));
    clock.step(0.35);
    EXPECT_EQ(log.back(), "root did appear~");
    clock.step(10);
    EXPECT_EQ(log.size(), 6U);
}

TEST_F(Navigation, RemovesAPoppedPageFromTheStack) {
    const auto next = page("next");
    stack->pushViewController(next, true);
    EXPECT_EQ(stack->popViewControllerAnimated(true), next);
    EXPECT_EQ(next->navigationController(), nullptr);
}

TEST_F(Navigation, PopsAllPagesAboveOneAtOnceAndNotifiesOnlyTheFirstAndTheLast) {
    const auto below = page("below");
    const auto between = page("between");
    const auto top = page("top");
    for (const auto& pushed : {below, between, top})
        stack->pushViewController(pushed, false);
    log.clear();
    EXPECT_EQ(stack->popToViewController(*below, true),
              (std::vector<std::shared_ptr<UIViewController>>{between, top}));
    EXPECT_EQ(log,
              (Log{"top will disappear~", "below will appear~", "top did disappear~", "below did appear~"}));
    EXPECT_EQ(stack->topViewController(), below);
    EXPECT_EQ(between->navigationController(), nullptr);
    EXPECT_EQ(top->navigationController(), nullptr);
}

TEST_F(Navigation, PopsNothingAboveAPageThatIsOnTopOrOnNoStack) {
    log.clear();
    EXPECT_TRUE(stack->popToViewController(*root, true).empty());
    EXPECT_TRUE(stack->popToViewController(*page("other"), true).empty());
    EXPECT_EQ(log, Log());
}

} // namespace
} // namespace platform
