#include "cli/io/Json.h"

#include "platform/base/Utf8.h"
#include "shell/screen/EscapedText.h"

#include <nlohmann/json.hpp>
#include <set>
#include <vector>

namespace wardlock::cli {

namespace {

/// Most bytes, which are passed over quickly.
bool isPlain(char byte) {
    return byte >= ' ' && byte <= '~';
}

void appendEscape(std::string& text, char32_t character) {
    constexpr std::string_view digits = "0123456789abcdef";
    text += "\\u";
    for (int shift = 12; shift >= 0; shift -= 4)
        text += digits[character >> shift & 15];
}

} // namespace

std::string jsonLine(const Json& value) {
    const std::string text = value.dump(-1, ' ', false, Json::error_handler_t::replace);
    // JSON itself escapes only those up to U+001F. All of them are inside strings.
    std::string line;
    line.reserve(text.size());
    std::size_t copied = 0;
    for (std::size_t position = 0; position < text.size();) {
        if (isPlain(text[position])) {
            ++position;
            continue;
        }
        const auto decoded = platform::decodeUtf8(text, position);
        if (shell::isControl(decoded.character)) {
            line.append(text, copied, position - copied);
            appendEscape(line, decoded.character);
            copied = position + decoded.length;
        }
        position += decoded.length;
    }
    return line.append(text, copied);
}

std::optional<Json> parseJson(std::string_view text) {
    bool acceptable = true;
    std::vector<std::set<std::string>> keys;
    const auto inspect = [&](int depth, Json::parse_event_t event, Json& parsed) {
        if (event == Json::parse_event_t::object_start)
            keys.emplace_back();
        else if (event == Json::parse_event_t::object_end)
            keys.pop_back();
        else if (event == Json::parse_event_t::key)
            acceptable = keys.back().insert(parsed.get<std::string>()).second && acceptable;
        // The parser reports an opening bracket with the depth outside it.
        const bool opens =
            event == Json::parse_event_t::object_start || event == Json::parse_event_t::array_start;
        acceptable = acceptable && depth + opens <= deepestJson;
        return true;
    };
    Json value = Json::parse(text, inspect, false, false);
    if (!acceptable || value.is_discarded())
        return std::nullopt;
    return value;
}

} // namespace wardlock::cli
