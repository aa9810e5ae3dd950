#pragma once

#include <unistd.h>
#include <utility>

namespace platform::posix {

/// Owns a file descriptor; -1 for none.
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int descriptor) : descriptor_(descriptor) {}
    FileDescriptor(FileDescriptor&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        if (this != &other) {
            reset();
            descriptor_ = std::exchange(other.descriptor_, -1);
        }
        return *this;
    }
    ~FileDescriptor() { reset(); }

    int get() const { return descriptor_; }
    explicit operator bool() const { return descriptor_ >= 0; }
    /// Returns the descriptor without closing it; the caller owns it.
    int release() { return std::exchange(descriptor_, -1); }
    void reset() {
        if (descriptor_ >= 0)
            ::close(release());
    }

private:
    int descriptor_ = -1;
};

} // namespace platform::posix
