#include "settings/Settings.h"

#include "settings/ChangeNotification.h"
#include "settings/Constants.h"
#include "settings/DefaultSettings.h"
#include "settings/Document.h"
#include "settings/DocumentPath.h"
#include "settings/EnabledAccount.h"

#include <utility>

namespace wardlock {

namespace {

/// Returns whether anything was missing; in a missing or empty document everything is. Records of accounts
/// and values of a wrong kind are left as they are.
bool fillMissingKeys(platform::MutableDictionary& document) {
    bool changed = false;
    const platform::Dictionary defaults = DefaultSettings();
    for (const auto& [key, value] : defaults) {
        if (document.find(key))
            continue;
        document.set(key, value);
        changed = true;
    }
    return changed;
}

} // namespace

std::optional<platform::MutableDictionary> TweakSettings;
ChangeCallback UpdateCallback;

platform::Update loadDocument() {
    platform::Update loaded = updateDocument(BundleIdentifier, fillMissingKeys);
    // A device has had the folder from the start; a new device root has not.
    if (loaded.changed && !loaded.written && makeMissingDocumentFolder(BundleIdentifier))
        loaded = updateDocument(BundleIdentifier, fillMissingKeys);
    return loaded;
}

platform::Dictionary SettingsNew() {
    return loadDocument().dictionary;
}

platform::MutableDictionary& SettingsCreateIfNecessary() {
    if (!TweakSettings)
        TweakSettings.emplace(SettingsNew());
    return *TweakSettings;
}

const platform::Value* objectForKey(std::string_view key) {
    return SettingsCreateIfNecessary().find(key);
}

bool boolForKey(std::string_view key) {
    return platform::boolValue(objectForKey(key));
}

float floatForKey(std::string_view key) {
    return platform::floatValue(objectForKey(key));
}

const platform::Value* stringForKey(std::string_view key) {
    return objectForKey(key);
}

void writeSettings() {
    if (TweakSettings)
        platform::writeToFileAtomically(TweakSettings->copy(), documentPath(SiblingIdentifier));
}

void InitSettings() {
    TweakSettings.emplace(SettingsNew());
    EnabledAccount = EnabledAccountNew();
}

void InitSettingsWithUpdateName(std::string_view post) {
    // Observed first: a change between the two is then announced rather than missed. Never ended: this half
    // of the library has no tear-down.
    observeChanges(BundleIdentifier, post, nullptr, SettingsUpdateCallback).release();
    InitSettings();
}

void InitSettingsWithUpdateNameAndCallback(std::string_view post, ChangeCallback callback) {
    UpdateCallback = std::move(callback);
    InitSettingsWithUpdateName(post);
}

void SettingsUpdateCallback(platform::CFNotificationCenter&, void*, std::string_view, const std::string*,
                            const platform::Dictionary* userInfo) {
    InitSettings();
    // The callback may replace the variable while it runs.
    const ChangeCallback callback = UpdateCallback;
    if (!callback || !userInfo || userInfo->empty())
        return;
    callback(userInfo->find(ChangeKey), userInfo->find(ChangeObject));
}

} // namespace wardlock
