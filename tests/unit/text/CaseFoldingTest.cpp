#include "platform/text/CaseFolding.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <map>
#include <memory>
#include <string>

namespace platform {
namespace {

/// Another maker's Unicode data, for each character that Python knows. It is the full folding where that is
/// one character, else the lower case where that is one character. The standard calls this the simple
/// folding. The version comes first. Three pairs were made equal by 15.1 and so may be missing there.
constexpr const char* foldingsOfPython = R"(python3 -c '
import unicodedata
def simple(c):
    for form in (c.casefold(), c.lower()):
        if len(form) == 1: return form
    return c
for code in range(0x110000):
    c = chr(code)
    if not 0xD800 <= code < 0xE000 and unicodedata.category(c) != "Cn":
        print(code, ord(simple(c)))
')";

std::map<char32_t, char32_t> referenceFoldings() {
    std::map<char32_t, char32_t> foldings;
    std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(foldingsOfPython, "r"), &pclose);
    unsigned code = 0;
    unsigned fold = 0;
    while (pipe && std::fscanf(pipe.get(), "%u %u", &code, &fold) == 2)
        foldings[code] = fold;
    return foldings;
}

std::string folded(std::string_view text) {
    std::string folded;
    appendCaseFolded(text, folded);
    return folded;
}

TEST(CaseFolding, AgreesWithAnotherSourceOnEveryCharacterThatSourceKnows) {
    const std::map<char32_t, char32_t> reference = referenceFoldings();
    ASSERT_GT(reference.size(), 200000u) << "python3 is needed for this test";
    const std::map<char32_t, char32_t> since15_1{{0x1FD3, 0x390}, {0x1FE3, 0x3B0}, {0xFB05, 0xFB06}};
    for (const auto& [code, fold] : reference) {
        const auto newer = since15_1.find(code);
        EXPECT_EQ(simpleCaseFolding(code), newer == since15_1.end() ? fold : newer->second)
            << "U+" << std::hex << static_cast<std::uint32_t>(code);
    }
}

TEST(CaseFolding, LeavesEveryFoldedCharacterAsItIs) {
    for (char32_t code = 0; code <= 0x10FFFF; ++code)
        EXPECT_EQ(simpleCaseFolding(simpleCaseFolding(code)), simpleCaseFolding(code));
}

TEST(CaseFolding, FindsNamesEqualThatDifferInCaseOnly) {
    EXPECT_EQ(folded("WARDLOCK"), folded("wardlock"));
    EXPECT_EQ(folded("ÅÄÖ"), folded("åäö"));
    EXPECT_EQ(folded("ΣΊΣΥΦΟΣ"), folded("σίσυφος"));
    EXPECT_EQ(folded("ПРИВЕТ"), folded("привет"));
    EXPECT_EQ(folded("𐐀"), folded("𐐨"));
}

TEST(CaseFolding, FoldsOneCharacterToOne) {
    EXPECT_NE(folded("straße"), folded("STRASSE"));
    EXPECT_EQ(folded("STRAẞE"), folded("straße"));
    EXPECT_NE(folded("İ"), folded("i"));
}

TEST(CaseFolding, OrdersByCharacterOtherwise) {
    EXPECT_LT(folded("apple"), folded("Banana"));
    EXPECT_GT(folded("zebra"), folded("Apple"));
    EXPECT_LT(folded("Note"), folded("Notebook"));
    EXPECT_LT(folded("zebra"), folded("Äpfel"));
    EXPECT_LT(folded(""), folded("a"));
}

TEST(CaseFolding, LeavesBytesThatAreNotUtf8AsTheyAre) {
    for (const std::string_view broken :
         {"\xff", "a\xc3", "\xed\xa0\x80", "\xc0\xaf", "\xf4\x90\x80\x80", "\x80"})
        EXPECT_EQ(folded(broken), broken);
    EXPECT_EQ(folded("A\xff"), folded("a\xff"));
    EXPECT_NE(folded("a\xfe"), folded("a\xff"));
}

} // namespace
} // namespace platform
