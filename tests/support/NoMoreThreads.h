#pragma once

#include <pthread.h>

namespace wardlock::test {

/// No thread can be started in this process during the life of this object.
class NoMoreThreads {
public:
    NoMoreThreads();
    ~NoMoreThreads();
    NoMoreThreads(const NoMoreThreads&) = delete;
    NoMoreThreads& operator=(const NoMoreThreads&) = delete;

private:
    pthread_attr_t before_{};
};

} // namespace wardlock::test
