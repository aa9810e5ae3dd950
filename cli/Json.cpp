#include "cli/Json.h"

#include <nlohmann/json.hpp>
#include <set>
#include <vector>

namespace wardlock::cli {

std::string jsonLine(const Json& value) {
    return value.dump(-1, ' ', false, Json::error_handler_t::replace);
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
        // An opening bracket is told with the depth at which it stands.
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
