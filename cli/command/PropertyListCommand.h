#pragma once

#include "platform/files/Sync.h"
#include "platform/values/Value.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace wardlock::cli {

/// Whether nothing stands at the path.
bool isMissing(const std::string& path);

/// Far more than a property list of settings has, and less than the memory of any machine.
inline constexpr std::size_t largestFile = std::size_t{256} << 20;

/// The bytes of a file at a path of this machine, `largest` at most. Throws CommandError (Failed) with the
/// reason.
std::string fileBytes(const std::string& path, std::size_t largest);

/// The property list in the file. Throws CommandError: Failed when it cannot be read, NotAPropertyList.
platform::Value propertyListInFile(const std::string& path, std::size_t largest = largestFile);

/// Replaces the file by the value's XML form in one step. Throws CommandError (Failed) unless it is stored,
/// as where it would exceed the bounds of a document.
void storePropertyList(const platform::Value& value, const std::string& path, platform::Sync sync);

/// A value given in words: TYPE bool, int, real or string. Throws CommandError (WrongUsage) for an unknown
/// type, for a text that is no such value, and for an integer outside -2^63...2^64-1.
platform::Value valueFromText(std::string_view type, std::string_view text);

/// Throws CommandError (WrongUsage) when the text is no UTF-8: no property list could hold it.
void requireText(std::string_view text);

} // namespace wardlock::cli
