#include "platform/values/Value.h"

#include "tests/support/ValueText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <thread>
#include <type_traits>
#include <vector>

namespace platform {
namespace {

using wardlock::test::text;

constexpr int deep = 200'000;

Value nested(int levels) {
    Value value = Array();
    for (int i = 0; i < levels; ++i)
        value = i % 2 ? Value(Array{value}) : Value(Dictionary{{"k", value}});
    return value;
}

TEST(Value, IsSmallAndReportsItsKind) {
    EXPECT_EQ(sizeof(Value), 16u);
    EXPECT_EQ(Value(true).kind(), Value::Kind::Boolean);
    EXPECT_EQ(Value(1).kind(), Value::Kind::Integer);
    EXPECT_EQ(Value(1.0).kind(), Value::Kind::Real);
    EXPECT_EQ(Value(1.0f).kind(), Value::Kind::Real);
    EXPECT_EQ(Value("1").kind(), Value::Kind::String);
    EXPECT_EQ(Value::data("1").kind(), Value::Kind::Data);
    EXPECT_EQ(Value::date(1).kind(), Value::Kind::Date);
    EXPECT_EQ(Value(Array()).kind(), Value::Kind::Array);
    EXPECT_EQ(Value(Dictionary()).kind(), Value::Kind::Dictionary);
}

TEST(Value, DoesNotConvertAPointerToABoolean) {
    EXPECT_FALSE((std::is_constructible_v<Value, const Value*>));
    EXPECT_FALSE((std::is_constructible_v<Value, std::nullptr_t>));
}

TEST(Value, StoresEveryInteger) {
    EXPECT_EQ(Value(std::numeric_limits<std::int64_t>::min()).integer(),
              std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(Value(std::numeric_limits<std::int64_t>::max()).integer(),
              std::numeric_limits<std::int64_t>::max());
    const Value largest(std::numeric_limits<std::uint64_t>::max());
    EXPECT_TRUE(largest.isUnsigned());
    EXPECT_EQ(largest.unsignedInteger(), std::numeric_limits<std::uint64_t>::max());
    EXPECT_FALSE(Value(std::uint64_t(5)).isUnsigned());
    EXPECT_EQ(Value(std::uint64_t(5)).integer(), 5);
}

TEST(Value, StoresEveryByteOfAString) {
    const std::string bytes("a\0b", 3);
    EXPECT_EQ(Value(bytes).string(), bytes);
    EXPECT_EQ(Value("").string(), "");
    EXPECT_EQ(Value::data(bytes).data(), bytes);
}

TEST(Value, EqualsBySameKindAndContent) {
    EXPECT_EQ(Value("a"), Value("a"));
    EXPECT_NE(Value("a"), Value::data("a"));
    EXPECT_NE(Value(1), Value(true));
    EXPECT_NE(Value(1), Value(1.0));
    EXPECT_NE(Value(-1), Value(std::numeric_limits<std::uint64_t>::max()));
    EXPECT_EQ(Value(std::uint8_t(7)), Value(std::int64_t(7)));
    EXPECT_EQ(Value(0.0), Value(-0.0));
    EXPECT_EQ(Value(std::nan("")), Value(std::nan("")));
    EXPECT_NE(Value::date(1), Value::date(2));
}

TEST(Value, EqualsContainersElementByElement) {
    EXPECT_EQ(Value(Array{1, Array{"x"}}), Value(Array{1, Array{"x"}}));
    EXPECT_NE(Value(Array{1, Array{"x"}}), Value(Array{1, Array{"y"}}));
    EXPECT_NE(Value(Array{1}), Value(Array{1, 1}));
    EXPECT_NE(Value(Array()), Value(Dictionary()));
}

TEST(Value, IsFalseAfterAMove) {
    Value from("text");
    const Value to = std::move(from);
    EXPECT_EQ(text(to), "\"text\"");
    EXPECT_EQ(text(from), "false");
}

TEST(Value, MayBeAssignedItsOwnElement) {
    Value value = Array{Array{"inner"}, 2};
    value = value.array()[0];
    EXPECT_EQ(text(value), "[\"inner\"]");
}

TEST(Value, MayBeAssignedItself) {
    Value value = Array{1};
    Value& same = value;
    value = same;
    EXPECT_EQ(text(value), "[1]");
    value = std::move(same);
    EXPECT_EQ(text(value), "[1]");
}

TEST(Value, IsFreedHoweverDeepItIs) {
    Value value = nested(deep);
    value = false;
    EXPECT_EQ(text(value), "false");
}

TEST(Value, IsComparedHoweverDeepItIs) {
    EXPECT_EQ(nested(deep), nested(deep));
    EXPECT_NE(nested(deep), nested(deep + 2));
}

TEST(Value, MayBeCopiedAndDroppedByManyThreads) {
    const Value shared = Dictionary{{"name", "Ada"}, {"apps", Array{"one", "two"}}};
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([copy = shared]() mutable {
            for (int round = 0; round < 10'000; ++round) {
                MutableDictionary changed(copy.dictionary());
                changed.set("round", round);
                const Value inner = *changed.copy().find("apps");
                copy = Value(copy);
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(text(shared), "{\"name\": \"Ada\", \"apps\": [\"one\", \"two\"]}");
}

TEST(Value, OutlivesItsContainer) {
    Value record = false;
    {
        const Value document = Dictionary{{"accounts", Array{Dictionary{{"name", "Ada"}}}}};
        record = document.dictionary().find("accounts")->array()[0];
    }
    EXPECT_EQ(text(record), "{\"name\": \"Ada\"}");
}

} // namespace
} // namespace platform
