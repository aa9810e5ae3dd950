#include "platform/values/Selector.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

using namespace platform;

namespace {

class Protocol {
public:
    virtual ~Protocol() = default;
    virtual void notified() {}
};

class Switch : public Object, public Protocol {
public:
    void press() { ++presses; }
    void pressBy(int times) { presses += times; }
    int count() const { return presses; }
    std::string join(const std::string& left, const std::string& right) { return left + right; }
    std::unique_ptr<int> keep(std::unique_ptr<int> given) { return given; }
    void notified() override { presses += 100; }

    int presses = 0;
};

class SpecialSwitch : public Switch {};

class Lamp : public Object {
public:
    void press() {}
};

using Action = Selector<void(int)>;

} // namespace

TEST(Selector, CallsTheMethodBehindIt) {
    Switch target;
    Action::of<&Switch::pressBy>("pressBy:")(target, 3);
    EXPECT_EQ(target.presses, 3);
}

TEST(Selector, ReturnsTheResultOfTheMethod) {
    Switch target;
    target.presses = 5;
    EXPECT_EQ(Selector<int()>::of<&Switch::count>("count")(target), 5);
    using Join = Selector<std::string(const std::string&, const std::string&)>;
    EXPECT_EQ(Join::of<&Switch::join>("join:with:")(target, "a", "b"), "ab");
}

TEST(Selector, SendsToAMethodThatIgnoresTheArguments) {
    Switch target;
    Action::of<&Switch::press>("press")(target, 3);
    EXPECT_EQ(target.presses, 1);
}

TEST(Selector, ForwardsMoveOnlyArguments) {
    Switch target;
    using Keep = Selector<std::unique_ptr<int>(std::unique_ptr<int>)>;
    const auto kept = Keep::of<&Switch::keep>("keep:")(target, std::make_unique<int>(7));
    ASSERT_TRUE(kept);
    EXPECT_EQ(*kept, 7);
}

TEST(Selector, ReachesAnInheritedMethod) {
    SpecialSwitch target;
    Action::of<&Switch::pressBy>("pressBy:")(target, 2);
    EXPECT_EQ(target.presses, 2);
}

TEST(Selector, ReachesAMethodOfAProtocolOfTheTarget) {
    Switch target;
    Selector<void()>::of<&Protocol::notified>("notified")(target);
    EXPECT_EQ(target.presses, 100);
}

TEST(Selector, ThrowsWhenTheTargetIsOfAnotherClass) {
    Lamp target;
    try {
        Action::of<&Switch::press>("press")(target, 1);
        FAIL() << "nothing was thrown";
    } catch (const NSException& exception) {
        EXPECT_EQ(exception.name(), NSInvalidArgumentException);
        EXPECT_EQ(exception.reason(), "press: unrecognized selector sent to instance");
    }
}

TEST(Selector, ThrowsWhenItIsEmpty) {
    Switch target;
    try {
        Action()(target, 1);
        FAIL() << "nothing was thrown";
    } catch (const NSException& exception) {
        EXPECT_EQ(exception.name(), NSInvalidArgumentException);
    }
    EXPECT_EQ(target.presses, 0);
}

TEST(Selector, KnowsItsNameAndWhetherItIsEmpty) {
    EXPECT_EQ(Action::of<&Switch::press>("press").name(), "press");
    EXPECT_TRUE(Action::of<&Switch::press>("press"));
    EXPECT_FALSE(Action());
    EXPECT_EQ(Action().name(), "");
}

TEST(Selector, EqualsAnotherOfTheSameMethod) {
    EXPECT_EQ(Action::of<&Switch::press>("press"), Action::of<&Switch::press>("press"));
    EXPECT_FALSE(Action::of<&Switch::press>("press") == Action::of<&Switch::pressBy>("press"));
    EXPECT_EQ(Action(), Action());
}

TEST(Selector, CanBeCreatedAtCompileTime) {
    constexpr Action action = Action::of<&Switch::press>("press");
    static_assert(action.name() == "press");
    Switch target;
    action(target, 1);
    EXPECT_EQ(target.presses, 1);
}
