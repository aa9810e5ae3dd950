#pragma once

#include <unistd.h>
#include <utility>

namespace platform {

/// A file descriptor that is closed at the end of its scope; a negative one is none.
class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() {
        if (number_ >= 0)
            ::close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int number() const { return number_; }
    int release() { return std::exchange(number_, -1); }

private:
    int number_;
};

} // namespace platform
