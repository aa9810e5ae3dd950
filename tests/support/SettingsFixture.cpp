#include "tests/support/SettingsFixture.h"

#include "platform/plist/PropertyList.h"
#include "settings/EnabledAccount.h"
#include "settings/Keys.h"
#include "settings/Settings.h"

#include <string>
#include <vector>

namespace wardlock::test {

namespace {

void forgetSettings() {
    TweakSettings.reset();
    EnabledAccount.reset();
    UpdateCallback = nullptr;
}

} // namespace

SettingsFixture::SettingsFixture() {
    forgetSettings();
}

SettingsFixture::~SettingsFixture() {
    forgetSettings();
}

void SettingsFixture::writeDocument(const platform::Dictionary& dictionary) const {
    writeFile(documentPath, platform::dataWithPropertyList(dictionary));
}

platform::Dictionary SettingsFixture::readDocument(std::string_view devicePath) const {
    const auto value = platform::propertyListWithData(readFile(devicePath));
    const platform::Dictionary* dictionary = platform::dictionaryValue(value ? &*value : nullptr);
    EXPECT_TRUE(dictionary) << devicePath << " is not a document";
    return dictionary ? *dictionary : platform::Dictionary();
}

platform::Dictionary SettingsFixture::documentWithAccounts(std::initializer_list<bool> enabled) {
    std::vector<platform::Value> accounts;
    for (const bool isEnabled : enabled) {
        const std::string name(1, static_cast<char>('A' + accounts.size()));
        accounts.emplace_back(platform::Dictionary{{kAccountEnabled, isEnabled}, {kAccountName, name}});
    }
    return {{kEnabled, true}, {kPasscode, "1234"}, {kAccounts, platform::Array(std::move(accounts))}};
}

} // namespace wardlock::test
