#pragma once

#include <cerrno>
#include <system_error>

namespace platform::posix {

/// Returns the error of the system call that has just failed.
inline std::error_code lastError() {
    return {errno, std::generic_category()};
}

} // namespace platform::posix
