#include "platform/ui/UIView.h"

#include "tests/support/doubles/ManualClock.h"
#include "tests/support/doubles/RecordingDisplay.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

TEST(UIView, AddsASubviewOnTopAndSetsItsSuperview) {
    const auto parent = std::make_shared<UIView>();
    const auto below = std::make_shared<UIView>();
    const auto above = std::make_shared<UIView>();
    parent->addSubview(below);
    parent->addSubview(above);
    EXPECT_EQ(parent->subviews(), (std::vector{below, above}));
    EXPECT_EQ(above->superview(), parent);
}

TEST(UIView, ComesToTheTopWhenItIsAddedAgainFromTheListOfSubviews) {
    const auto parent = std::make_shared<UIView>();
    const auto first = std::make_shared<UIView>();
    const auto second = std::make_shared<UIView>();
    parent->addSubview(first);
    parent->addSubview(second);
    parent->addSubview(parent->subviews().front());
    EXPECT_EQ(parent->subviews(), (std::vector{second, first}));
    EXPECT_EQ(first->superview(), parent);
}

TEST(UIView, LeavesItsOldSuperviewWhenAddedToAnother) {
    const auto first = std::make_shared<UIView>();
    const auto second = std::make_shared<UIView>();
    const auto view = std::make_shared<UIView>();
    first->addSubview(view);
    second->addSubview(view);
    EXPECT_TRUE(first->subviews().empty());
    EXPECT_EQ(view->superview(), second);
}

TEST(UIView, IsOwnedByItsSuperviewAlone) {
    auto parent = std::make_shared<UIView>();
    auto view = std::make_shared<UIView>();
    const std::weak_ptr<UIView> watched = view;
    parent->addSubview(view);
    view.reset();
    EXPECT_FALSE(watched.expired());
    parent.reset();
    EXPECT_TRUE(watched.expired());
}

TEST(UIView, CanRemoveItselfWhenTheSuperviewIsItsOnlyOwner) {
    const auto parent = std::make_shared<UIView>();
    parent->addSubview(std::make_shared<UIView>());
    parent->subviews().front()->removeFromSuperview();
    EXPECT_TRUE(parent->subviews().empty());
}

TEST(UIView, MovesItsFrameWhenItsCenterIsSet) {
    UIView view(CGRect{{0, 0}, {20, 10}});
    view.setCenter({100, 50});
    EXPECT_EQ(view.frame(), (CGRect{{90, 45}, {20, 10}}));
    EXPECT_EQ(view.center(), (CGPoint{100, 50}));
}

TEST(UIView, HasBoundsOfItsSizeAtTheOrigin) {
    EXPECT_EQ(UIView(CGRect{{5, 6}, {20, 10}}).bounds(), (CGRect{{0, 0}, {20, 10}}));
}

TEST(UIView, FadesItsAlphaOverTheAnimation) {
    doubles::ManualClock clock;
    UIView view;
    UIView::animateWithDuration(0.4, [&] { view.setAlpha(0); });
    EXPECT_EQ(view.alpha(), 0);
    EXPECT_DOUBLE_EQ(view.presentationAlpha(), 1);
    clock.step(0.1);
    EXPECT_DOUBLE_EQ(view.presentationAlpha(), 0.75);
    clock.step(0.3);
    EXPECT_DOUBLE_EQ(view.presentationAlpha(), 0);
}

TEST(UIView, ShowsExactlyTheNewAlphaOnceAFadeHasEnded) {
    for (const double from : {0.1, 0.3, 0.55, 0.7, 1.0 / 3})
        for (const double to : {0.0, 0.9, 1.0}) {
            doubles::ManualClock clock;
            UIView view;
            view.setAlpha(from);
            UIView::animateWithDuration(0.4, [&] { view.setAlpha(to); });
            clock.step(0.1);
            clock.step(0.2);
            clock.step(0.1);
            EXPECT_EQ(view.presentationAlpha(), to) << "from " << from;
        }
}

TEST(UIView, ReversesAFadeFromItsCurrentAlpha) {
    doubles::ManualClock clock;
    UIView view;
    UIView::animateWithDuration(0.4, [&] { view.setAlpha(0); });
    clock.step(0.2);
    UIView::animateWithDuration(0.4, [&] { view.setAlpha(1); });
    EXPECT_DOUBLE_EQ(view.presentationAlpha(), 0.5);
    clock.step(0.2);
    EXPECT_DOUBLE_EQ(view.presentationAlpha(), 0.75);
}

TEST(UIView, ShowsAnAlphaSetOutsideAnAnimationAtOnce) {
    doubles::ManualClock clock;
    UIView view;
    UIView::animateWithDuration(0.4, [&] { view.setAlpha(0); });
    view.setAlpha(0.5);
    EXPECT_DOUBLE_EQ(view.presentationAlpha(), 0.5);
}

TEST(UIView, CallsTheCompletionWhenTheTimeHasRunOut) {
    doubles::ManualClock clock;
    std::vector<bool> finished;
    UIView::animateWithDuration(
        0.4, [] {}, [&](bool ended) { finished.push_back(ended); });
    clock.step(0.39);
    EXPECT_TRUE(finished.empty());
    clock.step(0.01);
    EXPECT_EQ(finished, std::vector{true});
}

TEST(UIView, AsksItsDisplayToEndEditing) {
    doubles::RecordingDisplay display;
    const auto view = std::make_shared<UIView>();
    EXPECT_TRUE(view->endEditing(true));
    EXPECT_EQ(display.endedEditing, std::vector{view.get()});
}

TEST(UIView, NotifiesItsDisplayOfItsChanges) {
    doubles::RecordingDisplay display;
    const auto view = std::make_shared<UIView>();
    view->setAlpha(0.5);
    view->setHidden(true);
    view->setFrame({{1, 2}, {3, 4}});
    view->addSubview(std::make_shared<UIView>());
    EXPECT_EQ(display.changedViews, (std::vector<UIView*>(4, view.get())));
}

} // namespace
} // namespace platform
