#include "linux/notifications/DeviceRootIdentity.h"

#include "platform/files/DeviceRoot.h"

#include <charconv>
#include <chrono>
#include <cstdint>
#include <optional>
#include <sys/stat.h>
#include <utility>

namespace platform::notifications {

namespace {

void appendNumber(std::string& text, std::uint64_t number) {
    char digits[20];
    const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    text.append(digits, end);
}

/// The file system is queried again after this time. It is long enough for a burst of notifications, where a
/// query takes half as long as sending. It is short enough for a root that was removed and created again.
constexpr std::chrono::seconds validity{1};

struct KnownIdentity {
    std::string root;
    std::string identity;
    std::chrono::steady_clock::time_point expiry;
};

/// Returns nothing for a folder that does not exist.
std::optional<std::string> identityOfFolder(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0)
        return std::nullopt;
    std::string identity;
    appendNumber(identity, status.st_dev);
    identity += ':';
    appendNumber(identity, status.st_ino);
    return identity;
}

} // namespace

std::string deviceRootIdentity() {
    static KnownIdentity known;
    std::string root = deviceRoot();
    const auto now = std::chrono::steady_clock::now();
    if (root == known.root && now < known.expiry)
        return known.identity;
    auto identity = identityOfFolder(root);
    if (!identity)
        return "path:" + root;
    known = {std::move(root), *std::move(identity), now + validity};
    return known.identity;
}

} // namespace platform::notifications
