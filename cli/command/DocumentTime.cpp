#include "cli/command/DocumentTime.h"

#include "platform/files/DeviceRoot.h"
#include "settings/Constants.h"
#include "settings/DocumentPath.h"

#include <array>
#include <ctime>
#include <sys/stat.h>

namespace wardlock::cli {

namespace {

std::string formatted(const std::tm& time, const char* format) {
    std::array<char, 32> text{};
    return {text.data(), std::strftime(text.data(), text.size(), format, &time)};
}

} // namespace

DocumentTime timeOfDocument() {
    struct stat status {};
    if (stat(platform::pathOnDevice(documentPath(BundleIdentifier)).c_str(), &status) != 0)
        return std::nullopt;
    return std::chrono::sys_seconds(std::chrono::seconds(status.st_mtime));
}

std::string utcText(std::chrono::sys_seconds time) {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
    std::tm parts{};
    gmtime_r(&seconds, &parts);
    return formatted(parts, "%Y-%m-%dT%H:%M:%SZ");
}

std::string localText(std::chrono::sys_seconds time) {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
    std::tm parts{};
    localtime_r(&seconds, &parts);
    return formatted(parts, "%Y-%m-%d %H:%M:%S");
}

} // namespace wardlock::cli
