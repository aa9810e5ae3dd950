#include "cli/command/NameMatch.h"

#include "cli/io/CommandError.h"
#include "cli/io/Suggestion.h"
#include "platform/text/CaseFolding.h"

#include <algorithm>

namespace wardlock::cli {

namespace {

std::string simplified(std::string_view name) {
    std::string folded;
    platform::appendCaseFolded(name, folded);
    std::ranges::replace(folded, '-', ' ');
    std::ranges::replace(folded, '_', ' ');
    return folded;
}

template <class Fits>
std::vector<std::size_t> matches(const std::vector<Named>& things, Fits fits) {
    std::vector<std::size_t> found;
    for (std::size_t index = 0; index < things.size(); ++index)
        if (std::ranges::any_of(things[index].names, fits))
            found.push_back(index);
    return found;
}

std::vector<std::size_t> exact(std::string_view name, const std::vector<Named>& things) {
    return matches(things, [name](const std::string& other) { return other == name; });
}

std::vector<std::size_t> similar(std::string_view name, const std::vector<Named>& things) {
    return matches(things, [wanted = simplified(name)](const std::string& other) {
        return simplified(other) == wanted;
    });
}

std::string listOf(const std::vector<std::size_t>& indexes, const std::vector<Named>& things) {
    std::string list;
    for (const std::size_t index : indexes)
        list += (list.empty() ? "" : ", ") + things[index].shown;
    return list;
}

[[noreturn]] void refuseUnknown(std::string_view name, const std::vector<Named>& things, Kind kind) {
    const std::string unknown = "no " + std::string(kind.one) + " '" + std::string(name) + '\'';
    if (const auto near = similar(name, things); !near.empty())
        throw CommandError(ExitCode::Failed, unknown + "; did you mean " + listOf(near, things) + '?');
    std::vector<std::string_view> known;
    for (const Named& thing : things)
        known.insert(known.end(), thing.names.begin(), thing.names.end());
    throw CommandError(ExitCode::Failed, unknown + didYouMean(name, known));
}

} // namespace

std::size_t indexOfNamed(std::string_view name, const std::vector<Named>& things, Kind kind,
                         Spelling spelling) {
    auto found = exact(name, things);
    if (found.empty() && spelling == Spelling::Similar)
        found = similar(name, things);
    if (found.empty())
        refuseUnknown(name, things, kind);
    if (found.size() == 1)
        return found.front();
    throw CommandError(ExitCode::Failed, '\'' + std::string(name) + "' matches " +
                                             std::to_string(found.size()) + ' ' + std::string(kind.several) +
                                             ": " + listOf(found, things));
}

} // namespace wardlock::cli
