#pragma once

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>

namespace wardlock::cli {

/// JSON as the command prints and reads it; objects keep the order of their members.
using Json = nlohmann::ordered_json;

/// How deep arrays and objects may be nested in what is read.
inline constexpr int deepestJson = 128;

/// Returns the value in one line, without the line feed. Control characters that a terminal would execute are
/// escaped as in JSON, "\u009b". Bytes that are not UTF-8 are replaced by U+FFFD.
std::string jsonLine(const Json& value);

/// Returns the value of a JSON text; none unless it is strict JSON: exactly one value, no comments, valid
/// UTF-8, bounded nesting, distinct keys in every object.
std::optional<Json> parseJson(std::string_view text);

} // namespace wardlock::cli
