// The text form of web pages, on anything that a server may send: always valid UTF-8 without control
// characters, and links to web pages only.

#include "linux/web/HtmlText.h"
#include "linux/web/PageEncoding.h"
#include "platform/base/Utf8.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

void check(bool condition) {
    if (!condition)
        std::abort();
}

constexpr std::size_t shortPage = 4096;

void checkText(std::string_view text) {
    check(platform::isValidUtf8(text));
    for (const char c : text)
        check(static_cast<unsigned char>(c) >= 0x20 || c == '\n');
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::string text = platform::web::decodedPage(bytes, "text/html");
    check(platform::isValidUtf8(text));
    checkText(platform::web::plainText(platform::web::decodedText(bytes, "text/plain")).text);
    const auto page = platform::web::htmlText(text, "http://host.example/folder/page?query");
    // Only a long page may be too complex.
    check(page || size > shortPage);
    if (!page)
        return 0;
    checkText(page->text);
    for (const platform::WebLink& link : page->links) {
        check(link.url.starts_with("http://") || link.url.starts_with("https://"));
        checkText(link.text);
    }
    return 0;
}
