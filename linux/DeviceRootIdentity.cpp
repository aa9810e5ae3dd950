#include "linux/DeviceRootIdentity.h"

#include "platform/foundation/DeviceRoot.h"

#include <charconv>
#include <cstdint>
#include <sys/stat.h>

namespace platform {

namespace {

void appendNumber(std::string& text, std::uint64_t number) {
    char digits[20];
    const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    text.append(digits, end);
}

} // namespace

std::string deviceRootIdentity() {
    const std::string root = deviceRoot();
    struct stat status {};
    if (stat(root.c_str(), &status) != 0)
        return "path:" + root;
    std::string identity;
    appendNumber(identity, status.st_dev);
    identity += ':';
    appendNumber(identity, status.st_ino);
    return identity;
}

} // namespace platform
