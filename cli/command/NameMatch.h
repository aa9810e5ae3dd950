#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace wardlock::cli {

/// A thing that a user can name in several ways.
struct Named {
    std::vector<std::string> names;
    /// How an error shows it: a name that fits no other thing.
    std::string shown;
};

/// What the things are called, for errors: "account", "accounts".
struct Kind {
    std::string_view one;
    std::string_view several;
};

enum class Spelling {
    Exact,
    /// Without an exact match, case is ignored, and a dash or an underscore stands for a blank.
    Similar,
};

/// Returns the index of the thing that has the name. Throws CommandError (Failed) when the name fits none or
/// several; the error lists those, or the things with a similar name.
std::size_t indexOfNamed(std::string_view name, const std::vector<Named>& things, Kind kind,
                         Spelling spelling);

} // namespace wardlock::cli
