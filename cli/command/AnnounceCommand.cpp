#include "cli/command/Commands.h"
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
    "Notifies all processes that KEY has changed, and of its present value: that of\n"
    "the top-level key, else that of the enabled account's key. Run it after a\n"
    "program that writes the document without announcing the change. Exit code 1\n"
    "when there is no such key.\n"
    "\n"
    "Like every process that reads the settings, this verb first writes the defaults\n"
    "where the document or a top-level key is missing.\n",
    {},
    1,
    1,
    announce,
    "wardlock announce kEnabled\n",
};

} // namespace wardlock::cli
