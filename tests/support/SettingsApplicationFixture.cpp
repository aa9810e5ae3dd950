#include "tests/support/SettingsApplicationFixture.h"

#include "platform/plist/PropertyListFile.h"
#include "settings/DefaultSettings.h"
#include "settings/Keys.h"
#include "shell/device/Provision.h"
#include "tests/support/BuildPaths.h"

namespace wardlock::test {

using platform::Dictionary;
using platform::NSIndexPath;

SettingsApplicationFixture::SettingsApplicationFixture() = default;

SettingsApplicationFixture::~SettingsApplicationFixture() {
    settings_.reset();
}

void SettingsApplicationFixture::start(double transitionSeconds) {
    const shell::Provision provision;
    EXPECT_EQ(provision.problems(), std::vector<std::string>());
    settings_ = std::make_unique<shell::SettingsApplication>(clock, transitionSeconds);
    if (!keepsGuard_)
        settings_->turnOffGuard();
}

NSIndexPath SettingsApplicationFixture::pathOf(std::string_view label) {
    for (std::size_t section = 0; section < page().sectionCount(); ++section)
        for (std::size_t row = 0; row < page().section(section).rowCount; ++row) {
            const shell::Row shown = page().row({section, row});
            if ((shown.label.empty() ? shown.placeholder : shown.label) == label)
                return {section, row};
        }
    ADD_FAILURE() << "no row \"" << label << "\" on the page \"" << page().title() << '"';
    return {};
}

bool SettingsApplicationFixture::hasRow(std::string_view label) {
    const auto all = labels();
    return std::find(all.begin(), all.end(), label) != all.end();
}

void SettingsApplicationFixture::tap(std::string_view label) {
    const auto result = settings().page().tapRow(pathOf(label));
    EXPECT_TRUE(result) << label << ": " << result.reason();
}

void SettingsApplicationFixture::type(std::string_view label, std::string text) {
    const auto begun = settings().page().beginEditing(pathOf(label));
    EXPECT_TRUE(begun) << label << ": " << begun.reason();
    const auto typed = settings().page().typeText(std::move(text));
    EXPECT_TRUE(typed) << label << ": " << typed.reason();
}

void SettingsApplicationFixture::press(std::string_view digits) {
    for (const char digit : digits) {
        const auto result = settings().sheets().pressDigit(digit - '0');
        EXPECT_TRUE(result) << result.reason();
    }
}

void SettingsApplicationFixture::chooseInAlert(std::string_view title) {
    const auto alert = settings().screen().alert();
    ASSERT_TRUE(alert);
    for (std::size_t i = 0; i < alert->actions().size(); ++i)
        if (alert->actions()[i]->title() == title) {
            const auto result = settings().sheets().chooseAlertAction(i);
            EXPECT_TRUE(result) << result.reason();
            return;
        }
    ADD_FAILURE() << "no button \"" << title << "\" in the alert";
}

std::vector<std::string> SettingsApplicationFixture::labels() {
    std::vector<std::string> labels;
    for (std::size_t section = 0; section < page().sectionCount(); ++section)
        for (std::size_t row = 0; row < page().section(section).rowCount; ++row)
            labels.push_back(page().row({section, row}).label);
    return labels;
}

Dictionary SettingsApplicationFixture::document() const {
    const auto document = platform::dictionaryWithContentsOfFile(documentPath);
    EXPECT_TRUE(document) << "there is no document";
    return document.value_or(Dictionary());
}

void SettingsApplicationFixture::writeDocument(const Dictionary& document) const {
    ASSERT_TRUE(platform::writeToFileAtomically(document, documentPath));
}

void SettingsApplicationFixture::changeElsewhere(const Dictionary& document, std::string_view key) {
    writeDocument(document);
    const platform::Value* object = document.find(key);
    const Dictionary userInfo{{"key", key}, {"object", object ? *object : platform::Value(false)}};
    center.deliver("com.tavix.wardlock/update", &userInfo);
}

Dictionary SettingsApplicationFixture::documentOf(std::initializer_list<std::string_view> accountNames) {
    const Dictionary defaults = DefaultSettings();
    platform::MutableArray accounts;
    for (const auto name : accountNames) {
        platform::MutableDictionary account(defaults.find(kAccounts)->array().at(0).dictionary());
        account.set(kAccountName, name);
        accounts.append(account.copy());
    }
    platform::MutableDictionary document(defaults);
    document.set(kAccounts, accounts.copy());
    return document.copy();
}

} // namespace wardlock::test
