#include "cli/io/Arguments.h"

#include "cli/io/CommandError.h"
#include "cli/io/Suggestion.h"

#include <algorithm>

namespace wardlock::cli {

namespace {

[[noreturn]] void refuse(std::string_view option, std::string_view why) {
    throw CommandError(ExitCode::WrongUsage, "option '" + std::string(option) + "' " + std::string(why));
}

[[noreturn]] void refuseUnknown(std::string_view name, std::span<const Option> options) {
    // The caller has the option that every verb takes.
    std::vector<std::string_view> known{"--help"};
    for (const Option& option : options)
        known.push_back(option.name);
    throw CommandError(ExitCode::WrongUsage,
                       "unknown option '" + std::string(name) + '\'' + didYouMean(name, known));
}

bool isNegativeNumber(std::string_view word) {
    return word == "-inf" || (word.size() > 1 && (word[1] == '.' || (word[1] >= '0' && word[1] <= '9')));
}

bool isOption(std::string_view word) {
    return word.size() > 1 && word[0] == '-' && !isNegativeNumber(word);
}

} // namespace

Arguments::Arguments(std::span<const std::string_view> words, std::span<const Option> options) {
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (words[i] == "--") {
            operands_.insert(operands_.end(), words.begin() + static_cast<std::ptrdiff_t>(i) + 1,
                             words.end());
            return;
        }
        if (!isOption(words[i])) {
            operands_.push_back(words[i]);
            continue;
        }
        const std::size_t equals = words[i].starts_with("--") ? words[i].find('=') : std::string_view::npos;
        const std::string_view name = words[i].substr(0, equals);
        const auto option = std::ranges::find(options, name, &Option::name);
        if (option == options.end())
            refuseUnknown(name, options);
        if (option->value.empty()) {
            if (equals != std::string_view::npos)
                refuse(name, "takes no value");
            options_[option->name] = {};
        } else if (equals != std::string_view::npos) {
            options_[option->name] = words[i].substr(equals + 1);
        } else if (i + 1 < words.size()) {
            options_[option->name] = words[++i];
        } else {
            refuse(name, "needs a value");
        }
    }
}

std::optional<std::string_view> Arguments::value(std::string_view option) const {
    const auto found = options_.find(option);
    return found == options_.end() ? std::nullopt : std::optional(found->second);
}

} // namespace wardlock::cli
