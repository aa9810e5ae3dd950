#include "linux/posix/FileReading.h"

#include "linux/posix/LastError.h"

#include <array>
#include <cerrno>
#include <unistd.h>
#include <utility>

namespace platform::posix {

namespace {

/// Stays in the processor's cache while it is compared.
constexpr std::size_t blockSize = std::size_t(16) << 10;

ssize_t readUninterrupted(int file, char* to, std::size_t room) {
    ssize_t count;
    do
        count = ::read(file, to, room);
    while (count < 0 && errno == EINTR);
    return count;
}

} // namespace

std::error_code readToEnd(int file, std::size_t expected, std::size_t maximum, std::string& bytes) {
    std::string read(expected + 1, '\0');
    std::size_t length = 0;
    while (true) {
        const std::size_t room = read.size() - length;
        const ssize_t count = readUninterrupted(file, read.data() + length, room);
        if (count < 0)
            return lastError();
        if (count == 0)
            break;
        length += static_cast<std::size_t>(count);
        if (length > maximum)
            return std::make_error_code(std::errc::file_too_large);
        // There was room for more.
        if (length == expected && static_cast<std::size_t>(count) < room)
            break;
        if (length == read.size())
            read.resize(read.size() * 2);
    }
    read.resize(length);
    bytes = std::move(read);
    return {};
}

std::error_code compareToEnd(int file, std::string_view bytes, bool& same) {
    std::array<char, blockSize> block;
    ssize_t count;
    while ((count = readUninterrupted(file, block.data(), block.size())) > 0) {
        const std::string_view read(block.data(), static_cast<std::size_t>(count));
        if (!bytes.starts_with(read)) {
            same = false;
            return {};
        }
        bytes.remove_prefix(read.size());
        // There was room for more.
        if (bytes.empty() && read.size() < block.size())
            break;
    }
    if (count < 0)
        return lastError();
    same = bytes.empty();
    return {};
}

} // namespace platform::posix
