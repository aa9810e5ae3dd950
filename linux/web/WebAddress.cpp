#include "linux/web/WebAddress.h"

#include <algorithm>

namespace platform::web {
namespace {

constexpr std::size_t longestAddress = 8000;

/// As browsers read an attribute: blanks around it and line ends within it do not count.
std::string trimmed(std::string_view link) {
    const auto isBlank = [](char c) { return static_cast<unsigned char>(c) <= 0x20; };
    const auto begin = std::ranges::find_if_not(link, isBlank);
    const auto end = std::find_if_not(link.rbegin(), std::make_reverse_iterator(begin), isBlank).base();
    std::string text(begin, end);
    std::erase_if(text, [](char c) { return c == '\t' || c == '\n' || c == '\r'; });
    return text;
}

} // namespace

WebAddress::WebAddress(const std::string& url) {
    if (!curl().error.empty() || url.size() > longestAddress)
        return;
    base_.reset(curl().url());
    if (curl().urlSet(base_.get(), CURLUPART_URL, url.c_str(), 0))
        base_ = nullptr;
}

std::string WebAddress::of(std::string_view link) const {
    if (!base_ || link.size() > longestAddress)
        return {};
    const std::string text = trimmed(link);
    const std::unique_ptr<CURLU, Release> url(curl().urlDup(base_.get()));
    if (text.empty() || text.starts_with('#') ||
        curl().urlSet(url.get(), CURLUPART_URL, text.c_str(), CURLU_URLENCODE))
        return {};
    char* whole = nullptr;
    if (curl().urlGet(url.get(), CURLUPART_URL, &whole, 0))
        return {};
    std::string address(whole);
    curl().free(whole);
    const bool isWeb = address.starts_with("http://") || address.starts_with("https://");
    return isWeb && address.size() <= longestAddress ? address : std::string();
}

} // namespace platform::web
