#include "cli/command/Commands.h"
#include "cli/command/DocumentCheck.h"
#include "cli/command/PropertyListCommand.h"
#include "cli/command/SettingsChange.h"
#include "platform/plist/PropertyListBounds.h"
#include "settings/ChangeNotification.h"
#include "settings/Document.h"
#include "settings/Keys.h"
#include "settings/Settings.h"

#include <string>
#include <vector>

namespace wardlock::cli {

namespace {

using platform::Value;

ExitCode exportDocument(const Arguments& arguments) {
    storePropertyList(SettingsCreateIfNecessary().copy(), std::string(arguments.operand(0)),
                      platform::Sync::Full);
    return ExitCode::Done;
}

/// Sets the entries of the document that differ. Returns their keys.
std::vector<std::string> takeOver(const platform::Dictionary& given, platform::MutableDictionary& entries) {
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
    requireStored(update);
    for (const std::string& key : keys)
        postChange(BundleIdentifier, PostName, key, *update.dictionary.find(key));
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
    "device.\n"
    "\n"
    "Like every process that reads the settings, this verb first writes the defaults\n"
    "if the document or a top-level key is missing.\n",
    {},
    1,
    1,
    exportDocument,
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
