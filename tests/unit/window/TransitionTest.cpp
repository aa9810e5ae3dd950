#include "tests/unit/window/WindowFixture.h"

#include <gtest/gtest.h>

namespace wardlock::test {

class WindowTransitions : public WindowFixture {
protected:
    /// Longer than any wait of a test, by the clock of the desktop.
    static constexpr double transition = 60;

    void rest() {
        clock.step(transition);
        scene().settle();
    }
    bool isMoving() { return host().settings().application().screen().isInTransition(); }
};

TEST_F(WindowTransitions, ShowThePageOnTopLeaveWhenSeveralAreLeft) {
    setAccounts({"Ann", "Tom"});
    open(transition);
    for (const char* row : {"row:Wardlock", "row:Tom", "row:Apps"}) {
        scene().tap(row);
        rest();
    }
    scene().item("page:Apps");
    setAccounts({"Ann"});
    announce();
    ASSERT_TRUE(isMoving());
    EXPECT_TRUE(scene().shows("page:Apps"));
    EXPECT_FALSE(scene().shows("page:Tom"));
    EXPECT_TRUE(until([&] { return scene().item("page:Apps")->x() > 0; }));
    EXPECT_TRUE(scene().shows("page:Wardlock"));
    rest();
    EXPECT_FALSE(scene().shows("page:Apps"));
    EXPECT_EQ(window().title(), QStringLiteral("Wardlock – Settings"));
}

} // namespace wardlock::test
