#pragma once

#include "platform/ui/UIWebView.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform::web {

/// The readable content of a page: its text, as a whole and in blocks, and where its links lead.
struct PageText {
    std::string text;
    std::vector<WebLink> links;
    std::vector<WebBlock> blocks;
};

/// Returns the text of an HTML page in UTF-8, read by the rules of HTML5:
/// - blocks are on lines of their own, and white space is as a browser shows it;
/// - in the whole text "• " precedes an item of a list, and "[1]" follows the first link, and so on;
/// - what a browser does not show is left out: scripts, styles, hidden elements, fallbacks for frames and
///   scripts;
/// - no control characters but line feeds.
///
/// `url` is the address of the page, for its relative links. Only the first thousand links to web pages
/// count. Returns nothing for a page that is too complex to read.
std::optional<PageText> htmlText(std::string_view html, const std::string& url);

/// The same for a page that is plain text.
PageText plainText(std::string_view text);

} // namespace platform::web
