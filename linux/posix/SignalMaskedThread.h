#pragma once

#include <functional>
#include <thread>

namespace platform::posix {

/// Starts a thread that takes none of the process's signals: they are the host's, and would interrupt the
/// thread's waits. Not joinable when the system provides no more threads.
std::thread startSignalMaskedThread(std::function<void()> work);

} // namespace platform::posix
