#include "shell/screen/Row.h"

#include <gtest/gtest.h>

#include <limits>

using platform::PSCellType;
using platform::PSSpecifier;
using platform::Value;
using namespace wardlock::shell;

namespace {

std::shared_ptr<PSSpecifier> specifierOf(PSCellType cell) {
    return PSSpecifier::preferenceSpecifierNamed("Row", nullptr, {}, {}, nullptr, cell, nullptr);
}

Row sliderAt(const std::optional<Value>& value) {
    const auto slider = specifierOf(PSCellType::Slider);
    slider->setProperty(Value(-1.0), platform::PSKey::min);
    slider->setProperty(Value(1.0), platform::PSKey::max);
    return rowFor(*slider, value);
}

} // namespace

TEST(Row, ShowsTextAndNumbersInATextField) {
    EXPECT_EQ(fieldText(Value("text")), "text");
    EXPECT_EQ(fieldText(Value(-12)), "-12");
    EXPECT_EQ(fieldText(Value(std::numeric_limits<std::uint64_t>::max())), "18446744073709551615");
    EXPECT_EQ(fieldText(Value(0.1)), "0.1");
    EXPECT_EQ(fieldText(Value(platform::Dictionary())), "");
}

TEST(Row, ReadsASwitchAsThePlatformReadsNumbersAndStrings) {
    const auto toggle = specifierOf(PSCellType::Switch);
    EXPECT_TRUE(rowFor(*toggle, Value("YES")).isOn());
    EXPECT_TRUE(rowFor(*toggle, Value(2)).isOn());
    EXPECT_FALSE(rowFor(*toggle, Value(platform::Array())).isOn());
    EXPECT_FALSE(rowFor(*toggle, std::nullopt).isOn());
}

TEST(Row, LimitsASlidersPositionToItsRange) {
    EXPECT_EQ(sliderAt(Value(0.5)).position(), 0.5);
    EXPECT_EQ(sliderAt(Value(7.0)).position(), 1);
    EXPECT_EQ(sliderAt(Value(-7.0)).position(), -1);
    EXPECT_EQ(sliderAt(std::nullopt).position(), 0);
    EXPECT_EQ(sliderAt(Value(std::numeric_limits<double>::quiet_NaN())).position(), -1);
}

TEST(Row, ShowsNothingForAValueThatIsNotAChoice) {
    const auto list = specifierOf(PSCellType::LinkList);
    list->setValues({Value("a"), Value("b")}, {"First", "Second"}, {"1st"});
    EXPECT_EQ(rowFor(*list, Value("a")).text, "1st");
    EXPECT_EQ(rowFor(*list, Value("b")).text, "") << "it has no short title";
    EXPECT_EQ(rowFor(*list, Value("c")).text, "");
}

TEST(Row, HidesSecureTextCharacterByCharacter) {
    EXPECT_EQ(shownText(RowKind::SecureEditText, "aé中"), "•••");
    EXPECT_EQ(shownText(RowKind::EditText, "aé中"), "aé中");
}
