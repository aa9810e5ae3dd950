#pragma once

#include "platform/ui/UIWebView.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace wardlock::cli {

/// Where a link stands in a line of a web page's text: its number in brackets, with the link's own text
/// before it where that is on the same line.
struct LinkSpan {
    /// From 1.
    std::size_t number = 0;
    /// Bytes of the line.
    std::size_t begin = 0;
    std::size_t end = 0;
};

std::vector<LinkSpan> linkSpans(std::string_view line, const std::vector<platform::WebLink>& links);

} // namespace wardlock::cli
