#include "cli/command/Commands.h"
#include "cli/command/PropertyListCommand.h"
#include "cli/io/Stream.h"
#include "platform/plist/PropertyListBounds.h"
#include "platform/plist/PropertyListFile.h"

#include <array>
#include <optional>
#include <string>
#include <unistd.h>

namespace wardlock::cli {

namespace {

using platform::Sync;

constexpr Option syncOption{"--sync", "MODE",
                            "what reaches the disk before the command ends: none,\ndata (the content) or "
                            "full (its name too; default)"};
constexpr std::array setOptions{syncOption};

Sync syncNamed(std::string_view name) {
    if (name == "none")
        return Sync::None;
    if (name == "data")
        return Sync::Data;
    if (name == "full")
        return Sync::Full;
    throw CommandError(ExitCode::WrongUsage,
                       "unknown mode '" + std::string(name) + "' for '--sync': expected none, data or full");
}

/// Throws CommandError for a file that the read-modify-write would replace because it cannot read it as a
/// document. This verb is for any property list, which must not be lost.
void requireDictionary(const std::string& path) {
    if (isMissing(path))
        return;
    // The limit of the read-modify-write.
    if (propertyListInFile(path, platform::largestDocument).kind() != platform::Value::Kind::Dictionary)
        throw CommandError(ExitCode::Failed,
                           "cannot change " + path + ": its top-level value is not a dictionary");
}

/// Reads standard input and prints the changed list.
ExitCode setInStream(std::string_view key, const platform::Value& value) {
    const std::string stream = "-";
    const platform::Value list = propertyListInFile(stream, platform::largestDocument);
    if (!list.is(platform::Value::Kind::Dictionary))
        throw CommandError(ExitCode::Failed,
                           "cannot change standard input: its top-level value is not a dictionary");
    platform::MutableDictionary dictionary(list.dictionary());
    dictionary.set(key, value);
    storePropertyList(dictionary.copy(), stream, Sync::None);
    return ExitCode::Done;
}

ExitCode set(const Arguments& arguments) {
    const std::string path(arguments.operand(0));
    const std::string_view key = arguments.operand(1);
    requireText(key);
    const platform::Value value = valueFromText(arguments.operand(2), arguments.operand(3));
    const Sync sync = syncNamed(arguments.value(syncOption.name).value_or("full"));
    const auto stream = streamToRead(path);
    if (stream == STDIN_FILENO)
        return setInStream(key, value);
    if (stream)
        throw CommandError(ExitCode::Failed, "cannot change " + path + ": not a file that can be replaced");
    requireDictionary(path);
    const auto change = [&](platform::MutableDictionary& dictionary) {
        dictionary.set(key, value);
        return true;
    };
    if (const std::error_code error = platform::updateFileOfMachine(path, change, sync).error)
        throw CommandError(ExitCode::Failed, "cannot write " + path + ": " + error.message());
    return ExitCode::Done;
}

} // namespace

const Verb plistSetVerb{
    "plist set",
    "FILE KEY TYPE VALUE",
    "set a top-level key of a property list",
    "Reads FILE, sets KEY, and replaces FILE in one step by the result in XML. All\n"
    "other keys keep their values. A missing FILE is created. FILE is a path of this\n"
    "machine, not of the device; with \"-\", reads standard input and prints the\n"
    "result.\n"
    "\n"
    "TYPE is bool (VALUE true or false), int, real or string. Write \"--\" before the\n"
    "operands if VALUE begins with a dash and is not a number.\n"
    "\n"
    "The exit code is 0 only if the change is stored. If FILE is not a property list,\n"
    "it is not changed and the exit code is 3. Other processes are not notified: see\n"
    "`wardlock announce`.\n",
    setOptions,
    4,
    4,
    set,
    "wardlock plist set settings.plist kEnabled bool false\n",
    true,
};

} // namespace wardlock::cli
