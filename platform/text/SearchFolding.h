#pragma once

/// The form of texts in which a user's search compares them: without regard to letter case, accents and
/// language. Letters that people type as two have two: "ß" becomes "ss", "æ" becomes "ae". Texts are UTF-8;
/// bytes that are not count as they are. Any thread.

#include "platform/base/Export.h"

#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// Returns the form in which a text is searched.
WARDLOCK_API std::string searchFolded(std::string_view text);

/// What a user typed to find something: words, in any order.
class WARDLOCK_API SearchWords {
public:
    explicit SearchWords(std::string_view typed);

    /// Whether nothing but blanks was typed.
    bool empty() const { return words_.empty(); }
    /// Returns whether every word occurs in a text that searchFolded() returned.
    bool allIn(std::string_view folded) const;
    /// Returns whether one of the words occurs in it.
    bool anyIn(std::string_view folded) const;

    bool operator==(const SearchWords&) const = default;

private:
    std::vector<std::string> words_;
};

} // namespace platform
