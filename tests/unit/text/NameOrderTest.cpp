#include "platform/text/NameOrder.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace platform {
namespace {

using Names = std::vector<std::optional<std::string>>;

Names sorted(const Names& names, NameOrder::Comparison comparison = NameOrder::Comparison::CaseInsensitive) {
    NameOrder order(comparison, names.size());
    for (const auto& name : names)
        order.add(name);
    Names result;
    for (const std::uint32_t position : order.sorted())
        result.push_back(names[position]);
    return result;
}

TEST(NameOrder, PutsLowerCaseNamesAmongTheUpperCaseOnes) {
    EXPECT_EQ(sorted({"Zoo", "banana", "Cherry", "apple"}), (Names{"apple", "banana", "Cherry", "Zoo"}));
}

TEST(NameOrder, PutsMissingNamesAfterAllOthersEvenEmptyOnes) {
    EXPECT_EQ(sorted({std::nullopt, "b", "", std::nullopt, "\xff"}),
              (Names{"", "b", "\xff", std::nullopt, std::nullopt}));
}

TEST(NameOrder, KeepsEqualNamesInTheOrderTheyCameIn) {
    EXPECT_EQ(sorted({"note", "NOTE", "Note", "nOTE"}), (Names{"note", "NOTE", "Note", "nOTE"}));
}

TEST(NameOrder, LooksBeyondTheFirstBytesOfAName) {
    EXPECT_EQ(sorted({"Wardlock 10", "wardlock", "Wardlock 1", "WARDLOCK 02"}),
              (Names{"wardlock", "WARDLOCK 02", "Wardlock 1", "Wardlock 10"}));
}

TEST(NameOrder, TellsNamesApartThatDifferInANullCharacter) {
    const std::string longer("a\0b", 3);
    EXPECT_EQ(sorted({longer, "a"}), (Names{"a", longer}));
    EXPECT_EQ(sorted({longer, "a"}, NameOrder::Comparison::LocalizedCaseInsensitive), (Names{"a", longer}));
}

TEST(NameOrder, LocalizedIgnoresCaseToo) {
    EXPECT_EQ(sorted({"Zoo", "banana", std::nullopt, "Cherry", "apple", "APPLE"},
                     NameOrder::Comparison::LocalizedCaseInsensitive),
              (Names{"apple", "APPLE", "banana", "Cherry", "Zoo", std::nullopt}));
}

} // namespace
} // namespace platform
