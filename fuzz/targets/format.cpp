// The formatter, on any format and any arguments. It ends, and its text is bounded. The text is valid UTF-8
// where its input is. A single conversion of a number prints what the C library's prints.

#include "platform/text/Format.h"

#include "fuzz/Check.h"
#include "fuzz/Plan.h"
#include "fuzz/PlannedValue.h"
#include "platform/base/Utf8.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace {

using platform::FormatArgument;
using platform::Value;
using wardlock::fuzz::check;
using wardlock::fuzz::Plan;

constexpr std::size_t argumentCount = 5;

/// Arguments of any kind, and the objects that they refer to.
class Arguments {
public:
    explicit Arguments(Plan& plan) : values_{value(plan), value(plan)}, text_(plan.bytes()) {
        for (FormatArgument& argument : all_)
            argument = argumentOf(plan);
    }

    std::string print(std::string_view format) const {
        return platform::formatString(format, {all_[0], all_[1], all_[2], all_[3], all_[4]});
    }
    bool isUtf8() const { return platform::isValidUtf8(text_) && isUtf8(values_[0]) && isUtf8(values_[1]); }

private:
    static Value value(Plan& plan) { return wardlock::fuzz::plannedValue(plan); }
    static bool isUtf8(const Value& value) { return platform::isValidUtf8(platform::description(value)); }

    FormatArgument argumentOf(Plan& plan) {
        switch (plan.below(8)) {
        case 0:
            return plan.number<std::int64_t>();
        case 1:
            return plan.number<std::uint32_t>();
        case 2:
            return plan.number<short>();
        case 3:
            return plan.number<double>();
        case 4:
            return std::string_view(text_);
        case 5:
            return &values_[0];
        case 6:
            return values_[1];
        default:
            return nullptr;
        }
    }

    std::array<Value, 2> values_;
    std::string text_;
    std::array<FormatArgument, argumentCount> all_{nullptr, nullptr, nullptr, nullptr, nullptr};
};

void printAnything(Plan& plan) {
    const Arguments arguments(plan);
    const std::string format(plan.rest());
    const std::string text = arguments.print(format);
    // A conversion takes two characters, and no description here is longer than its bound by much.
    constexpr std::size_t mostEach = 200'000;
    check(text.size() <= format.size() * mostEach, "the text is bounded");
    if (platform::isValidUtf8(format) && arguments.isUtf8())
        check(platform::isValidUtf8(text), "valid UTF-8 stays valid UTF-8");
}

template <class Argument, class Passed>
void compare(const std::string& start, const char* length, char letter, Argument argument, Passed passed) {
    const std::string format = start + length + letter;
    std::array<char, 2048> expected{};
    const int size = std::snprintf(expected.data(), expected.size(), format.c_str(), passed);
    if (size < 0 || static_cast<std::size_t>(size) >= expected.size())
        return;
    const std::string text = platform::stringWithFormat(start + letter, argument);
    if (text == std::string(expected.data(), static_cast<std::size_t>(size)))
        return;
    std::fprintf(stderr, "\"%s\": \"%s\" instead of \"%s\"\n", format.c_str(), text.c_str(), expected.data());
    check(false, "a conversion prints as the C library does");
}

/// Returns "%-08.3" of "%-08.3f".
std::string conversionStart(Plan& plan) {
    std::string start = "%";
    for (const char flag : {'-', '0', '#', '+', ' '})
        if (plan.yes())
            start += flag;
    if (plan.yes())
        start += std::to_string(1 + plan.below(200));
    if (plan.yes())
        start += '.' + std::to_string(plan.below(200));
    return start;
}

void printOneNumber(Plan& plan) {
    const std::string start = conversionStart(plan);
    switch (plan.below(4)) {
    case 0: {
        const auto number = plan.number<long long>();
        return compare(start, "ll", plan.choice(std::string_view("di")), number, number);
    }
    case 1: {
        const auto number = plan.number<unsigned long long>();
        return compare(start, "ll", plan.choice(std::string_view("uoxX")), number, number);
    }
    case 2: {
        const auto number = plan.number<int>();
        return compare(start, "", plan.choice(std::string_view("dioxXu")), number, number);
    }
    default: {
        const auto any = plan.number<double>();
        // Not-a-number has no sign here, unlike in the C library.
        const double number = std::isnan(any) ? std::abs(any) : any;
        return compare(start, "", plan.choice(std::string_view("fFeEgG")), number, number);
    }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Plan plan({reinterpret_cast<const char*>(data), size});
    if (plan.yes())
        printOneNumber(plan);
    else
        printAnything(plan);
    return 0;
}
