#include "platform/text/NameCollator.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace platform {
namespace {

using Names = std::vector<std::optional<std::string>>;

Names sorted(const Names& names,
             NameCollator::Comparison comparison = NameCollator::Comparison::CaseInsensitive) {
    NameCollator order(comparison, names.size());
    for (const auto& name : names)
        order.add(name);
    Names result;
    for (const std::uint32_t position : order.sorted())
        result.push_back(names[position]);
    return result;
}

TEST(NameCollator, PutsLowerCaseNamesAmongTheUpperCaseOnes) {
    EXPECT_EQ(sorted({"Zoo", "banana", "Cherry", "apple"}), (Names{"apple", "banana", "Cherry", "Zoo"}));
}

TEST(NameCollator, PutsMissingNamesAfterAllOthersEvenEmptyOnes) {
    EXPECT_EQ(sorted({std::nullopt, "b", "", std::nullopt, "\xff"}),
              (Names{"", "b", "\xff", std::nullopt, std::nullopt}));
}

TEST(NameCollator, KeepsTheOrderOfEqualNames) {
    EXPECT_EQ(sorted({"note", "NOTE", "Note", "nOTE"}), (Names{"note", "NOTE", "Note", "nOTE"}));
}

TEST(NameCollator, LooksBeyondTheFirstBytesOfAName) {
    EXPECT_EQ(sorted({"Wardlock 10", "wardlock", "Wardlock 1", "WARDLOCK 02"}),
              (Names{"wardlock", "WARDLOCK 02", "Wardlock 1", "Wardlock 10"}));
}

TEST(NameCollator, DistinguishesNamesThatDifferInANullCharacter) {
    const std::string longer("a\0b", 3);
    EXPECT_EQ(sorted({longer, "a"}), (Names{"a", longer}));
    EXPECT_EQ(sorted({longer, "a"}, NameCollator::Comparison::LocalizedCaseInsensitive),
              (Names{"a", longer}));
}

TEST(NameCollator, IgnoresCaseInTheLocalizedOrder) {
    EXPECT_EQ(sorted({"Zoo", "banana", std::nullopt, "Cherry", "apple", "APPLE"},
                     NameCollator::Comparison::LocalizedCaseInsensitive),
              (Names{"apple", "APPLE", "banana", "Cherry", "Zoo", std::nullopt}));
}

} // namespace
} // namespace platform
