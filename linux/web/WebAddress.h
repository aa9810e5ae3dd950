#pragma once

#include "linux/web/CurlLibrary.h"

#include <memory>
#include <string>
#include <string_view>

namespace platform::web {

/// The address of a page, and where its links lead from there.
class WebAddress {
public:
    /// `url` is absolute; the links of a page at a relative one lead nowhere.
    explicit WebAddress(const std::string& url);

    /// Returns the absolute address that `link` names, over http or https. Empty for any other, for a
    /// position within the page, and for more than eight thousand characters.
    std::string of(std::string_view link) const;

private:
    struct Release {
        void operator()(CURLU* url) const { curl().urlCleanup(url); }
    };
    std::unique_ptr<CURLU, Release> base_;
};

} // namespace platform::web
