#pragma once

#include "platform/ui/UIWebView.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform::web {

/// What can be read of a page: its text, and where its links lead.
struct PageText {
    std::string text;
    std::vector<WebLink> links;
};

/// The text of an HTML page in UTF-8, read by the rules of HTML5: blocks on lines of their own, white space
/// as a browser shows it, "[1]" behind the first link and so on. What a browser does not show is left out:
/// scripts and styles, what is hidden, and what stands in for frames and scripts. No control characters but
/// line feeds. `url`: where the page was found, for its relative links; only links to web pages count, the
/// first thousand. Nothing for a page that is too complex to be read.
std::optional<PageText> htmlText(std::string_view html, const std::string& url);

/// The same for a page that is plain text.
PageText plainText(std::string_view text);

} // namespace platform::web
