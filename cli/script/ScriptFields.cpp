#include "cli/script/ScriptFields.h"

#include "cli/io/Suggestion.h"
#include "cli/script/ScriptError.h"

#include <algorithm>

namespace wardlock::cli {

namespace {

constexpr double largestIndex = 1e9;

[[noreturn]] void refuse(std::string_view name, std::string_view why) {
    throw ScriptError('\'' + std::string(name) + "' " + std::string(why));
}

std::size_t asIndex(std::string_view name, const Json& value) {
    if (!value.is_number_integer() || value.get<double>() < 0 || value.get<double>() > largestIndex)
        refuse(name, "must be an integer, 0 or more");
    return value.get<std::size_t>();
}

std::string asText(std::string_view name, const Json& value) {
    if (!value.is_string())
        refuse(name, "must be a string");
    std::string text = value.get<std::string>();
    if (text.find('\0') != std::string::npos)
        refuse(name, "must not contain a null character");
    return text;
}

double asNumber(std::string_view name, const Json& value) {
    if (!value.is_number())
        refuse(name, "must be a number");
    return value.get<double>();
}

} // namespace

void ScriptFields::allowOnly(std::initializer_list<std::string_view> names) const {
    for (const auto& [name, value] : command_.items())
        if (name != "do" && name != "id" && std::ranges::find(names, name) == names.end())
            throw ScriptError("unknown member '" + name + '\'' +
                              didYouMean(name, {names.begin(), names.size()}));
}

const Json* ScriptFields::find(std::string_view name) const {
    const auto found = command_.find(name);
    return found == command_.end() ? nullptr : &*found;
}

const Json& ScriptFields::needed(std::string_view name) const {
    const Json* value = find(name);
    if (!value)
        throw ScriptError("missing member '" + std::string(name) + '\'');
    return *value;
}

std::string ScriptFields::text(std::string_view name) const {
    return asText(name, needed(name));
}

std::optional<std::string> ScriptFields::optionalText(std::string_view name) const {
    const Json* value = find(name);
    return value ? std::optional(asText(name, *value)) : std::nullopt;
}

double ScriptFields::number(std::string_view name) const {
    return asNumber(name, needed(name));
}

std::optional<double> ScriptFields::optionalNumber(std::string_view name) const {
    const Json* value = find(name);
    return value ? std::optional(asNumber(name, *value)) : std::nullopt;
}

std::optional<std::size_t> ScriptFields::optionalIndex(std::string_view name) const {
    const Json* value = find(name);
    return value ? std::optional(asIndex(name, *value)) : std::nullopt;
}

bool ScriptFields::boolean(std::string_view name) const {
    const Json& value = needed(name);
    if (!value.is_boolean())
        refuse(name, "must be true or false");
    return value.get<bool>();
}

std::vector<std::string> ScriptFields::texts(std::string_view name) const {
    const Json& value = needed(name);
    if (!value.is_array())
        return {asText(name, value)};
    std::vector<std::string> texts;
    for (const auto& element : value)
        texts.push_back(asText(name, element));
    return texts;
}

} // namespace wardlock::cli
