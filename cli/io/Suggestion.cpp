#include "cli/io/Suggestion.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace wardlock::cli {

namespace {

/// How many typing errors lead from one word to the other (optimal string alignment distance).
std::size_t distance(std::string_view from, std::string_view to) {
    std::vector<std::vector<std::size_t>> errors(from.size() + 1, std::vector<std::size_t>(to.size() + 1));
    for (std::size_t i = 0; i <= from.size(); ++i) {
        for (std::size_t j = 0; j <= to.size(); ++j) {
            if (i == 0 || j == 0) {
                errors[i][j] = i + j;
                continue;
            }
            errors[i][j] = std::min({errors[i - 1][j] + 1, errors[i][j - 1] + 1,
                                     errors[i - 1][j - 1] + (from[i - 1] == to[j - 1] ? 0 : 1)});
            if (i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1])
                errors[i][j] = std::min(errors[i][j], errors[i - 2][j - 2] + 1);
        }
    }
    return errors[from.size()][to.size()];
}

} // namespace

std::string didYouMean(std::string_view given, std::span<const std::string_view> known) {
    constexpr std::size_t mostErrors = 2;
    std::string_view nearest;
    std::size_t fewest = mostErrors + 1;
    for (const std::string_view candidate : known) {
        // The distance is at least the difference of the lengths; this bounds the work.
        if (given.size() > candidate.size() + mostErrors)
            continue;
        const std::size_t errors = distance(given, candidate);
        // Most of a short word has to be right.
        if (errors < fewest && errors * 2 < candidate.size()) {
            nearest = candidate;
            fewest = errors;
        }
    }
    return nearest.empty() ? "" : "; did you mean '" + std::string(nearest) + "'?";
}

} // namespace wardlock::cli
