#pragma once

#include "cli/io/CommandError.h"
#include "platform/files/Sync.h"
#include "platform/values/Value.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace wardlock::cli {

/// Reports that a file cannot be read, or not as a property list: "cannot read FILE: REASON".
class ReadError : public CommandError {
public:
    ReadError(ExitCode code, const std::string& path, const std::string& reason)
        : CommandError(code, "cannot read " + path + ": " + reason), reason_(reason) {}

    const std::string& reason() const { return reason_; }

private:
    std::string reason_;
};

/// Returns whether no file or folder exists at the path.
bool isMissing(const std::string& path);

/// Far more than a property list of settings has, and less than the memory of any machine.
inline constexpr std::size_t largestFile = std::size_t{256} << 20;

/// Returns the bytes of a file at a path of this machine, or of an open descriptor that it names ("-",
/// "/dev/stdin"), `largest` at most. Throws ReadError (Failed).
std::string fileBytes(const std::string& path, std::size_t largest);

/// Returns the property list in the file. Throws ReadError: Failed when the file cannot be read,
/// NotAPropertyList when it contains none.
platform::Value propertyListInFile(const std::string& path, std::size_t largest = largestFile);

/// Replaces the file by the value's XML form in one step; writes it to a descriptor. Throws CommandError
/// (Failed) when the form is not stored, for example because it exceeds the bounds of a document.
void storePropertyList(const platform::Value& value, const std::string& path, platform::Sync sync);

/// Returns the value that `text` represents as `type`: bool, int, real or string. Throws CommandError
/// (WrongUsage) for an unknown type, for a text that is not such a value, and for an integer outside
/// -2^63...2^64-1.
platform::Value valueFromText(std::string_view type, std::string_view text);

/// Throws CommandError (WrongUsage) when the text is not UTF-8: no property list could store it.
void requireText(std::string_view text);

} // namespace wardlock::cli
