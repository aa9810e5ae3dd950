#include "cli/command/AccountSummary.h"

#include "settings/Accounts.h"
#include "settings/Keys.h"
#include "settings/SettingLabels.h"

#include <algorithm>

namespace wardlock::cli {

using platform::Value;

namespace {

/// As many applications as a line has room for.
constexpr std::size_t mostAppsNamed = 3;

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : ", ") + word;
    return text;
}

} // namespace

std::vector<std::string> activeRestrictions(const platform::Dictionary& record) {
    std::vector<std::string> keys;
    const auto defaults = Accounts::defaults();
    for (const auto& [key, value] : *defaults.record(0))
        if (value.kind() == Value::Kind::Boolean && key != kAccountEnabled &&
            platform::boolValue(record.find(key)))
            keys.emplace_back(key);
    return keys;
}

std::vector<std::string> restrictedApps(const platform::Dictionary& record) {
    std::vector<std::string> identifiers;
    if (const platform::Array* stored = platform::arrayValue(record.find(kAppsRestricted)))
        for (const Value& element : *stored)
            if (const auto identifier = platform::stringValue(&element))
                identifiers.emplace_back(*identifier);
    return identifiers;
}

std::string counted(std::size_t count, std::string_view what) {
    return std::to_string(count) + ' ' + std::string(what) + (count == 1 ? "" : "s");
}

std::string restrictionsInWords(const std::vector<std::string>& keys) {
    std::vector<std::string> labels;
    for (const std::string& key : keys)
        labels.emplace_back(accountLabel(key));
    return labels.empty() ? "none" : joined(labels);
}

std::string appsInWords(const std::vector<std::string>& identifiers, const platform::Dictionary& names) {
    if (identifiers.empty())
        return "none";
    std::vector<std::string> shown;
    for (std::size_t i = 0; i < std::min(identifiers.size(), mostAppsNamed); ++i) {
        const auto name = platform::stringValue(names.find(identifiers[i]));
        shown.emplace_back(name ? *name : identifiers[i]);
    }
    if (identifiers.size() > mostAppsNamed)
        shown.emplace_back("...");
    return counted(identifiers.size(), "app") + " (" + joined(shown) + ')';
}

} // namespace wardlock::cli
