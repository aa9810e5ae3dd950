#include "tests/support/SampleUserInfo.h"

#include "platform/plist/PropertyListBounds.h"
#include "platform/values/MutableDictionary.h"

#include <cstdint>
#include <limits>
#include <string>

namespace wardlock::test {

namespace {

using platform::Array;
using platform::deepestPropertyList;
using platform::Dictionary;
using platform::MutableDictionary;
using platform::Value;
using namespace std::string_view_literals;

Dictionary kinds() {
    using Real = std::numeric_limits<double>;
    return {{"zebra", true},
            {"ape", false},
            {"integers", Array{0, 1, -1, std::numeric_limits<std::int64_t>::min(),
                               std::numeric_limits<std::int64_t>::max(), std::uint64_t{1} << 63,
                               std::numeric_limits<std::uint64_t>::max()}},
            {"reals", Array{0.0, -0.0, 0.1, 1.0, Real::max(), Real::denorm_min(), Real::infinity(),
                            -Real::infinity(), Real::quiet_NaN()}},
            {"strings", Array{"", "ä€\U0001F600", "\x01\x1f\x7f", "YES"}},
            {"data", Array{Value::data(""), Value::data("\0\xff\x80"sv)}},
            {"dates", Array{Value::date(0), Value::date(-1.5), Value::date(694224000.123456)}},
            {"", Array{}},
            {"empty", Dictionary{}}};
}

Dictionary odd() {
    const Dictionary inner{
        {"zero\0byte"sv, "a\0b"sv}, {"\xff", Value::date(0.25)}, {"plain", Array{Dictionary{}, Array{}}}};
    return {{"string", "zero\0byte"sv},
            {"not UTF-8", Array{"\xc0\x80", "\xed\xa0\x80", "\xf4\x90\x80\x80", "\xe2\x82"}},
            {"inner", inner},
            {"around", Array{inner, Array{inner}}}};
}

Value nested(int levels) {
    Value value = "inside";
    for (int level = levels; level > 0; --level) {
        if (level % 2 == 0)
            value = Array{level, value, Value::date(level + 0.5), Array{}};
        else
            value = Dictionary{{"level", level}, {"inner", value}, {"\xff", -0.0}, {"empty", Dictionary{}}};
    }
    return value;
}

Value arraysInOneAnother(std::size_t levels) {
    Value value = "inside";
    for (std::size_t level = 0; level < levels; ++level)
        value = Array{value};
    return value;
}

Dictionary wide() {
    MutableDictionary dictionary;
    for (int i = 0; i < 2'000; ++i)
        dictionary.set("key " + std::to_string(i * 7919 % 2'000), i);
    return dictionary.copy();
}

} // namespace

Dictionary sampleUserInfo(std::string_view name) {
    if (name == "change")
        return {{"key", "kRestrictSiri"}, {"object", true}};
    if (name == "kinds")
        return kinds();
    if (name == "odd")
        return odd();
    if (name == "deep")
        return {{"key", "deep"}, {"object", nested(120)}};
    if (name == "deepest")
        return {{"key", "deepest"}, {"object", arraysInOneAnother(deepestPropertyList - 1)}};
    if (name == "too-deep")
        return {{"key", "too deep"}, {"object", arraysInOneAnother(deepestPropertyList)}};
    if (name == "far-too-deep")
        return {{"key", "far too deep"}, {"object", arraysInOneAnother(1'000'000)}};
    if (name == "wide")
        return wide();
    if (name == "large")
        return {{"object", Value::data(std::string(8'000'000, 'x'))}};
    if (name == "too-large")
        // NOLINTNEXTLINE(bugprone-string-constructor): too large is what it is to be
        return {{"object", Value::data(std::string(40'000'000, 'x'))}};
    return {{"sample", name}};
}

} // namespace wardlock::test
