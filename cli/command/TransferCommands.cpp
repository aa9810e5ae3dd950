#include "cli/command/Commands.h"
#include "cli/command/PropertyListCommand.h"
#include "cli/command/ReadableSettings.h"
#include "cli/command/SettingsChange.h"
#include "cli/io/Output.h"
#include "platform/plist/PropertyListBounds.h"
#include "settings/Accounts.h"
#include "settings/ChangeNotification.h"
#include "settings/DefaultSettings.h"
#include "settings/Document.h"
#include "settings/Keys.h"
#include "settings/Settings.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace wardlock::cli {

namespace {

using platform::Dictionary;
using platform::Value;
using Kind = platform::Value::Kind;

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

/// Numbers and texts are read as booleans, and other programs write them so.
bool isUsable(const Value& value, Kind kind) {
    return value.is(kind) || (kind == Kind::Boolean &&
                              (value.is(Kind::Integer) || value.is(Kind::Real) || value.is(Kind::String)));
}

/// Returns why a value of the record cannot be used where it has another kind by default.
std::string whyOtherKinds(const Dictionary& record, const Dictionary& defaults) {
    for (const auto& [key, value] : record) {
        const Value* usual = defaults.find(key);
        if (usual && !isUsable(value, usual->kind()))
            return std::string(key) + " is not " + nameOf(usual->kind());
    }
    return "";
}

std::string whyNotAnAccount(const Value& account) {
    if (!account.is(Kind::Dictionary))
        return "is not a dictionary";
    const Accounts defaults = Accounts::defaults();
    if (auto why = whyOtherKinds(account.dictionary(), *defaults.record(0)); !why.empty())
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

/// Returns why a property list cannot be the preferences document, for example "kEnabled is not a boolean";
/// empty when it can. Keys may be missing, and other programs' keys may have any value.
std::string whyNotADocument(const Value& value) {
    if (!value.is(Kind::Dictionary))
        return "its top-level value is not a dictionary";
    const Dictionary& document = value.dictionary();
    if (auto why = whyOtherKinds(document, DefaultSettings()); !why.empty())
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

ExitCode exportDocument(const Arguments& arguments) {
    const Dictionary document = SettingsCreateIfNecessary().copy();
    storePropertyList(document, std::string(arguments.operand(0)), platform::Sync::Full);
    if (const std::string why = whyNotADocument(document); !why.empty())
        Output::error("wardlock export: warning: `wardlock import` will refuse this file: " + why);
    return ExitCode::Done;
}

/// Sets the entries of the document that differ. Returns their keys.
std::vector<std::string> takeOver(const Dictionary& given, platform::MutableDictionary& entries) {
    std::vector<std::string> keys;
    for (const auto& [key, value] : given) {
        const Value* present = entries.find(key);
        if (present && *present == value)
            continue;
        entries.set(key, value);
        keys.emplace_back(key);
    }
    return keys;
}

ExitCode importDocument(const Arguments& arguments) {
    const std::string path(arguments.operand(0));
    // The limit of the document.
    const Value given = propertyListInFile(path, platform::largestDocument);
    if (const std::string why = whyNotADocument(given); !why.empty())
        throw CommandError(ExitCode::Failed, "cannot import " + path + ": " + why);
    loadToChange();
    std::vector<std::string> keys;
    const platform::Update update =
        updateDocument(BundleIdentifier, [&](platform::MutableDictionary& entries) {
            keys = takeOver(given.dictionary(), entries);
            return !keys.empty();
        });
    if (!update.changed)
        return ExitCode::Done;
    if (update.written)
        for (const std::string& key : keys)
            postChange(BundleIdentifier, PostName, key, *update.dictionary.find(key));
    requireStored(update);
    return ExitCode::Done;
}

} // namespace

const Verb exportVerb{
    "export",
    "FILE",
    "write all settings to a file",
    "Writes the preferences document to FILE, as a property list in XML: every\n"
    "account, and the passcode. FILE is replaced in one step; a new file is readable\n"
    "only by you. \"-\" is standard output. FILE is a path of this machine, not of the\n"
    "device. Prints a warning if `wardlock import` will refuse the file.\n"
    "\n"
    "Like every process that reads the settings, this verb first writes the defaults\n"
    "if the document or a top-level key is missing.\n",
    {},
    1,
    1,
    onReadableSettings<exportDocument>,
    "wardlock export settings.plist\n",
};

const Verb importVerb{
    "import",
    "FILE",
    "replace the settings by those in a file",
    "Reads a property list, checks it, and stores its keys in one write. FILE has the\n"
    "form that `wardlock export` writes. Other processes are notified of each\n"
    "top-level key that has changed. Keys that FILE lacks keep their values. \"-\" is\n"
    "standard input.\n"
    "\n"
    "FILE is refused, and nothing is changed, if a value is of a wrong kind, the list\n"
    "of accounts is empty, or the passcode does not have four digits.\n",
    {},
    1,
    1,
    importDocument,
    "wardlock import settings.plist\n",
    true,
};

} // namespace wardlock::cli
