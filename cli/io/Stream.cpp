#include "cli/io/Stream.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <iterator>
#include <poll.h>
#include <unistd.h>

namespace wardlock::cli {

namespace {

/// The system would open the file of the descriptor again, from its beginning. It cannot where that is a
/// socket or has no name any more.
std::optional<int> descriptorNamed(std::string_view path) {
    constexpr std::string_view standard[] = {"/dev/stdin", "/dev/stdout", "/dev/stderr"};
    if (const auto* name = std::ranges::find(standard, path); name != std::end(standard))
        return static_cast<int>(name - standard);
    for (const std::string_view folder : {"/dev/fd/", "/proc/self/fd/"}) {
        if (!path.starts_with(folder))
            continue;
        const std::string_view digits = path.substr(folder.size());
        int number = 0;
        const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
        if (error == std::errc() && end == digits.data() + digits.size() && number >= 0)
            return number;
    }
    return std::nullopt;
}

/// Returns whether the call that has just failed is to be repeated, after waiting for it where needed.
bool isToBeRepeated(int descriptor, short ready) {
    if (errno == EAGAIN) {
        pollfd watched{descriptor, ready, 0};
        poll(&watched, 1, -1);
        return true;
    }
    return errno == EINTR;
}

std::error_code lastError() {
    return {errno, std::generic_category()};
}

} // namespace

std::optional<int> streamToRead(std::string_view path) {
    return path == "-" ? STDIN_FILENO : descriptorNamed(path);
}

std::optional<int> streamToWrite(std::string_view path) {
    return path == "-" ? STDOUT_FILENO : descriptorNamed(path);
}

std::error_code readToEnd(int descriptor, std::size_t largest, std::string& bytes) {
    constexpr std::size_t atOnce = std::size_t{64} << 10;
    while (bytes.size() <= largest) {
        const std::size_t before = bytes.size();
        bytes.resize(before + atOnce);
        const ssize_t count = read(descriptor, bytes.data() + before, atOnce);
        bytes.resize(before + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        if (count == 0)
            return {};
        if (count < 0 && !isToBeRepeated(descriptor, POLLIN))
            return lastError();
    }
    return std::make_error_code(std::errc::file_too_large);
}

std::error_code writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(descriptor, bytes.data(), bytes.size());
        if (count >= 0)
            bytes.remove_prefix(static_cast<std::size_t>(count));
        else if (!isToBeRepeated(descriptor, POLLOUT))
            return lastError();
    }
    return {};
}

} // namespace wardlock::cli
