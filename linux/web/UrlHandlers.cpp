#include "linux/web/UrlHandlers.h"

#include "linux/posix/Program.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <map>
#include <mutex>

namespace platform::web {

namespace {

constexpr std::chrono::seconds timeout{3};
constexpr std::chrono::seconds remembered{30};

/// The schemes for which a program was found, and when.
class FoundHandlers {
public:
    bool has(const std::string& scheme) {
        const std::lock_guard lock(guard_);
        const auto found = times_.find(scheme);
        return found != times_.end() && std::chrono::steady_clock::now() - found->second < remembered;
    }
    void add(const std::string& scheme) {
        const std::lock_guard lock(guard_);
        times_[scheme] = std::chrono::steady_clock::now();
    }

private:
    std::mutex guard_;
    std::map<std::string, std::chrono::steady_clock::time_point> times_;
};

/// Never destroyed: a query may end late.
FoundHandlers& foundHandlers() {
    static auto* const handlers = new FoundHandlers;
    return *handlers;
}

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

bool schemeHasHandler(const std::string& scheme) {
    if (foundHandlers().has(scheme))
        return true;
    const auto result =
        posix::runProgram({"xdg-mime", "query", "default", "x-scheme-handler/" + scheme}, timeout);
    const bool found =
        result && result->exitCode == 0 && result->output.find(".desktop") != std::string::npos;
    if (found)
        foundHandlers().add(scheme);
    return found;
}

bool hasDisplay() {
    return isSet("WAYLAND_DISPLAY") || isSet("DISPLAY");
}

} // namespace platform::web
