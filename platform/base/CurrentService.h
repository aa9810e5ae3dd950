#pragma once

#include <atomic>

namespace platform {

/// The object behind a service of the process: the one that was set, else the default one. It is not owned.
/// Any thread. To be initialised as a constant, so that a service can be used while the process starts.
template <class Service>
class CurrentService {
public:
    using Default = Service& (*)();

    constexpr explicit CurrentService(Default defaultService) : default_(defaultService) {}

    Service& get() const {
        Service* const set = set_.load(std::memory_order_acquire);
        return set ? *set : default_();
    }
    /// Null restores the default.
    void set(Service* service) { set_.store(service, std::memory_order_release); }

private:
    const Default default_;
    std::atomic<Service*> set_ = nullptr;
};

} // namespace platform
