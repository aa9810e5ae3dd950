#include "platform/ui/UIAlertController.h"

#include "platform/runtime/NSNotificationCenter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace platform {
namespace {

class Alert : public ::testing::Test {
protected:
    std::shared_ptr<UIAlertAction> add(const std::string& title, UIAlertAction::Handler handler = {}) {
        auto action = UIAlertAction::actionWithTitle(title, UIAlertActionStyle::Default, std::move(handler));
        alert->addAction(action);
        return action;
    }

    std::shared_ptr<UIViewController> page = std::make_shared<UIViewController>();
    std::shared_ptr<UIAlertController> alert =
        UIAlertController::alertControllerWithTitle("Title", "Message", UIAlertControllerStyle::Alert);
};

TEST_F(Alert, IsDismissedBeforeTheHandlerRuns) {
    bool presented = true;
    const auto action =
        add("OK", [&](UIAlertAction&) { presented = page->presentedViewController() != nullptr; });
    page->presentViewController(alert, true);
    alert->choose(action);
    EXPECT_FALSE(presented);
}

TEST_F(Alert, DoesNotReplaceAnotherAlert) {
    const auto other =
        UIAlertController::alertControllerWithTitle("Other", "", UIAlertControllerStyle::Alert);
    page->presentViewController(alert, true);
    page->presentViewController(other, true);
    EXPECT_EQ(page->presentedViewController(), alert);
    EXPECT_EQ(other->presentingViewController(), nullptr);
    page->dismissViewControllerAnimated(true);
    page->presentViewController(other, true);
    EXPECT_EQ(page->presentedViewController(), other);
}

TEST_F(Alert, IgnoresADisabledAction) {
    int calls = 0;
    const auto action = add("OK", [&](UIAlertAction&) { ++calls; });
    action->setEnabled(false);
    page->presentViewController(alert, true);
    alert->choose(action);
    EXPECT_EQ(calls, 0);
    EXPECT_EQ(page->presentedViewController(), alert);
}

TEST_F(Alert, RunsAHandlerOnce) {
    int calls = 0;
    const auto action = add("OK", [&](UIAlertAction&) { ++calls; });
    page->presentViewController(alert, true);
    alert->choose(action);
    alert->choose(action);
    EXPECT_EQ(calls, 1);
}

TEST_F(Alert, ReleasesWhatItsHandlersKeptAlive) {
    auto kept = std::make_shared<int>(1);
    const std::weak_ptr<int> watched = kept;
    const auto cancel = add("Cancel");
    add("OK", [kept](UIAlertAction&) {});
    kept.reset();
    page->presentViewController(alert, true);
    alert->choose(cancel);
    EXPECT_TRUE(watched.expired());
}

TEST_F(Alert, ReleasesItsHandlersWhenItsPageDismissesIt) {
    auto kept = std::make_shared<int>(1);
    const std::weak_ptr<int> watched = kept;
    add("OK", [kept](UIAlertAction&) {});
    kept.reset();
    page->presentViewController(alert, true);
    page->dismissViewControllerAnimated(true);
    EXPECT_TRUE(watched.expired());
}

TEST_F(Alert, ConfiguresItsTextFieldsAsTheyAreAdded) {
    alert->addTextFieldWithConfigurationHandler([](const auto& field) { field->setPlaceholder("Name"); });
    ASSERT_EQ(alert->textFields().size(), 1U);
    EXPECT_EQ(alert->textFields().front()->placeholder(), "Name");
}

class Listener : public Object {
public:
    void changed(const NSNotification& notification) { objects.push_back(notification.object); }
    std::vector<std::shared_ptr<Object>> objects;
};

TEST(UITextField, PostsTheChangeWithItselfAsObjectWhenTheUserTypes) {
    const auto field = std::make_shared<UITextField>();
    const auto listener = std::make_shared<Listener>();
    NSNotificationCenter::defaultCenter().addObserver(
        listener, NSNotificationCenter::Action::of<&Listener::changed>("changed"),
        UITextFieldTextDidChangeNotification, field);
    field->setText("set");
    EXPECT_TRUE(listener->objects.empty());
    field->edit("typed");
    EXPECT_EQ(field->text(), "typed");
    EXPECT_EQ(listener->objects, std::vector<std::shared_ptr<Object>>{field});
}

} // namespace
} // namespace platform
