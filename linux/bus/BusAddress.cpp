#include "linux/bus/BusAddress.h"

#include <charconv>
#include <cstdlib>
#include <string_view>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace platform::bus {

namespace {

const char* environmentVariable(const char* name) {
    const char* value = std::getenv(name);
    return value && *value ? value : nullptr;
}

/// Returns the run-time folder where it is a folder of this user: a shell of another user may have passed its
/// own on. In a folder that others can write to, the bus could be another user's.
std::string runtimeFolder() {
    const char* path = environmentVariable("XDG_RUNTIME_DIR");
    struct stat status {};
    if (!path || *path != '/' || stat(path, &status) != 0 || !S_ISDIR(status.st_mode) ||
        status.st_uid != geteuid() || (status.st_mode & (S_IWGRP | S_IWOTH)) != 0)
        return {};
    return path;
}

constexpr const char* privateFolderName = "/wardlock-bus";
constexpr const char* privateSocketName = "/bus";

/// A socket's name in the file system is short.
bool fitsSocket(const std::string& path) {
    return path.size() < sizeof(sockaddr_un::sun_path);
}

bool isSocket(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && S_ISSOCK(status.st_mode);
}

std::string folderBelowTmp() {
    char digits[20];
    const auto end = std::to_chars(digits, digits + sizeof digits, geteuid()).ptr;
    return std::string("/tmp") + privateFolderName + '-' + std::string(digits, end);
}

bool goesUnescaped(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           std::string_view("-_/.\\*").find(c) != std::string_view::npos;
}

} // namespace

std::string busAddressOfSocket(const std::string& path) {
    constexpr char hexDigits[] = "0123456789abcdef";
    std::string address = "unix:path=";
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        if (goesUnescaped(c))
            address += c;
        else
            address.append({'%', hexDigits[byte >> 4], hexDigits[byte & 15]});
    }
    return address;
}

BusAddress busAddress() {
    if (const char* named = environmentVariable("DBUS_SESSION_BUS_ADDRESS"))
        return {named, {}, true};
    const std::string runtime = runtimeFolder();
    if (!runtime.empty() && isSocket(runtime + "/bus"))
        return {busAddressOfSocket(runtime + "/bus"), {}, false};
    std::string folder = runtime + privateFolderName;
    if (runtime.empty() || !fitsSocket(folder + privateSocketName))
        folder = folderBelowTmp();
    return {busAddressOfSocket(folder + privateSocketName), folder, false};
}

} // namespace platform::bus
