#include "cli/command/DocumentCheck.h"

#include "settings/Accounts.h"
#include "settings/DefaultSettings.h"
#include "settings/Keys.h"

#include <algorithm>

namespace wardlock::cli {

using platform::Dictionary;
using platform::Value;
using Kind = platform::Value::Kind;

namespace {

std::string nameOf(Kind kind) {
    switch (kind) {
    case Kind::Boolean:
        return "a boolean";
    case Kind::String:
        return "a string";
    case Kind::Array:
        return "a list";
    default:
        return "a dictionary";
    }
}

/// Returns why a value of the record is not of the kind that it has by default.
std::string whyOtherKinds(const Dictionary& record, const Dictionary& defaults) {
    for (const auto& [key, value] : record) {
        const Value* usual = defaults.find(key);
        if (usual && !value.is(usual->kind()))
            return std::string(key) + " is not " + nameOf(usual->kind());
    }
    return "";
}

std::string whyNotAnAccount(const Value& account) {
    if (!account.is(Kind::Dictionary))
        return "is not a dictionary";
    const Accounts defaults = Accounts::defaults();
    if (const auto why = whyOtherKinds(account.dictionary(), *defaults.record(0)); !why.empty())
        return why;
    const platform::Array* apps = platform::arrayValue(account.dictionary().find(kAppsRestricted));
    for (const Value& app : apps ? *apps : platform::Array())
        if (!app.is(Kind::String))
            return "kAppsRestricted has a value that is not a string";
    return "";
}

bool isPasscode(std::string_view text) {
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    return text.empty() || (text.size() == 4 && std::ranges::all_of(text, isDigit));
}

} // namespace

std::string whyNotADocument(const Value& value) {
    if (!value.is(Kind::Dictionary))
        return "its top-level value is not a dictionary";
    const Dictionary& document = value.dictionary();
    if (const auto why = whyOtherKinds(document, DefaultSettings()); !why.empty())
        return why;
    if (!isPasscode(platform::stringValue(document.find(kPasscode)).value_or("")))
        return "kPasscode does not have four digits";
    const platform::Array* accounts = platform::arrayValue(document.find(kAccounts));
    if (accounts && accounts->size() == 0)
        return "kAccounts is empty";
    for (std::size_t i = 0; accounts && i < accounts->size(); ++i)
        if (const auto why = whyNotAnAccount(accounts->at(i)); !why.empty())
            return "account " + std::to_string(i + 1) + ": " + why;
    return "";
}

} // namespace wardlock::cli
