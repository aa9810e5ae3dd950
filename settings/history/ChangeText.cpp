#include "settings/history/ChangeText.h"

#include "settings/Keys.h"
#include "settings/SettingLabels.h"

#include <algorithm>

namespace wardlock {

namespace {

using platform::Array;
using platform::Value;

/// More applications are counted, not named.
constexpr std::size_t mostNamed = 3;

const Value* pointer(const std::optional<Value>& value) {
    return value ? &*value : nullptr;
}

bool contains(const Array& list, const Value& value) {
    return std::ranges::find(list, value) != list.end();
}

/// The elements of a list that the other one does not have.
std::vector<std::string> missingFrom(const Array& other, const Array& list) {
    std::vector<std::string> found;
    for (const Value& value : list)
        if (!contains(other, value))
            found.emplace_back(platform::stringValue(&value).value_or("?"));
    return found;
}

std::string enumeration(const std::vector<std::string>& names) {
    if (names.size() > mostNamed)
        return std::to_string(names.size()) + " apps";
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "" : ", ") + name;
    return text;
}

std::string applicationsText(const Array& before, const Array& after) {
    const auto added = missingFrom(before, after);
    const auto removed = missingFrom(after, before);
    std::string text;
    if (!added.empty())
        text = enumeration(added) + " restricted";
    if (!removed.empty())
        text += (text.empty() ? "" : ", ") + enumeration(removed) + " no longer restricted";
    return text.empty() ? "order of the restricted apps changed" : text;
}

std::string valueText(std::string_view label, const Change& change) {
    std::string text(label);
    if (!change.now)
        return text + " removed";
    if (change.now->is(Value::Kind::Boolean))
        return text + (change.now->boolean() ? " on" : " off");
    return text + (change.old ? " changed" : " set");
}

std::string passcodeText(const Change& change) {
    const auto isSet = [](const std::optional<Value>& value) {
        return value && platform::stringValue(&*value) != "";
    };
    if (!isSet(change.now))
        return isSet(change.old) ? "passcode removed" : "no passcode";
    return isSet(change.old) ? "passcode changed" : "passcode set";
}

std::string topLevelText(const Change& change) {
    if (change.key == kPasscode)
        return passcodeText(change);
    if (change.key == kEnabled)
        return valueText("Wardlock", change);
    return valueText(change.key == kAccounts ? "list of accounts" : change.key, change);
}

std::string nameOf(const Change& change, std::size_t position) {
    return change.account.empty() ? "account " + std::to_string(position + 1) : change.account;
}

std::string accountValueText(const Change& change) {
    const std::string account = nameOf(change, change.after);
    const auto name = platform::stringValue(pointer(change.now));
    if (change.key == kAccountName && name)
        return account + " renamed to " + std::string(*name);
    if (change.key == kAccountEnabled && change.now && change.now->is(Value::Kind::Boolean))
        return account + (change.now->boolean() ? " enabled" : " disabled");
    const Array* before = platform::arrayValue(pointer(change.old));
    const Array* after = platform::arrayValue(pointer(change.now));
    if (change.key == kAppsRestricted && before && after)
        return account + ": " + applicationsText(*before, *after);
    return account + ": " + valueText(accountLabel(change.key), change);
}

} // namespace

std::string changeText(const Change& change) {
    switch (change.kind) {
    case Change::Kind::AccountValue:
        return accountValueText(change);
    case Change::Kind::AccountAdded:
        return nameOf(change, change.after) + " added";
    case Change::Kind::AccountDeleted:
        return nameOf(change, change.before) + " deleted";
    case Change::Kind::TopLevelValue:
        break;
    }
    return topLevelText(change);
}

std::vector<std::string> changeTexts(const std::vector<Change>& changes) {
    std::vector<std::string> texts;
    for (const Change& change : changes)
        texts.push_back(changeText(change));
    return texts;
}

} // namespace wardlock
