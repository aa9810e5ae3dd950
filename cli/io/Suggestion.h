#pragma once

#include <span>
#include <string>
#include <string_view>

namespace wardlock::cli {

/// Returns "; did you mean 'status'?" for the word in `known` that is nearest to `given`. Empty unless at
/// most two typing errors, and fewer than half of the word, lie between them. A typing error is a character
/// too many, too few, wrong, or exchanged with the next.
std::string didYouMean(std::string_view given, std::span<const std::string_view> known);

} // namespace wardlock::cli
