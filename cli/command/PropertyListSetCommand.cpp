#include "cli/command/Commands.h"
#include "cli/command/PropertyListCommand.h"
#include "platform/plist/PropertyListBounds.h"
#include "platform/plist/PropertyListFile.h"

#include <array>
#include <optional>
#include <string>

namespace wardlock::cli {

namespace {

using platform::Sync;

constexpr Option syncOption{
    "--sync", "MODE",
    "what is on the disk before this ends: none, data\n(the bytes) or full (the name too; the default)"};
constexpr std::array setOptions{syncOption};

Sync syncNamed(std::string_view name) {
    if (name == "none")
        return Sync::None;
    if (name == "data")
        return Sync::Data;
    if (name == "full")
        return Sync::Full;
    throw CommandError(ExitCode::WrongUsage, "--sync is none, data or full");
}

/// The read-modify-write takes what it cannot read for no document and replaces it; here that is not wanted.
void requireDictionary(const std::string& path) {
    if (isMissing(path))
        return;
    // No larger than the read-modify-write takes.
    if (propertyListInFile(path, platform::largestDocument).kind() != platform::Value::Kind::Dictionary)
        throw CommandError(ExitCode::Failed, path + ": its outermost value is no dictionary");
}

ExitCode set(const Arguments& arguments) {
    const std::string path(arguments.operand(0));
    const std::string_view key = arguments.operand(1);
    requireText(key);
    const platform::Value value = valueFromText(arguments.operand(2), arguments.operand(3));
    const Sync sync = syncNamed(arguments.value(syncOption.name).value_or("full"));
    requireDictionary(path);
    const auto change = [&](platform::MutableDictionary& dictionary) {
        dictionary.set(key, value);
        return true;
    };
    if (const std::error_code error = platform::updateFileOfMachine(path, change, sync).error)
        throw CommandError(ExitCode::Failed, path + ": it could not be written: " + error.message());
    return ExitCode::Done;
}

} // namespace

const Verb plistSetVerb{
    "plist set",
    "FILE KEY TYPE VALUE",
    "store one top-level key of a property list",
    "Reads FILE, sets KEY, and replaces the file in one step by its XML form; what\n"
    "else it holds stays. A FILE that is missing is made. TYPE is bool (VALUE true\n"
    "or false), int, real or string; a VALUE that begins with a dash and is no\n"
    "number comes after \"--\". Exit code 0 only when the change is stored; 3, and\n"
    "nothing changed, when FILE is not a property list. FILE is a path of this\n"
    "machine, not of the device. Nobody is told: see `wardlock announce`.\n",
    setOptions,
    4,
    4,
    set,
};

} // namespace wardlock::cli
