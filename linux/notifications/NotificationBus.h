#pragma once

#include "linux/bus/BusAddress.h"
#include "linux/bus/BusConnection.h"
#include "linux/bus/BusPointers.h"
#include "linux/notifications/Notification.h"
#include "linux/posix/LoopSource.h"

#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <optional>

namespace platform::notifications {

/// Carries notifications to and from the other processes of this user. It looks for the bus, connects,
/// subscribes, and starts again after a loss. Main thread only. Every wait is bounded: two seconds for a bus
/// that stalls, three for a subscription, three for the start of a private bus; none where no process
/// listens.
class NotificationBus : public posix::LoopSource {
public:
    struct Events {
        /// A notification that another process posted. Called within process(), subscribe() and post(): the
        /// receiver must keep it for later.
        std::function<void(Notification)> received;
        /// Notifications arrive from now on; others may have been missed since subscribe() or since lost().
        std::function<void()> subscribed;
        std::function<void()> lost;
    };

    explicit NotificationBus(Events events) : events_(std::move(events)) {}

    /// Requests notifications from now on. Returns true when they arrive already.
    bool subscribe();
    /// Sends the notification, at once where there is a bus, otherwise when there is one again.
    void post(Notification notification);

    int descriptor() const override;
    short events() const override;
    std::optional<Clock::time_point> deadline() const override;
    void process() override;

private:
    enum class Subscription { None, Asked, Effective, Refused };

    bool isReady() const { return connection_ && connection_->isReady(); }
    void connectIfDue(Clock::time_point due);
    void connect();
    void connectToPrivateBus(const bus::BusAddress& address);
    void scheduleNextAttempt();
    /// One step: an attempt that is due, received messages, messages that wait to be sent.
    void advance();
    template <class Done>
    bool advanceUntil(Clock::time_point deadline, Done done);
    void loseConnection();
    void askForSubscription();
    void sendPending();
    void waitForHandshake();
    void waitForSocket();
    void receive(sd_bus_message* message);

    static int onNotification(sd_bus_message* message, void* self, sd_bus_error* error);
    static int onSubscribed(sd_bus_message* message, void* self, sd_bus_error* error);

    Events events_;
    std::unique_ptr<bus::BusConnection> connection_;
    bus::BusSlot slot_;
    Subscription subscription_ = Subscription::None;
    bool subscriptionRequested_ = false;
    Clock::time_point subscriptionRetry_{};

    /// When to connect again without a post, and how long to wait after the next failure.
    Clock::time_point nextAttempt_{};
    Clock::duration backOff_{};
    Clock::time_point lastFailure_{};
    /// When the private bus may be started: later, after a start that took too long.
    Clock::time_point nextStart_{};
    /// Another process is about to start the private bus.
    bool startingElsewhere_ = false;
    /// The connection was accepted, or not in time: no post waits for it again.
    bool waitedForHandshake_ = false;
    /// The bus did not read in time: no post waits again until everything has been sent.
    bool stalled_ = false;
    std::deque<Notification> pending_;
};

} // namespace platform::notifications
