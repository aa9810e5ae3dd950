#include "linux/web/DesktopURLOpener.h"

#include "linux/posix/Program.h"
#include "linux/web/UrlHandlers.h"

#include <algorithm>

namespace platform::web {

namespace {

bool isPlain(std::string_view url) {
    return std::ranges::all_of(url, [](char byte) { return byte > ' ' && byte != 0x7F; });
}

} // namespace

bool DesktopURLOpener::openURL(std::string_view url) {
    const std::string scheme = schemeOf(url);
    if (scheme.empty() || !isPlain(url) || !hasDisplay() || !schemeHasHandler(scheme))
        return false;
    const auto code = posix::startProgram({"xdg-open", std::string(url)}, timeout_);
    return code && *code == 0;
}

} // namespace platform::web
