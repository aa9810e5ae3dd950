#include "linux/notifications/NotificationBus.h"

#include "linux/bus/PrivateBus.h"
#include "linux/notifications/NotificationFormat.h"
#include "linux/notifications/NotificationMessage.h"
#include "platform/runtime/ExceptionBoundary.h"

#include <algorithm>
#include <thread>
#include <utility>

namespace platform::notifications {

namespace {

using namespace std::chrono_literals;

constexpr auto firstBackOff = 50ms;
constexpr auto longestBackOff = 4000ms;
/// Without a bus, posts look for one themselves, but not each of a burst.
constexpr auto pauseAfterFailure = 20ms;
constexpr auto pauseWhileOtherStarts = 5ms;
/// A bus that hangs when it starts delays its starter by seconds. Meanwhile another process may start it.
constexpr auto pauseAfterSlowStart = 60s;
/// Generous, for a busy machine: only a bus that accepts a connection and then stalls takes as long.
constexpr auto handshakeTime = 2000ms;
constexpr auto subscriptionTime = 3000ms;
constexpr auto subscriptionRetryTime = 1000ms;
constexpr auto socketTime = 2000ms;
constexpr auto longestSocketTime = 5000ms;
/// The number of messages kept for a bus that is away, and for one that does not read.
constexpr std::size_t mostPending = 256;
constexpr std::uint64_t mostUnsent = 64;

} // namespace

bool NotificationBus::subscribe() {
    subscriptionRequested_ = true;
    connectIfDue(lastFailure_ + pauseAfterFailure);
    const bool effective = advanceUntil(Clock::now() + subscriptionTime,
                                        [this] { return subscription_ == Subscription::Effective; });
    waitedForHandshake_ = waitedForHandshake_ || !effective;
    return effective;
}

void NotificationBus::post(Notification notification) {
    if (pending_.size() == mostPending)
        pending_.pop_front();
    pending_.push_back(std::move(notification));
    // A second attempt where the first one shows that the bus of the last post is gone: it may be back
    // already.
    for (int attempt = 0; attempt < 2 && !pending_.empty(); ++attempt) {
        connectIfDue(lastFailure_ + pauseAfterFailure);
        waitForHandshake();
        sendPending();
    }
    waitForSocket();
}

int NotificationBus::descriptor() const {
    return connection_ ? connection_->descriptor() : -1;
}

short NotificationBus::events() const {
    return connection_ ? connection_->events() : short{0};
}

std::optional<NotificationBus::Clock::time_point> NotificationBus::deadline() const {
    if (!connection_) {
        const bool wanted = subscriptionRequested_ || !pending_.empty();
        return wanted ? std::optional(nextAttempt_) : std::nullopt;
    }
    auto nearest = connection_->deadline();
    if (subscription_ == Subscription::Refused && (!nearest || subscriptionRetry_ < *nearest))
        nearest = subscriptionRetry_;
    return nearest;
}

void NotificationBus::process() {
    if (subscriptionRequested_ || !pending_.empty())
        connectIfDue(nextAttempt_);
    advance();
}

void NotificationBus::connectIfDue(Clock::time_point due) {
    if (!connection_ && Clock::now() >= due)
        connect();
}

void NotificationBus::connect() {
    const bus::BusAddress address = bus::busAddress();
    startingElsewhere_ = false;
    if (address.privateFolder.empty())
        connection_ = bus::BusConnection::open(address.text, bus::BusConnection::Peer::Any);
    else
        connectToPrivateBus(address);
    waitedForHandshake_ = false;
    if (!connection_) {
        lastFailure_ = Clock::now();
        scheduleNextAttempt();
    }
}

/// The folder first: in a folder that another user has put there, another user listens.
void NotificationBus::connectToPrivateBus(const bus::BusAddress& address) {
    const bus::PrivateBus bus(address.privateFolder);
    if (!bus.folderIsPrivate())
        return;
    connection_ = bus::BusConnection::open(address.text, bus::BusConnection::Peer::OwnUser);
    if (connection_ || Clock::now() < nextStart_)
        return;
    const auto start = bus.start();
    if (start == bus::PrivateBus::Start::TimedOut)
        nextStart_ = Clock::now() + pauseAfterSlowStart;
    startingElsewhere_ = start == bus::PrivateBus::Start::StartedByOther;
    if (start == bus::PrivateBus::Start::Running)
        connection_ = bus::BusConnection::open(address.text, bus::BusConnection::Peer::OwnUser);
}

void NotificationBus::scheduleNextAttempt() {
    // A post that looks for the bus in between delays nothing.
    if (Clock::now() < nextAttempt_ && !startingElsewhere_)
        return;
    const Clock::duration shortest = startingElsewhere_ ? pauseWhileOtherStarts : firstBackOff;
    backOff_ = std::clamp<Clock::duration>(backOff_ * 2, shortest, longestBackOff);
    nextAttempt_ = Clock::now() + backOff_;
}

void NotificationBus::advance() {
    if (!connection_)
        return;
    connection_->process();
    if (connection_->isLost())
        return loseConnection();
    if (!isReady())
        return;
    backOff_ = {};
    if (connection_->unsent() == 0)
        stalled_ = false;
    if (subscription_ == Subscription::Refused && Clock::now() >= subscriptionRetry_)
        subscription_ = Subscription::None;
    if (subscriptionRequested_ && subscription_ == Subscription::None)
        askForSubscription();
    sendPending();
}

/// Returns false when the deadline has passed, or when `done` can no longer become true.
template <class Done>
bool NotificationBus::advanceUntil(Clock::time_point deadline, Done done) {
    while (!done()) {
        advance();
        if (done())
            return true;
        const auto now = Clock::now();
        if (now >= deadline || (!connection_ && !startingElsewhere_))
            return false;
        if (connection_) {
            connection_->wait(deadline);
        } else {
            std::this_thread::sleep_until(std::min(deadline, nextAttempt_));
            connect();
        }
    }
    return true;
}

void NotificationBus::loseConnection() {
    if (!isReady())
        lastFailure_ = Clock::now();
    slot_.reset();
    connection_.reset();
    subscription_ = Subscription::None;
    stalled_ = false;
    scheduleNextAttempt();
    events_.lost();
}

void NotificationBus::askForSubscription() {
    // Before the new one: releasing a refused slot removes its rule, and the rules are the same.
    slot_.reset();
    sd_bus_slot* slot = nullptr;
    subscription_ = Subscription::Asked;
    if (sd_bus_add_match_async(connection_->bus(), &slot, format::match, onNotification, onSubscribed, this) <
        0) {
        subscription_ = Subscription::Refused;
        subscriptionRetry_ = Clock::now() + subscriptionRetryTime;
    }
    slot_.reset(slot);
}

int NotificationBus::onSubscribed(sd_bus_message* message, void* self, sd_bus_error*) {
    auto& bus = *static_cast<NotificationBus*>(self);
    if (sd_bus_message_is_method_error(message, nullptr) > 0) {
        bus.subscription_ = Subscription::Refused;
        bus.subscriptionRetry_ = Clock::now() + subscriptionRetryTime;
    } else {
        bus.subscription_ = Subscription::Effective;
        callOrTerminate(bus.events_.subscribed);
    }
    return 1;
}

void NotificationBus::receive(sd_bus_message* message) {
    const char* sender = sd_bus_message_get_sender(message);
    // The observers of this process were notified within the post.
    if (!sender || connection_->uniqueName() == sender)
        return;
    if (auto notification = readNotification(message))
        events_.received(*std::move(notification));
}

int NotificationBus::onNotification(sd_bus_message* message, void* self, sd_bus_error*) {
    auto& bus = *static_cast<NotificationBus*>(self);
    // The caller is written in C.
    callOrTerminate([&] { bus.receive(message); });
    return 0;
}

void NotificationBus::sendPending() {
    while (!pending_.empty() && isReady() && connection_->unsent() < mostUnsent) {
        const auto message = notificationMessage(connection_->bus(), pending_.front());
        if (message && !connection_->send(message.get()))
            return loseConnection();
        pending_.pop_front();
    }
}

/// Once for each connection: a bus that stalls must not delay every post.
void NotificationBus::waitForHandshake() {
    if (waitedForHandshake_ || isReady())
        return;
    waitedForHandshake_ = !advanceUntil(Clock::now() + handshakeTime, [this] { return isReady(); });
}

/// A process may end right after a post: what the socket did not take at once would be lost. A bus that reads
/// a large message piece by piece gets more time than one that reads nothing.
void NotificationBus::waitForSocket() {
    const auto latest = Clock::now() + longestSocketTime;
    while (isReady() && !stalled_ && connection_->unsent() > 0) {
        const auto deadline = std::min(Clock::now() + socketTime, latest);
        stalled_ = !connection_->wait(deadline) || Clock::now() >= latest;
        advance();
    }
}

} // namespace platform::notifications
