#include "platform/text/Collation.h"

#include "tests/support/EnglishLocale.h"

#include <gtest/gtest.h>

#include <clocale>

namespace platform {
namespace {

std::string key(std::string_view text) {
    std::string key;
    appendLocalizedKey(text, key);
    return key;
}

class LocalizedOrder : public ::testing::Test {
protected:
    void speak(const char* locale) { environment.set("LC_ALL", locale); }

    wardlock::test::Environment environment;
};

TEST_F(LocalizedOrder, IgnoresLetterCase) {
    speak("C");
    EXPECT_EQ(key("Mail"), key("mAIL"));
    EXPECT_LT(key("mail"), key("Notes"));
    EXPECT_GT(key("notes"), key("MAIL"));
}

TEST_F(LocalizedOrder, FollowsTheUsersLanguageWhateverTheProgramsLocale) {
    const wardlock::test::EnglishLocale english(environment);
    ASSERT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
    EXPECT_LT(key("Äpfel"), key("Zebra"));
    EXPECT_EQ(key("ÄPFEL"), key("äpfel"));
}

TEST_F(LocalizedOrder, FallsBackWhereTheLanguageIsNotInstalled) {
    speak("xx_YY.UTF-8");
    EXPECT_EQ(key("Mail"), key("mAIL"));
    EXPECT_LT(key("mail"), key("Notes"));
}

TEST_F(LocalizedOrder, AcceptsAnyBytes) {
    speak("C.UTF-8");
    EXPECT_NE(key("a\xff"), key("a\xfe"));
    EXPECT_EQ(key("\xc3"), key("\xc3"));
    EXPECT_LT(key(""), key(std::string_view("\0", 1)));
}

} // namespace
} // namespace platform
