#include "platform/runtime/Class.h"

#include "tests/support/modules/Greeting.h"

#include <gtest/gtest.h>

namespace wardlock::test {
namespace {

using platform::Class;
using platform::ClassTable;
using platform::objc_getClass;

class Plain : public platform::Object {};
class Polite : public GreetingObject {
public:
    std::string greeting() const override { return "how do you do"; }
};

platform::Object& politeMeta() {
    static Polite object;
    return object;
}

constexpr Class plain("Plain", &platform::makeInstance<Plain>, &politeMeta);
constexpr Class otherPlain("Plain", nullptr);
constexpr Class abstract("Abstract", nullptr);
constexpr const Class* first[] = {&plain, &abstract};
constexpr const Class* second[] = {&otherPlain};

class RegisteredClassTable : public ::testing::Test {
protected:
    void add(ClassTable table) {
        platform::registerClasses(table);
        added_.push_back(table);
    }
    ~RegisteredClassTable() override {
        for (const ClassTable& table : added_)
            platform::withdrawClasses(table);
    }

private:
    std::vector<ClassTable> added_;
};

TEST_F(RegisteredClassTable, KnowsNoClassUntilItIsRegistered) {
    EXPECT_EQ(objc_getClass("Plain"), nullptr);
    EXPECT_EQ(objc_getClass(""), nullptr);
    add(first);
    EXPECT_EQ(objc_getClass("Plain"), &plain);
    EXPECT_EQ(objc_getClass("Abstract"), &abstract);
    EXPECT_EQ(objc_getClass("plain"), nullptr);
}

TEST_F(RegisteredClassTable, ForgetsAClassThatIsWithdrawn) {
    add(first);
    platform::withdrawClasses(first);
    EXPECT_EQ(objc_getClass("Plain"), nullptr);
    platform::withdrawClasses(first);
}

TEST_F(RegisteredClassTable, HidesAnEarlierClassUntilItIsWithdrawn) {
    add(first);
    add(second);
    EXPECT_EQ(objc_getClass("Plain"), &otherPlain);
    EXPECT_EQ(objc_getClass("Abstract"), &abstract);
    platform::withdrawClasses(second);
    EXPECT_EQ(objc_getClass("Plain"), &plain);
}

TEST_F(RegisteredClassTable, CountsHowOftenItIsRegistered) {
    add(first);
    add(first);
    platform::withdrawClasses(first);
    EXPECT_EQ(objc_getClass("Plain"), &plain);
}

TEST_F(RegisteredClassTable, IsSearchedAlone) {
    EXPECT_EQ(platform::classInTable(second, "Plain"), &otherPlain);
    EXPECT_EQ(platform::classInTable(second, "Abstract"), nullptr);
    EXPECT_EQ(platform::classInTable(ClassTable(), "Plain"), nullptr);
}

TEST(ClassByName, CreatesOwnedInstances) {
    const auto object = plain.create();
    EXPECT_NE(dynamic_cast<Plain*>(object.get()), nullptr);
    EXPECT_EQ(object->weak_from_this().lock(), object);
    EXPECT_NE(plain.create(), object);
    EXPECT_EQ(abstract.create(), nullptr);
}

TEST(ClassByName, ReturnsItsClassMethodsAsTheRequestedProtocol) {
    ASSERT_NE(plain.classMethods<Greeting>(), nullptr);
    EXPECT_EQ(plain.classMethods<Greeting>()->greeting(), "how do you do");
    EXPECT_EQ(plain.classMethods<Plain>(), nullptr);
    EXPECT_EQ(abstract.classMethods<Greeting>(), nullptr);
}

} // namespace
} // namespace wardlock::test
