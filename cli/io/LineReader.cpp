#include "cli/io/LineReader.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>
#include <unistd.h>

namespace wardlock::cli {

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
    if (!wait_(descriptor_)) {
        buffer_.clear();
        return false;
    }
    std::array<char, 16384> room{};
    const ssize_t count = read(descriptor_, room.data(), room.size());
    if (count < 0 && errno != EINTR && errno != EAGAIN)
        throw std::system_error(errno, std::generic_category(), "read");
    if (count <= 0)
        return count != 0;
    const std::string_view bytes(room.data(), static_cast<std::size_t>(count));
    if (!edit_) {
        buffer_ += bytes;
        return true;
    }
    // A copy: what it calls may set another.
    const auto edit = edit_;
    const Edited edited = edit(bytes);
    buffer_ += edited.bytes;
    return !edited.ended;
}

} // namespace wardlock::cli
