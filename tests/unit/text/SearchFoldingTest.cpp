#include "platform/text/SearchFolding.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

bool finds(std::string_view typed, std::string_view text) {
    return SearchWords(typed).allIn(searchFolded(text));
}

TEST(SearchFolding, IgnoresCaseAndAccents) {
    EXPECT_EQ(searchFolded("H\u00dcte & M\u00fctzen"), "hute & mutzen");
    EXPECT_EQ(searchFolded("\u00c9l\u00e8ve"), "eleve");
    EXPECT_EQ(searchFolded("\u0130stanbul"), "istanbul");
    EXPECT_EQ(searchFolded("Vi\u1ec7t Nam"), "viet nam");
    EXPECT_EQ(searchFolded("\u0386\u03bb\u03c6\u03b1"), "\u03b1\u03bb\u03c6\u03b1");
    EXPECT_EQ(searchFolded("\u0401\u0436"), "\u0435\u0436");
}

TEST(SearchFolding, IgnoresAccentsThatAreCharactersOfTheirOwn) {
    EXPECT_EQ(searchFolded("Hu\u0308te"), searchFolded("H\u00fcte"));
    EXPECT_EQ(searchFolded("\u0308"), "");
}

TEST(SearchFolding, WritesALetterThatIsTypedAsTwoWithBoth) {
    EXPECT_EQ(searchFolded("Stra\u00dfe"), "strasse");
    EXPECT_EQ(searchFolded("STRA\u1e9eE"), "strasse");
    EXPECT_EQ(searchFolded("\u00c6r\u00f8"), "aero");
    EXPECT_EQ(searchFolded("\u0141\u00f3d\u017a"), "lodz");
}

TEST(SearchFolding, FoldsSuchALetterWithAnAccentAsThatLetterAndTheAccent) {
    EXPECT_EQ(searchFolded("\u01ff \u01fd \u01e3 \u01fe"), "o ae ae o");
    EXPECT_EQ(searchFolded("\u00f8\u0301 \u00e6\u0301 \u00e6\u0304 \u00d8\u0301"), "o ae ae o");
}

TEST(SearchFolding, KeepsTheSignsOfOtherScripts) {
    EXPECT_EQ(searchFolded("\u304c"), "\u304c");
    EXPECT_EQ(searchFolded("\u0939\u093f\u0928\u094d\u0926\u0940"), "\u0939\u093f\u0928\u094d\u0926\u0940");
    EXPECT_EQ(searchFolded("\ud55c\uae00"), "\ud55c\uae00");
    EXPECT_EQ(searchFolded("\u2260"), "\u2260");
}

TEST(SearchFolding, KeepsBytesThatAreNotUtf8) {
    EXPECT_EQ(searchFolded("A\xff\xc3"), "a\xff\xc3");
}

TEST(SearchWords, FindEveryWordInAnyOrder) {
    EXPECT_TRUE(finds("hute", "H\u00fcte & M\u00fctzen"));
    EXPECT_TRUE(finds("  M\u00dcTZEN hut ", "H\u00fcte & M\u00fctzen"));
    EXPECT_FALSE(finds("hute schuhe", "H\u00fcte & M\u00fctzen"));
    EXPECT_FALSE(finds("tables", "Hat"));
}

TEST(SearchWords, FindOneOfTheWordsWhereThatIsEnough) {
    EXPECT_TRUE(SearchWords("siri tom").anyIn("siri"));
    EXPECT_FALSE(SearchWords("siri tom").anyIn("camera"));
}

TEST(SearchWords, AreEmptyWhenNothingButBlanksAndAccentsWasTyped) {
    EXPECT_TRUE(SearchWords("").empty());
    EXPECT_TRUE(SearchWords(" \t\u0308 ").empty());
    EXPECT_FALSE(SearchWords(" a").empty());
}

} // namespace
} // namespace platform
