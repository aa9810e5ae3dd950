// The text form of web pages, on whatever a server may send: always valid UTF-8 without control characters,
// and links to web pages only.

#include "linux/HtmlText.h"
#include "linux/TextEncoding.h"
#include "platform/foundation/Utf8.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

void check(bool holds) {
    if (!holds)
        std::abort();
}

void checkText(std::string_view text) {
    check(platform::isValidUtf8(text));
    for (const char c : text)
        check(static_cast<unsigned char>(c) >= 0x20 || c == '\n');
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::string text = platform::decodedPage(bytes, "text/html");
    check(platform::isValidUtf8(text));
    checkText(platform::plainText(text).text);
    const platform::PageText page = platform::htmlText(text, "http://host.example/folder/page?query");
    checkText(page.text);
    for (const platform::WebLink& link : page.links)
        check(link.url.starts_with("http://") || link.url.starts_with("https://"));
    return 0;
}
