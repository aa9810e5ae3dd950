#include "platform/preferences/PSSpecifier.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

std::shared_ptr<PSSpecifier> bare() {
    return PSSpecifier::preferenceSpecifierNamed("Name", nullptr, {}, {}, nullptr, PSCellType::Switch,
                                                 nullptr);
}

class Store : public Object {
public:
    std::optional<Value> read(PSSpecifier& specifier) { return Value("value of " + specifier.identifier()); }
    void write(const Value* value, PSSpecifier&) { written = value ? std::optional(*value) : std::nullopt; }
    void press(PSSpecifier&) { ++pressed; }

    std::optional<Value> written;
    int pressed = 0;
};

std::shared_ptr<PSSpecifier> bound(const std::shared_ptr<Store>& store) {
    return PSSpecifier::preferenceSpecifierNamed(
        "Name", store, PSSpecifier::SetAction::of<&Store::write>("write"),
        PSSpecifier::GetAction::of<&Store::read>("read"), nullptr, PSCellType::Switch, nullptr);
}

TEST(PSSpecifier, HasThePropertyIdAsItsIdentifier) {
    const auto specifier = bare();
    specifier->setProperty(Value("kKey"), "id");
    EXPECT_EQ(specifier->identifier(), "kKey");
}

TEST(PSSpecifier, HasItsIdentifierAsThePropertyId) {
    const auto specifier = bare();
    specifier->setIdentifier("kKey");
    ASSERT_TRUE(specifier->valueForKey("id"));
    EXPECT_EQ(*specifier->valueForKey("id"), Value("kKey"));
}

TEST(PSSpecifier, HasNoPropertyThatWasNotSet) {
    EXPECT_EQ(bare()->valueForKey("min"), nullptr);
    EXPECT_EQ(bare()->imageForKey("iconImage"), nullptr);
    EXPECT_EQ(bare()->identifier(), "");
}

TEST(PSSpecifier, AcceptsAnEmptyProperty) {
    const auto specifier = bare();
    specifier->setProperty(std::make_shared<UIImage>("", "bytes"), "iconImage");
    specifier->setProperty(std::shared_ptr<UIImage>(), "iconImage");
    EXPECT_EQ(specifier->imageForKey("iconImage"), nullptr);
}

TEST(PSSpecifier, ReadsAndStoresThroughItsTarget) {
    const auto store = std::make_shared<Store>();
    const auto specifier = bound(store);
    specifier->setIdentifier("kKey");
    EXPECT_EQ(specifier->performGetter(), Value("value of kKey"));
    const Value value(true);
    specifier->performSetter(&value);
    EXPECT_EQ(store->written, Value(true));
}

TEST(PSSpecifier, IgnoresATargetThatIsGone) {
    auto store = std::make_shared<Store>();
    const auto specifier = bound(store);
    specifier->setButtonAction(PSSpecifier::ButtonAction::of<&Store::press>("press"));
    store.reset();
    EXPECT_EQ(specifier->performGetter(), std::nullopt);
    specifier->performSetter(nullptr);
    specifier->performButtonAction();
}

TEST(PSSpecifier, PerformsItsButtonAction) {
    const auto store = std::make_shared<Store>();
    const auto specifier = bound(store);
    specifier->setButtonAction(PSSpecifier::ButtonAction::of<&Store::press>("press"));
    specifier->performButtonAction();
    EXPECT_EQ(store->pressed, 1);
}

} // namespace
} // namespace platform
