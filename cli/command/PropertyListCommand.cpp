#include "cli/command/PropertyListCommand.h"

#include "cli/io/CommandError.h"
#include "cli/io/Output.h"
#include "cli/io/Stream.h"
#include "platform/base/Utf8.h"
#include "platform/files/FileSystem.h"
#include "platform/plist/PropertyList.h"
#include "platform/plist/PropertyListFile.h"

#include <charconv>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <system_error>
#include <unistd.h>

namespace wardlock::cli {

namespace {

using platform::Value;

[[noreturn]] void refuse(std::string_view text, std::string_view why) {
    throw CommandError(ExitCode::WrongUsage, "'" + std::string(text) + "' " + std::string(why));
}

template <class Number>
std::optional<Number> numberFromText(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

Value integerFromText(std::string_view text) {
    if (const auto number = numberFromText<std::int64_t>(text))
        return *number;
    if (const auto number = numberFromText<std::uint64_t>(text))
        return *number;
    refuse(text, "is not an integer from -9223372036854775808 to 18446744073709551615");
}

} // namespace

bool isMissing(const std::string& path) {
    platform::FileStatus status;
    const auto ask = [&] {
        return platform::FileSystem::current().status(path, platform::Links::Follow, status);
    };
    return platform::uninterrupted(ask) == std::errc::no_such_file_or_directory;
}

std::string fileBytes(const std::string& path, std::size_t largest) {
    std::string bytes;
    const auto stream = streamToRead(path);
    const auto read = [&] {
        return stream ? readToEnd(*stream, largest, bytes)
                      : platform::FileSystem::current().readFile(path, largest, bytes);
    };
    const std::error_code error = platform::uninterrupted(read);
    if (error == std::errc::file_too_large)
        throw ReadError(ExitCode::Failed, path, "larger than " + std::to_string(largest >> 20) + " MiB");
    // A pipe may have no other end, and a device no end at all.
    if (!stream && error == std::errc::not_supported)
        throw ReadError(ExitCode::Failed, path, "not a regular file; \"-\" reads standard input");
    if (error)
        throw ReadError(ExitCode::Failed, path, error.message());
    return bytes;
}

Value propertyListInFile(const std::string& path, std::size_t largest) {
    std::optional<Value> value = platform::propertyListWithData(fileBytes(path, largest));
    if (!value)
        throw ReadError(ExitCode::NotAPropertyList, path, "not a property list");
    return *std::move(value);
}

void storePropertyList(const Value& value, const std::string& path, platform::Sync sync) {
    std::string document;
    std::error_code error = platform::documentWithPropertyList(value, document);
    const auto stream = streamToWrite(path);
    if (!error && stream == STDOUT_FILENO)
        return Output::text(document);
    if (!error)
        error = stream ? writeAll(*stream, document) : platform::replaceFileOfMachine(path, document, sync);
    if (!stream && error == std::errc::not_supported)
        throw CommandError(ExitCode::Failed, "cannot write " + path + ": not a regular file; \"-\" prints");
    if (error)
        throw CommandError(ExitCode::Failed, "cannot write " + path + ": " + error.message());
}

Value valueFromText(std::string_view type, std::string_view text) {
    if (type == "bool") {
        if (text != "true" && text != "false")
            refuse(text, "is neither true nor false");
        return text == "true";
    }
    if (type == "int")
        return integerFromText(text);
    if (type == "real") {
        if (const auto number = numberFromText<double>(text))
            return *number;
        refuse(text, "is not a real number");
    }
    if (type != "string")
        refuse(type, "is not a type: expected bool, int, real or string");
    requireText(text);
    return text;
}

void requireText(std::string_view text) {
    if (!platform::isValidUtf8(text))
        throw CommandError(ExitCode::WrongUsage, "names and values must be valid UTF-8");
}

} // namespace wardlock::cli
