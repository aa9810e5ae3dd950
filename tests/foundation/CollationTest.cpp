#include "platform/foundation/Collation.h"

#include "tests/support/EnglishLocale.h"

#include <gtest/gtest.h>

#include <clocale>

namespace platform {
namespace {

class LocalizedOrder : public ::testing::Test {
protected:
    void speak(const char* locale) { environment.set("LC_ALL", locale); }

    wardlock::test::Environment environment;
};

TEST_F(LocalizedOrder, IgnoresLetterCase) {
    speak("C");
    EXPECT_EQ(localizedCaseInsensitiveCompare("Mail", "mAIL"), 0);
    EXPECT_LT(localizedCaseInsensitiveCompare("mail", "Notes"), 0);
    EXPECT_GT(localizedCaseInsensitiveCompare("notes", "MAIL"), 0);
}

TEST_F(LocalizedOrder, FollowsTheUsersLanguageWhateverTheProgramsLocale) {
    const wardlock::test::EnglishLocale english(environment);
    ASSERT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
    EXPECT_LT(localizedCaseInsensitiveCompare("Äpfel", "Zebra"), 0);
    EXPECT_EQ(localizedCaseInsensitiveCompare("ÄPFEL", "äpfel"), 0);
}

TEST_F(LocalizedOrder, FallsBackWhereTheLanguageIsNotInstalled) {
    speak("xx_YY.UTF-8");
    EXPECT_EQ(localizedCaseInsensitiveCompare("Mail", "mAIL"), 0);
    EXPECT_LT(localizedCaseInsensitiveCompare("mail", "Notes"), 0);
}

TEST_F(LocalizedOrder, TakesAnyBytes) {
    speak("C.UTF-8");
    EXPECT_NE(localizedCaseInsensitiveCompare("a\xff", "a\xfe"), 0);
    EXPECT_EQ(localizedCaseInsensitiveCompare("\xc3", "\xc3"), 0);
    EXPECT_LT(localizedCaseInsensitiveCompare("", std::string_view("\0", 1)), 0);
}

} // namespace
} // namespace platform
