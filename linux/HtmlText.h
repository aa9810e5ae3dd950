#pragma once

#include "platform/ui/UIWebView.h"

#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// What can be read of a page: its text, and where its links lead.
struct PageText {
    std::string text;
    std::vector<WebLink> links;
};

/// The text of an HTML page in UTF-8: blocks on lines of their own, white space as a browser shows it,
/// scripts and styles left out, "[1]" behind the first link and so on. No control characters but line feeds.
/// `url`: where the page was found, for its relative links; only links to web pages count.
PageText htmlText(std::string_view html, const std::string& url);

/// The same for a page that is plain text.
PageText plainText(std::string_view text);

} // namespace platform
