#include "cli/io/Arguments.h"

#include "cli/io/CommandError.h"

#include <gtest/gtest.h>

#include <array>

namespace wardlock::cli {
namespace {

constexpr std::array options{Option{"--json", "", ""}, Option{"--sync", "MODE", ""}, Option{"-o", "OUT", ""}};

using Words = std::vector<std::string_view>;

Arguments parsed(const Words& words) {
    return Arguments(words, options);
}

ExitCode refusal(const Words& words) {
    try {
        parsed(words);
        return ExitCode::Done;
    } catch (const CommandError& error) {
        return error.code();
    }
}

TEST(Arguments, KeepsOperandsInOrderAmongOptions) {
    EXPECT_EQ(parsed({"a", "--json", "b", "-o", "x", "c"}).operands(), (Words{"a", "b", "c"}));
}

TEST(Arguments, KnowsWhichOptionsWereGiven) {
    const Arguments arguments = parsed({"--json"});
    EXPECT_TRUE(arguments.has("--json"));
    EXPECT_FALSE(arguments.has("--sync"));
    EXPECT_EQ(arguments.value("--sync"), std::nullopt);
}

TEST(Arguments, AcceptsAValueAfterASpaceOrAnEqualsSign) {
    EXPECT_EQ(parsed({"--sync", "none"}).value("--sync"), "none");
    EXPECT_EQ(parsed({"--sync=data"}).value("--sync"), "data");
    EXPECT_EQ(parsed({"--sync="}).value("--sync"), "");
}

TEST(Arguments, KeepsTheLastOfARepeatedOption) {
    EXPECT_EQ(parsed({"--sync", "none", "--sync", "full"}).value("--sync"), "full");
}

TEST(Arguments, TreatsANegativeNumberAsAnOperand) {
    EXPECT_EQ(parsed({"-12", "-.5", "-inf", "-"}).operands(), (Words{"-12", "-.5", "-inf", "-"}));
}

TEST(Arguments, TreatsEverythingAfterADoubleDashAsOperands) {
    EXPECT_EQ(parsed({"--", "--json", "--", "-x"}).operands(), (Words{"--json", "--", "-x"}));
}

TEST(Arguments, TreatsAnEmptyWordAsAnOperand) {
    EXPECT_EQ(parsed({""}).operands(), (Words{""}));
}

TEST(Arguments, RefusesAnUnknownOption) {
    EXPECT_EQ(refusal({"--jsn"}), ExitCode::WrongUsage);
    EXPECT_EQ(refusal({"-j"}), ExitCode::WrongUsage);
}

TEST(Arguments, RefusesAnOptionWithoutItsValue) {
    EXPECT_EQ(refusal({"--sync"}), ExitCode::WrongUsage);
}

TEST(Arguments, RefusesAValueOfAnOptionWithoutOne) {
    EXPECT_EQ(refusal({"--json=1"}), ExitCode::WrongUsage);
}

} // namespace
} // namespace wardlock::cli
