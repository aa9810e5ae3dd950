#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace platform {

/// One tag of an HTML text, as far as its text form needs it.
struct HtmlTag {
    /// In lower case; empty for a comment, a declaration, or what is no tag's name.
    std::string name;
    bool isEnd = false;
    /// "href" of a link and "alt" of a picture, references replaced.
    std::string href;
    std::string alt;

    /// The tag at `position`, where a "<" stands; `position` moves behind it. An unfinished one takes the
    /// rest.
    static HtmlTag read(std::string_view html, std::size_t& position);
};

} // namespace platform
