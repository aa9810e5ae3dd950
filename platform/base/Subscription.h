#pragma once

#include <functional>
#include <utility>

namespace platform {

/// A registration, of an observer or of a source of events. It ends with this object, so that the registered
/// object is not called after its own end when it owns its subscription.
///
/// It may end at any time, also while a notification is being delivered, and may outlive what it is a
/// registration with. Not thread-safe: it belongs to the thread of the registration.
class [[nodiscard]] Subscription {
public:
    /// None.
    Subscription() = default;
    /// `end` is called once, at the end.
    explicit Subscription(std::function<void()> end) : end_(std::move(end)) {}
    Subscription(Subscription&& other) noexcept : end_(std::exchange(other.end_, nullptr)) {}
    Subscription& operator=(Subscription&& other) noexcept {
        if (this != &other) {
            end();
            end_ = std::exchange(other.end_, nullptr);
        }
        return *this;
    }
    ~Subscription() { end(); }

    /// Ends the registration now; no effect when there is none.
    void end() {
        if (const auto end = std::exchange(end_, nullptr))
            end();
    }
    /// Leaves the registration in place for good.
    void release() { end_ = nullptr; }
    explicit operator bool() const { return end_ != nullptr; }

private:
    std::function<void()> end_;
};

} // namespace platform
