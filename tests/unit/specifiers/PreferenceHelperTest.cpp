#include "specifiers/PreferenceHelper.h"

#include "platform/preferences/PSListItemsController.h"
#include "platform/values/NSException.h"
#include "settings/ExceptionReport.h"

#include <gtest/gtest.h>

namespace wardlock {
namespace {

using platform::NSGetUncaughtExceptionHandler;
using platform::PSCellType;
using platform::PSSpecifier;
using platform::Value;

class Page : public platform::Object {
public:
    std::optional<Value> read(PSSpecifier&) { return Value("read"); }
    std::optional<Value> readOther(PSSpecifier&) { return Value("other"); }
    void store(const Value*, PSSpecifier&) { ++stored; }
    void storeOther(const Value*, PSSpecifier&) { ++storedOther; }
    void act() { ++acted; }

    int stored = 0;
    int storedOther = 0;
    int acted = 0;
};

constexpr auto store = PSSpecifier::SetAction::of<&Page::store>("store:specifier:");
constexpr auto storeOther = PSSpecifier::SetAction::of<&Page::storeOther>("storeOther:specifier:");
constexpr auto read = PSSpecifier::GetAction::of<&Page::read>("read:");
constexpr auto readOther = PSSpecifier::GetAction::of<&Page::readOther>("readOther:");
constexpr auto act = PSSpecifier::ButtonAction::of<&Page::act>("act");
const platform::Class pageClass("Page", nullptr);

class SpecifierFactory : public testing::Test {
protected:
    /// What every row of the factory has in common.
    void expectRow(const PSSpecifier& row, const std::string& name, PSCellType cell) const {
        EXPECT_EQ(row.name(), name);
        EXPECT_EQ(row.cellType(), cell);
        EXPECT_EQ(row.editPaneClass(), nullptr);
    }
    void expectBound(const PSSpecifier& row) const {
        EXPECT_EQ(row.target(), page);
        EXPECT_EQ(row.setAction(), store);
        EXPECT_EQ(row.getAction(), read);
    }
    void expectUnbound(const PSSpecifier& row) const {
        EXPECT_EQ(row.target(), page);
        EXPECT_FALSE(row.setAction());
        EXPECT_FALSE(row.getAction());
    }

    std::shared_ptr<Page> page = std::make_shared<Page>();
    std::shared_ptr<PreferenceHelper> helper = PreferenceHelper::initWithTarget(page, store, read);
};

TEST(BundlePreferenceHelper, IsItsOwnTargetWithItsOwnAccessors) {
    const auto helper = PreferenceHelper::initWithBundleIdentifier("com.tavix.wardlock", "update");
    EXPECT_EQ(helper->target(), helper);
    EXPECT_EQ(helper->setAction().name(), "setValue:specifier:");
    EXPECT_EQ(helper->getAction().name(), "getValue:");
    EXPECT_EQ(helper->setAction(),
              PSSpecifier::SetAction::of<&PreferenceHelper::setValue>("setValue:specifier:"));
    EXPECT_EQ(helper->getAction(), PSSpecifier::GetAction::of<&PreferenceHelper::getValue>("getValue:"));
    EXPECT_EQ(helper->identifier(), "com.tavix.wardlock");
    EXPECT_EQ(helper->post(), "update");
}

TEST(BundlePreferenceHelper, InstallsTheExceptionReport) {
    ASSERT_EQ(NSGetUncaughtExceptionHandler(), nullptr);
    PreferenceHelper::initWithBundleIdentifier("com.tavix.wardlock", "update");
    EXPECT_EQ(NSGetUncaughtExceptionHandler(), &TweakExceptionHandler);
}

TEST(BundlePreferenceHelper, InstallsTheExceptionReportEachTime) {
    PreferenceHelper::initWithBundleIdentifier("com.tavix.wardlock", "update");
    platform::NSSetUncaughtExceptionHandler(nullptr);
    PreferenceHelper::initWithBundleIdentifier("com.tavix.wardlock", "update");
    EXPECT_EQ(NSGetUncaughtExceptionHandler(), &TweakExceptionHandler);
}

TEST(BundlePreferenceHelper, IsNotKeptAliveByItself) {
    const std::weak_ptr<PreferenceHelper> helper =
        PreferenceHelper::initWithBundleIdentifier("com.tavix.wardlock", "update");
    EXPECT_TRUE(helper.expired());
}

TEST_F(SpecifierFactory, HasNoIdentifierNoPostAndNoExceptionReportForATarget) {
    EXPECT_EQ(helper->target(), page);
    EXPECT_EQ(helper->setAction(), store);
    EXPECT_EQ(helper->getAction(), read);
    EXPECT_EQ(helper->identifier(), "");
    EXPECT_EQ(helper->post(), "");
    EXPECT_EQ(NSGetUncaughtExceptionHandler(), nullptr);
}

TEST_F(SpecifierFactory, DoesNotRetainItsTarget) {
    const std::weak_ptr<Page> gone = page;
    page.reset();
    EXPECT_TRUE(gone.expired());
    EXPECT_EQ(helper->target(), nullptr);
}

TEST_F(SpecifierFactory, MakesRowsThatReadAndStoreNothingOnceTheTargetIsGone) {
    const auto toggle = helper->toggle("Siri", "kRestrictSiri");
    const auto button = helper->button("Delete", act);
    page.reset();
    const Value on(true);
    toggle->performSetter(&on);
    button->performButtonAction();
    EXPECT_FALSE(toggle->performGetter());
}

TEST_F(SpecifierFactory, HasPlainAccessors) {
    const auto other = std::make_shared<Page>();
    helper->setTarget(other);
    helper->setSetAction(storeOther);
    helper->setGetAction(readOther);
    helper->setIdentifier("com.example");
    helper->setPost("changed");
    EXPECT_EQ(helper->target(), other);
    EXPECT_EQ(helper->setAction(), storeOther);
    EXPECT_EQ(helper->getAction(), readOther);
    EXPECT_EQ(helper->identifier(), "com.example");
    EXPECT_EQ(helper->post(), "changed");
}

TEST_F(SpecifierFactory, AppliesItsChangesOnlyToLaterRows) {
    const auto before = helper->toggle("Siri", "kRestrictSiri");
    const auto other = std::make_shared<Page>();
    helper->setTarget(other);
    helper->setSetAction(storeOther);
    helper->setGetAction(readOther);
    const auto after = helper->toggle("Siri", "kRestrictSiri");
    expectBound(*before);
    EXPECT_EQ(after->target(), other);
    EXPECT_EQ(after->setAction(), storeOther);
    EXPECT_EQ(after->getAction(), readOther);
}

TEST_F(SpecifierFactory, MakesAButtonThatSendsItsActionToTheGivenTarget) {
    const auto other = std::make_shared<Page>();
    const auto row = helper->button("Delete Account", other, act);
    expectRow(*row, "Delete Account", PSCellType::Button);
    EXPECT_EQ(row->target(), other);
    EXPECT_FALSE(row->setAction());
    EXPECT_FALSE(row->getAction());
    EXPECT_EQ(row->detailControllerClass(), nullptr);
    EXPECT_EQ(row->buttonAction(), act);
    row->performButtonAction();
    EXPECT_EQ(other->acted, 1);
    EXPECT_EQ(page->acted, 0);
}

TEST_F(SpecifierFactory, MakesAButtonThatSendsItsActionToTheHelpersTarget) {
    const auto row = helper->button("Delete Account", act);
    expectRow(*row, "Delete Account", PSCellType::Button);
    expectUnbound(*row);
    row->performButtonAction();
    EXPECT_EQ(page->acted, 1);
}

TEST_F(SpecifierFactory, MakesALinkToTheGivenClass) {
    const auto row = helper->link("Apps", &pageClass);
    expectRow(*row, "Apps", PSCellType::Link);
    expectUnbound(*row);
    EXPECT_EQ(row->detailControllerClass(), &pageClass);
    EXPECT_EQ(row->identifier(), "");
}

TEST_F(SpecifierFactory, MakesALinkListWithItsTitlesAsShortTitles) {
    const auto row = helper->link("Position", "position", {"Top", "Bottom"}, {Value(1), Value(2)});
    expectRow(*row, "Position", PSCellType::LinkList);
    expectBound(*row);
    EXPECT_EQ(row->detailControllerClass(), &platform::PSListItemsController::theClass());
    EXPECT_EQ(row->identifier(), "position");
    EXPECT_EQ(row->values(), (std::vector<Value>{Value(1), Value(2)}));
    EXPECT_EQ(row->titles(), (std::vector<std::string>{"Top", "Bottom"}));
    EXPECT_EQ(row->shortTitles(), row->titles());
}

TEST_F(SpecifierFactory, MakesAToggleWithItsKeyInTheIdProperty) {
    const auto row = helper->toggle("Siri", "kRestrictSiri");
    expectRow(*row, "Siri", PSCellType::Switch);
    expectBound(*row);
    EXPECT_EQ(row->detailControllerClass(), nullptr);
    ASSERT_NE(row->valueForKey("id"), nullptr);
    EXPECT_EQ(*row->valueForKey("id"), Value("kRestrictSiri"));
    EXPECT_EQ(row->identifier(), "kRestrictSiri");
}

TEST_F(SpecifierFactory, MakesAToggleWithItsOwnAccessors) {
    const auto row = helper->toggle("Siri", "kRestrictSiri", storeOther, readOther);
    expectRow(*row, "Siri", PSCellType::Switch);
    EXPECT_EQ(row->target(), page);
    EXPECT_EQ(row->setAction(), storeOther);
    EXPECT_EQ(row->getAction(), readOther);
    EXPECT_EQ(*row->valueForKey("id"), Value("kRestrictSiri"));
    const Value on(true);
    row->performSetter(&on);
    EXPECT_EQ(page->storedOther, 1);
    EXPECT_EQ(page->stored, 0);
    EXPECT_EQ(row->performGetter(), Value("other"));
}

TEST_F(SpecifierFactory, MakesAHeaderAsAGroupOfThatName) {
    const auto row = helper->header("System");
    expectRow(*row, "System", PSCellType::Group);
    expectUnbound(*row);
    EXPECT_EQ(row->detailControllerClass(), nullptr);
    EXPECT_EQ(row->valueForKey("footerText"), nullptr);
}

TEST_F(SpecifierFactory, MakesAHeaderWithFooterAsAGroupOfThatNameAndFooterText) {
    const auto row = helper->header("Media", "Restart them.");
    expectRow(*row, "Media", PSCellType::Group);
    expectUnbound(*row);
    ASSERT_NE(row->valueForKey("footerText"), nullptr);
    EXPECT_EQ(*row->valueForKey("footerText"), Value("Restart them."));
}

TEST_F(SpecifierFactory, MakesAFooterAsAGroupOfTheEmptyNameWithFooterText) {
    const auto row = helper->footer("Restart them.");
    expectRow(*row, "", PSCellType::Group);
    expectUnbound(*row);
    ASSERT_NE(row->valueForKey("footerText"), nullptr);
    EXPECT_EQ(*row->valueForKey("footerText"), Value("Restart them."));
}

TEST_F(SpecifierFactory, MakesASpacerAsAGroupOfTheEmptyNameWithoutFooterText) {
    const auto row = helper->spacer();
    expectRow(*row, "", PSCellType::Group);
    expectUnbound(*row);
    EXPECT_EQ(row->valueForKey("footerText"), nullptr);
    EXPECT_TRUE(std::holds_alternative<std::monostate>(row->propertyForKey("footerText")));
}

TEST_F(SpecifierFactory, MakesStaticTextThatTargetsTheHelperItself) {
    const auto row = helper->staticText("Version 1");
    expectRow(*row, "Version 1", PSCellType::StaticText);
    EXPECT_EQ(row->target(), helper);
    EXPECT_FALSE(row->setAction());
    EXPECT_FALSE(row->getAction());
    EXPECT_EQ(row->detailControllerClass(), nullptr);
}

TEST_F(SpecifierFactory, MakesASliderWithoutALabelThatShowsItsValue) {
    const auto row = helper->slider("opacity", 0.5f, 2.0f);
    expectRow(*row, "", PSCellType::Slider);
    expectBound(*row);
    EXPECT_EQ(row->detailControllerClass(), nullptr);
    EXPECT_EQ(row->identifier(), "opacity");
    ASSERT_NE(row->valueForKey("min"), nullptr);
    EXPECT_EQ(row->valueForKey("min")->kind(), Value::Kind::Real);
    EXPECT_EQ(row->valueForKey("min")->real(), 0.5);
    ASSERT_NE(row->valueForKey("max"), nullptr);
    EXPECT_EQ(row->valueForKey("max")->kind(), Value::Kind::Real);
    EXPECT_EQ(row->valueForKey("max")->real(), 2.0);
    ASSERT_NE(row->valueForKey("showValue"), nullptr);
    EXPECT_EQ(*row->valueForKey("showValue"), Value(true));
}

TEST_F(SpecifierFactory, MakesASliderThatShowsItsValueOnRequest) {
    const auto hidden = helper->slider("opacity", 0, 1, false);
    expectRow(*hidden, "", PSCellType::Slider);
    expectBound(*hidden);
    EXPECT_EQ(hidden->identifier(), "opacity");
    EXPECT_EQ(hidden->valueForKey("max")->real(), 1.0);
    EXPECT_EQ(*hidden->valueForKey("showValue"), Value(false));
    EXPECT_EQ(*helper->slider("opacity", 0, 1, true)->valueForKey("showValue"), Value(true));
}

TEST_F(SpecifierFactory, MakesAFieldWithAPlaceholderAndNoLabel) {
    const auto row = helper->field("Account Name", "kAccountName");
    expectRow(*row, "", PSCellType::EditText);
    expectBound(*row);
    EXPECT_EQ(row->detailControllerClass(), nullptr);
    EXPECT_EQ(row->placeholder(), "Account Name");
    EXPECT_EQ(row->identifier(), "kAccountName");
    EXPECT_EQ(row->keyboardType(), platform::UIKeyboardType::Default);
}

TEST_F(SpecifierFactory, MakesASecureFieldOnRequest) {
    const auto secure = helper->field("Secret", "secret", true);
    expectRow(*secure, "", PSCellType::SecureEditText);
    expectBound(*secure);
    EXPECT_EQ(secure->placeholder(), "Secret");
    EXPECT_EQ(secure->identifier(), "secret");
    EXPECT_EQ(helper->field("Secret", "secret", false)->cellType(), PSCellType::EditText);
}

TEST_F(SpecifierFactory, MakesANumberFieldThatForcesTheNumberPadSecureOrNot) {
    for (const bool secure : {false, true}) {
        const auto row = helper->numberField("Digits", "digits", secure);
        expectRow(*row, "", secure ? PSCellType::SecureEditText : PSCellType::EditText);
        expectBound(*row);
        EXPECT_EQ(row->placeholder(), "Digits");
        EXPECT_EQ(row->identifier(), "digits");
        EXPECT_EQ(static_cast<int>(row->keyboardType()), 4);
        EXPECT_EQ(row->autoCaps(), 0);
        EXPECT_EQ(row->autoCorrection(), 0);
    }
}

TEST_F(SpecifierFactory, ForwardsEmptyTitlesIdentifiersAndClasses) {
    expectRow(*helper->link("", nullptr), "", PSCellType::Link);
    EXPECT_EQ(helper->link("", nullptr)->detailControllerClass(), nullptr);
    EXPECT_EQ(helper->toggle("", "")->identifier(), "");
    EXPECT_FALSE(helper->button("", nullptr, {})->buttonAction());
    EXPECT_TRUE(helper->link("", "", {}, {})->values().empty());
}

TEST(CellType, HasTheFrameworksNumber) {
    EXPECT_EQ(static_cast<int>(PSCellType::Group), 0);
    EXPECT_EQ(static_cast<int>(PSCellType::Link), 1);
    EXPECT_EQ(static_cast<int>(PSCellType::LinkList), 2);
    EXPECT_EQ(static_cast<int>(PSCellType::Slider), 5);
    EXPECT_EQ(static_cast<int>(PSCellType::Switch), 6);
    EXPECT_EQ(static_cast<int>(PSCellType::StaticText), 7);
    EXPECT_EQ(static_cast<int>(PSCellType::EditText), 8);
    EXPECT_EQ(static_cast<int>(PSCellType::SecureEditText), 12);
    EXPECT_EQ(static_cast<int>(PSCellType::Button), 13);
}

} // namespace
} // namespace wardlock
