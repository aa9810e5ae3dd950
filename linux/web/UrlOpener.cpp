#include "linux/posix/Program.h"
#include "linux/web/UrlHandlers.h"
#include "platform/services/SystemURLOpener.h"

#include <algorithm>

namespace platform {

namespace {

constexpr std::chrono::milliseconds usualTimeout{1500};

bool isPlain(std::string_view url) {
    return std::ranges::all_of(url, [](char byte) { return byte > ' ' && byte != 0x7F; });
}

} // namespace

bool openURLOnSystem(std::string_view url) {
    return openURLOnSystem(url, usualTimeout);
}

bool openURLOnSystem(std::string_view url, std::chrono::milliseconds timeout) {
    const std::string scheme = web::schemeOf(url);
    if (scheme.empty() || !isPlain(url) || !web::hasDisplay() || !web::schemeHasHandler(scheme))
        return false;
    const auto code = posix::startProgram({"xdg-open", std::string(url)}, timeout);
    return code && *code == 0;
}

} // namespace platform
