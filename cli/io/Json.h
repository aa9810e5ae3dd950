#pragma once

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>

namespace wardlock::cli {

/// JSON as the command prints and reads it; objects keep the order of their members.
using Json = nlohmann::ordered_json;

/// How deep arrays and objects may stand inside each other in what is read.
inline constexpr int deepestJson = 128;

/// One line, without the line feed. Control characters that a terminal would obey have JSON's own escapes,
/// "\u009b". Bytes that are not UTF-8 are replaced by U+FFFD.
std::string jsonLine(const Json& value);

/// Strict: exactly one value, no comments, valid UTF-8, bounded nesting, every object's keys distinct. None
/// otherwise.
std::optional<Json> parseJson(std::string_view text);

} // namespace wardlock::cli
