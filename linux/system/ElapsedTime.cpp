#include "platform/services/ElapsedTime.h"

#include <ctime>

namespace platform {

std::chrono::nanoseconds elapsedTime() {
    std::timespec time{};
    if (clock_gettime(CLOCK_BOOTTIME, &time) != 0)
        return std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

} // namespace platform
