#include "linux/system/LinuxDeviceInformation.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sys/utsname.h>

namespace platform::system {

namespace {

std::string contents(const char* path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::string unquoted(std::string_view text) {
    if (text.size() >= 2 && (text.front() == '"' || text.front() == '\'') && text.back() == text.front())
        text = text.substr(1, text.size() - 2);
    return std::string(text);
}

} // namespace

std::string versionInRelease(std::string_view text) {
    constexpr std::string_view name = "VERSION_ID=";
    while (!text.empty()) {
        const auto line = text.substr(0, text.find('\n'));
        if (line.starts_with(name))
            return unquoted(line.substr(name.size()));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
    }
    return {};
}

CGRect LinuxDeviceInformation::screenBounds() {
    const auto [shorter, longer] = std::minmax(screenSize_.width, screenSize_.height);
    return {{}, {shorter, longer}};
}

long LinuxDeviceInformation::statusBarOrientation() {
    return screenSize_.width > screenSize_.height ? UIInterfaceOrientationLandscapeLeft
                                                  : UIInterfaceOrientationPortrait;
}

std::string LinuxDeviceInformation::systemVersion() {
    for (const char* path : {"/etc/os-release", "/usr/lib/os-release"})
        if (auto version = versionInRelease(contents(path)); !version.empty())
            return version;
    utsname names{};
    return uname(&names) == 0 ? names.release : "";
}

std::string LinuxDeviceInformation::machine() {
    utsname names{};
    return uname(&names) == 0 ? names.machine : "";
}

} // namespace platform::system

namespace platform {

void setScreenSize(CGSize size) {
    system::machineInformation().becomeScreenSize(size);
}

void setScreenScale(double pixelsPerPoint) {
    system::machineInformation().becomeScreenScale(pixelsPerPoint);
}

void setUserInterfaceIdiom(long idiom) {
    system::machineInformation().becomeIdiom(idiom);
}

} // namespace platform
