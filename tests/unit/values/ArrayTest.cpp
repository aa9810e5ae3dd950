#include "platform/values/NSException.h"
#include "platform/values/Value.h"
#include "tests/support/ValueText.h"

#include <gtest/gtest.h>

#include <functional>

namespace platform {
namespace {

using wardlock::test::text;

/// The name and reason of what is thrown; empty when nothing is.
std::string thrown(const std::function<void()>& action) {
    try {
        action();
    } catch (const NSException& exception) {
        return exception.what();
    }
    return {};
}

TEST(Array, KeepsItsElementsInOrder) {
    const Array array{1, "two", true};
    EXPECT_EQ(array.size(), 3u);
    EXPECT_EQ(text(array), "[1, \"two\", true]");
    EXPECT_EQ(array.at(1), Value("two"));
}

TEST(Array, ThrowsARangeExceptionBeyondItsEnd) {
    EXPECT_EQ(thrown([] { Array({1, 2}).at(2); }), "NSRangeException: index 2 beyond bounds [0 .. 1]");
    EXPECT_EQ(thrown([] { Array().at(0); }), "NSRangeException: index 0 beyond bounds for empty array");
}

TEST(Array, DistinguishesTheSameObjectFromAnEqualOne) {
    const Array array{1};
    const Array copy = array;
    EXPECT_TRUE(array.isSameObject(copy));
    EXPECT_FALSE(array.isSameObject(Array{1}));
    EXPECT_EQ(array, Array{1});
}

TEST(MutableArray, LeavesItsSourceAlone) {
    const Array array{1, 2};
    MutableArray copy(array);
    copy.append(3);
    copy.replace(0, "one");
    EXPECT_EQ(text(array), "[1, 2]");
    EXPECT_EQ(text(copy.copy()), "[\"one\", 2, 3]");
}

TEST(MutableArray, SharesTheContainersOfItsSource) {
    const Array array{Dictionary{{"a", 1}}};
    EXPECT_TRUE(MutableArray(array).at(0).dictionary().isSameObject(array[0].dictionary()));
}

TEST(MutableArray, InsertsAnywhereUpToItsEnd) {
    MutableArray array(Array{2});
    array.insert(0, 1);
    array.insert(2, 3);
    EXPECT_EQ(text(array.copy()), "[1, 2, 3]");
}

TEST(MutableArray, ThrowsARangeExceptionAndChangesNothingBeyondItsEnd) {
    MutableArray array(Array{1});
    EXPECT_NE(thrown([&] { array.at(1); }), "");
    EXPECT_NE(thrown([&] { array.insert(2, 0); }), "");
    EXPECT_NE(thrown([&] { array.replace(1, 0); }), "");
    EXPECT_NE(thrown([&] { array.remove(1); }), "");
    EXPECT_EQ(text(array.copy()), "[1]");
}

TEST(MutableArray, RemovesEveryElementThatEqualsOne) {
    MutableArray array(Array{"a", "b", "a", "c", "a"});
    array.removeObject(array.at(0));
    EXPECT_EQ(text(array.copy()), "[\"b\", \"c\"]");
}

TEST(MutableArray, RemovesAtAnIndex) {
    MutableArray array(Array{1, 2, 3});
    array.remove(1);
    EXPECT_EQ(text(array.copy()), "[1, 3]");
}

TEST(MutableArray, ChangesNoReturnedCopy) {
    MutableArray array(Array{1});
    const Array before = array.copy();
    array.append(2);
    EXPECT_EQ(text(before), "[1]");
}

} // namespace
} // namespace platform
