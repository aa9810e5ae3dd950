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
                           "neither the settings nor an enabled account have \"" + std::string(key) + "\"");
    postChange(BundleIdentifier, PostName, key, *value);
    return ExitCode::Done;
}

} // namespace

const Verb announceVerb{
    "announce",
    "KEY",
    "tell every process that a key has changed",
    "Announces a change of KEY with its present value: that of the top-level key,\n"
    "else that of the enabled account's key. For programs that write the document\n"
    "without announcing it themselves. Exit code 1 when there is no such key. A\n"
    "document that is missing, or lacks a top-level key, is completed with the\n"
    "defaults and written, as by every process that looks the settings up.\n",
    {},
    1,
    1,
    announce,
};

} // namespace wardlock::cli
