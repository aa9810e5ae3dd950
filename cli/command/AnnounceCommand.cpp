#include "cli/command/Commands.h"
#include "cli/command/ReadableSettings.h"
#include "settings/ChangeNotification.h"
#include "settings/Constants.h"
#include "settings/EnabledAccount.h"
#include "settings/Settings.h"

#include <string>

namespace wardlock::cli {

namespace {

ExitCode announce(const Arguments& arguments) {
    const std::string_view key = arguments.operand(0);
    const platform::Value* value = objectForKey(key);
    if (!value)
        value = AccountObject(key);
    if (!value)
        throw CommandError(ExitCode::Failed,
                           "no key '" + std::string(key) + "' in the settings or the enabled account");
    postChange(BundleIdentifier, PostName, key, *value);
    return ExitCode::Done;
}

} // namespace

const Verb announceVerb{
    "announce",
    "KEY",
    "notify all processes that a key has changed",
    "Notifies all processes that KEY has changed, with its present value. That is the\n"
    "value of the top-level key, or of the enabled account's key if there is no such\n"
    "top-level key. Run it after a program that writes the document without\n"
    "announcing the change. The exit code is 1 if neither has the key.\n"
    "\n"
    "Like every process that reads the settings, this verb first writes the defaults\n"
    "if the document or a top-level key is missing.\n",
    {},
    1,
    1,
    onReadableSettings<announce>,
    "wardlock announce kEnabled\n",
};

} // namespace wardlock::cli
