// What assistive technology presses, by the actions that items offer it.

#include "tests/unit/window/WindowFixture.h"

#include <QAccessible>
#include <QPointer>
#include <gtest/gtest.h>

namespace wardlock::test {

class WindowPressAction : public WindowFixture {
protected:
    static constexpr double transition = 0.3;

    void openMoving() {
        setAccounts({"Ann"});
        open(transition);
        scene().tap("row:Wardlock");
        scene().item("page:Wardlock");
        ASSERT_TRUE(host().settings().application().screen().isInTransition());
    }
    void rest() {
        clock.step(transition);
        scene().settle();
    }
    QAccessibleActionInterface* actionsOf(const QString& name) {
        return scene().accessible(name)->actionInterface();
    }
    void press(const QString& name) { actionsOf(name)->doAction(QAccessibleActionInterface::pressAction()); }
    /// The first element below of that name; null for none.
    static QAccessibleInterface* find(QAccessibleInterface& element, const QString& name) {
        if (element.text(QAccessible::Name) == name)
            return &element;
        QAccessibleInterface* found = nullptr;
        for (int i = 0; i < element.childCount() && !found; ++i)
            if (auto* child = element.child(i))
                found = find(*child, name);
        return found;
    }
    bool isEnabled() { return document().find("kEnabled")->boolean(); }
    std::string title() { return window().title().toStdString(); }
};

TEST_F(WindowPressAction, OpensARowWhenThePageIsInItsPlace) {
    openMoving();
    press("row:Ann");
    EXPECT_EQ(title(), "Wardlock – Settings");
    rest();
    EXPECT_EQ(title(), "Ann – Settings");
}

TEST_F(WindowPressAction, FlipsASwitchWhenThePageIsInItsPlace) {
    openMoving();
    const bool before = isEnabled();
    press("switch:Enabled");
    EXPECT_EQ(isEnabled(), before);
    rest();
    EXPECT_EQ(isEnabled(), !before);
}

TEST_F(WindowPressAction, LeavesThePageWhenItIsInItsPlace) {
    openMoving();
    press("back");
    EXPECT_EQ(title(), "Wardlock – Settings");
    rest();
    EXPECT_EQ(title(), "Settings");
}

TEST_F(WindowPressAction, OpensPageAfterPageInOrder) {
    openMoving();
    press("row:Ann");
    press("back");
    rest();
    EXPECT_EQ(title(), "Ann – Settings");
    rest();
    EXPECT_EQ(title(), "Wardlock – Settings");
}

TEST_F(WindowPressAction, IsForgottenWithThePageThatLeaves) {
    openMoving();
    rest();
    const bool before = isEnabled();
    scene().tap("back");
    press("switch:Enabled");
    rest();
    EXPECT_EQ(title(), "Settings");
    EXPECT_EQ(isEnabled(), before);
}

TEST_F(WindowPressAction, DoesNotReachThePageThatCoversTheRow) {
    setAccounts({"Ann"});
    open();
    scene().tap("row:Wardlock");
    // Kept by a screen reader from before. On the page above, the first row is this switch, too.
    QPointer<QQuickItem> row = scene().item("switch:Enabled");
    scene().tap("row:Ann");
    scene().item("page:Ann");
    const bool enabled = isEnabled();
    const auto accountBefore = account(0, "kAccountEnabled");
    if (row)
        QAccessible::queryAccessibleInterface(row)->actionInterface()->doAction(
            QAccessibleActionInterface::pressAction());
    scene().settle();
    EXPECT_EQ(isEnabled(), enabled);
    EXPECT_EQ(account(0, "kAccountEnabled"), accountBefore);
}

TEST_F(WindowPressAction, IsNotOfferedByATextAlone) {
    openFixtureBundle();
    scene().reveal("row:Version 1");
    auto* text = find(*QAccessible::queryAccessibleInterface(&window()), "Version 1");
    ASSERT_TRUE(text);
    EXPECT_EQ(text->role(), QAccessible::StaticText);
    auto* actions = text->actionInterface();
    EXPECT_FALSE(actions && actions->actionNames().contains(QAccessibleActionInterface::pressAction()));
    EXPECT_TRUE(actionsOf("row:Flavour")->actionNames().contains(QAccessibleActionInterface::pressAction()));
}

} // namespace wardlock::test
