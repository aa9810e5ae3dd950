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

std::vector<std::size_t> fitting(std::string_view name, const std::vector<Named>& things) {
    auto found = matches(things, [name](const std::string& other) { return other == name; });
    if (found.empty())
        found = matches(things, [wanted = simplified(name)](const std::string& other) {
            return simplified(other) == wanted;
        });
    return found;
}

[[noreturn]] void refuseUnknown(std::string_view name, const std::vector<Named>& things, Kind kind) {
    std::vector<std::string_view> known;
    for (const Named& thing : things)
        known.insert(known.end(), thing.names.begin(), thing.names.end());
    throw CommandError(ExitCode::Failed, "no " + std::string(kind.one) + " '" + std::string(name) + '\'' +
                                             didYouMean(name, known));
}

} // namespace

std::size_t indexOfNamed(std::string_view name, const std::vector<Named>& things, Kind kind) {
    const auto found = fitting(name, things);
    if (found.empty())
        refuseUnknown(name, things, kind);
    if (found.size() == 1)
        return found.front();
    std::string list;
    for (const std::size_t index : found)
        list += (list.empty() ? "" : ", ") + things[index].shown;
    throw CommandError(ExitCode::Failed, '\'' + std::string(name) + "' matches " +
                                             std::to_string(found.size()) + ' ' + std::string(kind.several) +
                                             ": " + list);
}

} // namespace wardlock::cli
