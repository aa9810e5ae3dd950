#include "cli/command/Commands.h"
#include "cli/command/CommonOptions.h"
#include "cli/command/PropertyListCommand.h"
#include "cli/io/Json.h"
#include "cli/io/Output.h"
#include "cli/io/TypedJson.h"
#include "platform/plist/PropertyListBounds.h"

#include <array>
#include <limits>
#include <nlohmann/json.hpp>
#include <string>

namespace wardlock::cli {

namespace {

using platform::Sync;

constexpr Option outOption{"-o", "OUT", "the file to write", true};

ExitCode dump(const Arguments& arguments) {
    Output::foreignLine(jsonLine(typedJson(propertyListInFile(std::string(arguments.operand(0))))));
    return ExitCode::Done;
}

ExitCode convert(const Arguments& arguments) {
    const auto out = arguments.value(outOption.name);
    if (!out)
        throw CommandError(ExitCode::WrongUsage, "missing option '-o OUT'");
    storePropertyList(propertyListInFile(std::string(arguments.operand(0))), std::string(*out), Sync::Full);
    return ExitCode::Done;
}

/// Returns why the file is not a property list; Done with an empty reason when it is one.
std::pair<ExitCode, std::string> judge(const std::string& path) {
    try {
        propertyListInFile(path, platform::largestDocument);
        return {ExitCode::Done, {}};
    } catch (const ReadError& error) {
        return {error.code(), error.reason()};
    }
}

std::string judgementAsJson(const std::string& path, ExitCode code, const std::string& reason) {
    Json json = Json::object();
    json["file"] = path;
    json["ok"] = code == ExitCode::Done;
    if (code != ExitCode::Done)
        json["reason"] = reason;
    return jsonLine(json);
}

ExitCode lint(const Arguments& arguments) {
    bool unreadable = false;
    bool notAList = false;
    for (const std::string_view file : arguments.operands()) {
        const std::string path(file);
        const auto [code, reason] = judge(path);
        unreadable = unreadable || code == ExitCode::Failed;
        notAList = notAList || code == ExitCode::NotAPropertyList;
        Output::foreignLine(arguments.has(jsonOption.name)
                                ? judgementAsJson(path, code, reason)
                                : path + ": " + (code == ExitCode::Done ? "OK" : reason));
    }
    return notAList ? ExitCode::NotAPropertyList : unreadable ? ExitCode::Failed : ExitCode::Done;
}

constexpr std::array lintOptions{jsonOption};
constexpr std::array convertOptions{outOption};

} // namespace

const Verb plistDumpVerb{
    "plist dump",
    "FILE",
    "print a property list as typed JSON",
    "Prints a property list (XML or binary) as one line of JSON:\n"
    "  {\"bool\":true} {\"int\":\"-12\"} {\"real\":\"1.5\"} {\"string\":\"x\"} {\"data\":\"BASE64\"}\n"
    "  {\"date\":\"2001-01-01T00:00:00Z\"} {\"array\":[V,...]} {\"dict\":[[\"key\",V],...]}\n"
    "Numbers are strings, so that no reader rounds them; a real may be nan, inf or\n"
    "-inf. A dictionary is a list of pairs, which keeps its order. FILE is a path of\n"
    "this machine, not of the device; \"-\" is standard input.\n",
    {},
    1,
    1,
    dump,
    "wardlock plist dump settings.plist\n",
    true,
};

const Verb plistConvertVerb{
    "plist convert",
    "FILE",
    "convert a property list to XML",
    "Reads a property list (XML or binary) and writes it to OUT as XML. OUT is\n"
    "replaced in one step, and may be FILE itself. If the XML would exceed 16 MiB,\n"
    "OUT is not changed and the exit code is 1. Both are paths of this machine, not\n"
    "of the device; \"-\" is standard input for FILE, and standard output for OUT.\n",
    convertOptions,
    1,
    1,
    convert,
    "wardlock plist convert binary.plist -o settings.plist\n",
    true,
};

const Verb plistLintVerb{
    "plist lint",
    "FILE...",
    "check whether files are property lists",
    "Prints one line for each FILE: \"FILE: OK\", or the reason why it is not a\n"
    "property list. The exit code is 3 if one of them is not a property list.\n"
    "Otherwise, it is 1 if one cannot be read or is larger than 16 MiB. FILE is a\n"
    "path of this machine, not of the device; \"-\" is standard input.\n"
    "\n"
    "With --json, prints one object per line: \"file\", \"ok\", and \"reason\" if it is not\n"
    "OK.\n",
    lintOptions,
    1,
    std::numeric_limits<std::size_t>::max(),
    lint,
    "wardlock plist lint settings.plist\n",
    true,
};

} // namespace wardlock::cli
