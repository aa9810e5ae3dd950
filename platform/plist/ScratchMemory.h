#pragma once

#include <array>
#include <cstddef>
#include <memory_resource>

namespace platform {

/// Memory for what only the reading of a document needs; freed as a whole. A short document takes none of the
/// heap.
class ScratchMemory {
public:
    ScratchMemory() = default;
    ScratchMemory(const ScratchMemory&) = delete;
    ScratchMemory& operator=(const ScratchMemory&) = delete;

    std::pmr::memory_resource* get() { return &resource_; }

private:
    /// Not initialised: that would cost more than it saves.
    std::array<std::byte, 4096> first_;
    std::pmr::monotonic_buffer_resource resource_{first_.data(), first_.size()};
};

} // namespace platform
