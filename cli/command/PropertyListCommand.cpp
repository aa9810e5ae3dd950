#include "cli/command/PropertyListCommand.h"

#include "cli/io/CommandError.h"
#include "cli/io/Output.h"
#include "platform/base/Utf8.h"
#include "platform/files/FileSystem.h"
#include "platform/plist/PropertyList.h"
#include "platform/plist/PropertyListFile.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <system_error>
#include <unistd.h>

namespace wardlock::cli {

namespace {

using platform::Value;

/// Reads to the end, but not more than `largest` bytes.
std::error_code readStandardInput(std::size_t largest, std::string& bytes) {
    constexpr std::size_t atOnce = std::size_t{64} << 10;
    while (bytes.size() <= largest) {
        const std::size_t before = bytes.size();
        bytes.resize(before + atOnce);
        const ssize_t count = read(STDIN_FILENO, bytes.data() + before, atOnce);
        bytes.resize(before + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        if (count == 0)
            return {};
        if (count < 0)
            return {errno, std::generic_category()};
    }
    return std::make_error_code(std::errc::file_too_large);
}

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

bool isStandardStream(std::string_view path) {
    return path == "-";
}

std::string fileBytes(const std::string& path, std::size_t largest) {
    std::string bytes;
    const auto read = [&] {
        return isStandardStream(path) ? readStandardInput(largest, bytes)
                                      : platform::FileSystem::current().readFile(path, largest, bytes);
    };
    const std::error_code error = platform::uninterrupted(read);
    if (error == std::errc::file_too_large)
        throw ReadError(ExitCode::Failed, path, "larger than " + std::to_string(largest >> 20) + " MiB");
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
    if (!error && isStandardStream(path))
        return Output::text(document);
    if (!error)
        error = platform::replaceFileOfMachine(path, document, sync);
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
