#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace wardlock::cli {

/// An option a verb takes: "--json", "--sync MODE", "-o OUT".
struct Option {
    std::string_view name;
    /// The placeholder of its value in the help; empty for an option that takes none.
    std::string_view value;
    std::string_view help;
    /// Whether the verb needs it.
    bool required = false;
};

/// The words after a verb, parsed into options and operands. "--name=value" and "--name value" are the same,
/// "--" ends the options, and a negative number is an operand.
class Arguments {
public:
    /// Throws CommandError(WrongUsage) for an option that is unknown, lacks its value, or has a value but
    /// takes none.
    Arguments(std::span<const std::string_view> words, std::span<const Option> options);

    bool has(std::string_view option) const { return options_.contains(option); }
    /// Returns the option's last value; none when it was not given.
    std::optional<std::string_view> value(std::string_view option) const;

    const std::vector<std::string_view>& operands() const { return operands_; }
    std::string_view operand(std::size_t index) const { return operands_.at(index); }

private:
    std::map<std::string_view, std::string_view> options_;
    std::vector<std::string_view> operands_;
};

} // namespace wardlock::cli
