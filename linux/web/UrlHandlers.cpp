#include "linux/web/UrlHandlers.h"

#include "linux/posix/Program.h"

#include <algorithm>
#include <cstdlib>

namespace platform::web {

namespace {

constexpr std::chrono::seconds timeout{3};

bool isLetter(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

bool belongsToScheme(char byte) {
    return isLetter(byte) || (byte >= '0' && byte <= '9') || byte == '+' || byte == '-' || byte == '.';
}

bool isSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value && *value;
}

} // namespace

std::string schemeOf(std::string_view url) {
    const std::size_t end = url.find(':');
    if (end == std::string_view::npos || end == 0 || !isLetter(url[0]))
        return {};
    std::string scheme(url.substr(0, end));
    if (!std::ranges::all_of(scheme, belongsToScheme))
        return {};
    for (char& letter : scheme)
        if (letter >= 'A' && letter <= 'Z')
            letter = static_cast<char>(letter - 'A' + 'a');
    return scheme;
}

bool schemeHasHandler(std::string_view scheme) {
    const std::string type = "x-scheme-handler/" + std::string(scheme);
    const auto result = posix::runProgram({"xdg-mime", "query", "default", type}, timeout);
    return result && result->exitCode == 0 && result->output.find(".desktop") != std::string::npos;
}

bool hasDisplay() {
    return isSet("WAYLAND_DISPLAY") || isSet("DISPLAY");
}

} // namespace platform::web
