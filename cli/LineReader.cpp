#include "cli/LineReader.h"

#include "platform/foundation/MainLoop.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <poll.h>
#include <system_error>
#include <unistd.h>

namespace wardlock::cli {

void waitForMainLoop(std::chrono::milliseconds timeout) {
    pollfd watched{platform::MainLoop::shared().descriptor(), POLLIN, 0};
    constexpr std::int64_t longest = 60'000;
    poll(&watched, 1, static_cast<int>(std::clamp<std::int64_t>(timeout.count(), 0, longest)));
}

std::optional<std::string> LineReader::next() {
    tooLong_ = false;
    while (true) {
        const std::size_t end = buffer_.find('\n');
        if (end != std::string::npos) {
            std::string line = take(end);
            buffer_.erase(0, 1);
            return line;
        }
        if (ended_ && buffer_.empty())
            return std::nullopt;
        if (ended_)
            return take(buffer_.size());
        if (buffer_.size() > longestLine) {
            tooLong_ = true;
            buffer_.resize(longestLine);
        }
        ended_ = !readMore();
    }
}

std::string LineReader::take(std::size_t length) {
    std::string line = buffer_.substr(0, std::min(length, longestLine));
    tooLong_ = tooLong_ || length > longestLine;
    buffer_.erase(0, length);
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    return line;
}

bool LineReader::readMore() {
    std::array<pollfd, 2> waits{pollfd{descriptor_, POLLIN, 0},
                                pollfd{platform::MainLoop::shared().descriptor(), POLLIN, 0}};
    if (poll(waits.data(), waits.size(), -1) < 0 && errno != EINTR)
        throw std::system_error(errno, std::generic_category(), "poll");
    if (waits[1].revents != 0)
        process_();
    if (waits[0].revents == 0)
        return true;
    std::array<char, 16384> room{};
    const ssize_t count = read(descriptor_, room.data(), room.size());
    if (count < 0 && errno != EINTR)
        throw std::system_error(errno, std::generic_category(), "read");
    if (count > 0)
        buffer_.append(room.data(), static_cast<std::size_t>(count));
    return count != 0;
}

} // namespace wardlock::cli
