#pragma once

#include "platform/values/Value.h"

#include <string>
#include <string_view>
#include <vector>

namespace wardlock::bench {

/// Returns a document of `accounts` accounts, each the default one with a name of its own; the first one is
/// enabled.
platform::Dictionary sampleDocument(std::size_t accounts);

/// Reads a whole file; ends the process when it cannot.
std::string fileBytes(const std::string& path);

/// Returns the keys of the booleans in the first account record of a document, in the record's order.
std::vector<std::string> booleanKeys(const platform::Dictionary& document);

/// Returns the boolean that read-modify-write changes: one in the middle of the first account record.
std::string changedKey(const platform::Dictionary& document);

/// Sets a boolean of the first account record, as the pages do: a copy of the record in a copy of the array.
void setFirstAccount(platform::MutableDictionary& document, std::string_view key, bool value);

/// Returns the boolean in the first account record of `accounts`.
bool firstAccountBool(const platform::Value* accounts, std::string_view key);

} // namespace wardlock::bench
