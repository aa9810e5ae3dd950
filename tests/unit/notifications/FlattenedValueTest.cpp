#include "linux/notifications/FlattenedValue.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>

using platform::Array;
using platform::Dictionary;
using platform::Value;
using platform::notifications::FlattenedValue;

namespace {

constexpr std::size_t levels = 512;

TEST(FlattenedValue, IsASingleScalarOrContainer) {
    FlattenedValue scalar(levels);
    EXPECT_TRUE(scalar.add(true));
    EXPECT_TRUE(scalar.isComplete());
    EXPECT_EQ(scalar.take(), Value(true));
    FlattenedValue empty(levels);
    EXPECT_TRUE(empty.beginArray(0));
    EXPECT_EQ(empty.take(), Value(Array{}));
}

TEST(FlattenedValue, ClosesEveryContainerThatItsLastElementFills) {
    FlattenedValue flattened(levels);
    EXPECT_TRUE(flattened.beginArray(2));
    EXPECT_TRUE(flattened.add(1));
    EXPECT_TRUE(flattened.beginDictionary(2));
    EXPECT_TRUE(flattened.add("b"));
    EXPECT_TRUE(flattened.beginArray(0));
    EXPECT_TRUE(flattened.add("a"));
    EXPECT_FALSE(flattened.isComplete());
    EXPECT_TRUE(flattened.add(2));
    ASSERT_TRUE(flattened.isComplete());
    EXPECT_EQ(flattened.take(), Value(Array{1, Dictionary{{"b", Array{}}, {"a", 2}}}));
}

TEST(FlattenedValue, RefusesElementsAfterItsEnd) {
    FlattenedValue flattened(levels);
    EXPECT_TRUE(flattened.beginArray(0));
    EXPECT_FALSE(flattened.add(1));
    EXPECT_FALSE(flattened.beginArray(0));
    EXPECT_FALSE(flattened.beginDictionary(0));
}

TEST(FlattenedValue, AcceptsOnlyAStringAsAKey) {
    FlattenedValue number(levels);
    EXPECT_TRUE(number.beginDictionary(1));
    EXPECT_FALSE(number.add(1));
    FlattenedValue container(levels);
    EXPECT_TRUE(container.beginDictionary(1));
    EXPECT_FALSE(container.beginArray(0));
}

TEST(FlattenedValue, AcceptsAHugeCountWithoutItsElements) {
    FlattenedValue flattened(levels);
    EXPECT_TRUE(flattened.beginArray(UINT32_MAX));
    EXPECT_TRUE(flattened.beginDictionary(UINT32_MAX));
    EXPECT_FALSE(flattened.isComplete());
}

TEST(FlattenedValue, AcceptsContainersDownToItsLastLevel) {
    FlattenedValue flattened(levels);
    for (std::size_t i = 0; i < levels; ++i)
        ASSERT_TRUE(flattened.beginArray(1));
    ASSERT_TRUE(flattened.add("inside"));
    ASSERT_TRUE(flattened.isComplete());
    Value value = flattened.take();
    for (std::size_t i = 0; i < levels; ++i)
        value = Value(value.array()[0]);
    EXPECT_EQ(value, Value("inside"));
}

TEST(FlattenedValue, RefusesContainersBelowItsLastLevel) {
    for (const std::uint32_t count : {0U, 1U}) {
        FlattenedValue flattened(levels);
        for (std::size_t i = 0; i + 1 < levels; ++i)
            ASSERT_TRUE(flattened.beginArray(2));
        ASSERT_TRUE(flattened.beginArray(0)) << "which ends at once";
        ASSERT_TRUE(flattened.beginArray(1));
        EXPECT_FALSE(flattened.beginArray(count));
        EXPECT_FALSE(flattened.beginDictionary(count));
    }
}

} // namespace
