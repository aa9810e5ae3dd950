#include "platform/base/Translation.h"

#include <gtest/gtest.h>

namespace platform::test {

class TranslatedTexts : public ::testing::Test {
protected:
    ~TranslatedTexts() override { setTranslator(nullptr); }
};

TEST_F(TranslatedTexts, LeavesTextsInEnglishWithoutATranslator) {
    EXPECT_TRUE(speaksEnglish());
    EXPECT_EQ(translated("Notice", "Undo"), "Undo");
}

TEST_F(TranslatedTexts, AsksTheTranslatorForTheTextInItsContext) {
    setTranslator(
        [](const char* context, const char* english) { return context + std::string("/") + english; });
    EXPECT_FALSE(speaksEnglish());
    EXPECT_EQ(translated("Notice", "Undo"), "Notice/Undo");
}

TEST_F(TranslatedTexts, LeavesATextInEnglishThatTheTranslatorDoesNotKnow) {
    setTranslator([](const char*, const char*) { return std::string(); });
    EXPECT_EQ(translated("Notice", "Undo"), "Undo");
}

TEST_F(TranslatedTexts, AllowsATranslatorToReplaceItself) {
    setTranslator([](const char*, const char*) {
        setTranslator(nullptr);
        return std::string("Last");
    });
    EXPECT_EQ(translated("Notice", "Undo"), "Last");
    EXPECT_EQ(translated("Notice", "Undo"), "Undo");
}

TEST(FilledIn, PutsArgumentsInTheirPlacesInAnyOrder) {
    EXPECT_EQ(filledIn("%2 of %1.", {"ten", "two"}), "two of ten.");
}

TEST(FilledIn, LeavesWhatLooksLikeAPlaceInAnArgument) {
    EXPECT_EQ(filledIn("%1 and %2", {"%2", "%1"}), "%2 and %1");
}

TEST(FilledIn, LeavesPercentSignsThatAreNotPlaces) {
    EXPECT_EQ(filledIn("100% of %0, %3 and %", {"one", "two"}), "100% of %0, %3 and %");
}

} // namespace platform::test
