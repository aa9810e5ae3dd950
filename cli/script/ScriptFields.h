#pragma once

#include "cli/io/Json.h"

#include <cstddef>
#include <initializer_list>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wardlock::cli {

/// The members of one command, read as the expected types. Functions throw ScriptError, which names the
/// member, for a missing or unfit value.
class ScriptFields {
public:
    /// `command` is an object and outlives this.
    explicit ScriptFields(const Json& command) : command_(command) {}

    /// Throws ScriptError for a member that the command does not know: a misspelt one must not be ignored.
    void allowOnly(std::initializer_list<std::string_view> names) const;

    bool has(std::string_view name) const { return find(name) != nullptr; }
    /// Returns null when there is no such member.
    const Json* find(std::string_view name) const;
    std::string text(std::string_view name) const;
    std::optional<std::string> optionalText(std::string_view name) const;
    double number(std::string_view name) const;
    std::optional<double> optionalNumber(std::string_view name) const;
    std::optional<std::size_t> optionalIndex(std::string_view name) const;
    bool boolean(std::string_view name) const;
    /// Returns the elements of a list of strings; one element for a string.
    std::vector<std::string> texts(std::string_view name) const;

private:
    const Json& needed(std::string_view name) const;

    const Json& command_;
};

} // namespace wardlock::cli
