#include "linux/posix/LoopSources.h"

#include <algorithm>
#include <poll.h>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <sys/timerfd.h>

namespace platform::posix {

namespace {

void watchForReading(int epoll, int descriptor) {
    epoll_event event{};
    event.events = EPOLLIN;
    event.data.fd = descriptor;
    epoll_ctl(epoll, EPOLL_CTL_ADD, descriptor, &event);
}

std::uint32_t epollEvents(short events) {
    return ((events & POLLIN) ? std::uint32_t{EPOLLIN} : 0) |
           ((events & POLLOUT) ? std::uint32_t{EPOLLOUT} : 0);
}

} // namespace

LoopSources& LoopSources::shared() {
    // Never destroyed: other threads may still wake the loop while the process ends.
    static auto* sources = new LoopSources;
    return *sources;
}

LoopSources::LoopSources()
    : epoll_(epoll_create1(EPOLL_CLOEXEC)), wakeUp_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      timer_(timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK)) {
    watchForReading(epoll_.get(), wakeUp_.get());
    watchForReading(epoll_.get(), timer_.get());
}

Subscription LoopSources::add(LoopSource& source) {
    watches_.push_back({&source, -1, 0});
    refresh();
    return Subscription([this, &source] { remove(source); });
}

void LoopSources::remove(const LoopSource& source) {
    const auto found = std::find_if(watches_.begin(), watches_.end(),
                                    [&](const Watch& watch) { return watch.source == &source; });
    if (found == watches_.end())
        return;
    if (found->descriptor >= 0)
        epoll_ctl(epoll_.get(), EPOLL_CTL_DEL, found->descriptor, nullptr);
    watches_.erase(found);
}

void LoopSources::wakeUp() {
    eventfd_write(wakeUp_.get(), 1);
}

void LoopSources::clearWakeUp() {
    eventfd_t ignored = 0;
    eventfd_read(wakeUp_.get(), &ignored);
}

void LoopSources::process() {
    // A source may add or remove others, or itself.
    const std::vector<Watch> turn = watches_;
    for (const Watch& each : turn)
        if (isWatched(*each.source))
            each.source->process();
    refresh();
}

bool LoopSources::isWatched(const LoopSource& source) const {
    return std::ranges::any_of(watches_, [&](const Watch& watch) { return watch.source == &source; });
}

void LoopSources::refresh() {
    std::optional<LoopSource::Clock::time_point> nearest;
    // Removes all old descriptors first: a number may belong to another source by now.
    for (Watch& each : watches_)
        unwatch(each);
    for (Watch& each : watches_) {
        watch(each);
        const auto deadline = each.source->deadline();
        if (deadline && (!nearest || *deadline < *nearest))
            nearest = deadline;
    }
    setTimer(nearest);
}

void LoopSources::unwatch(Watch& watch) {
    if (watch.descriptor < 0 || watch.descriptor == watch.source->descriptor())
        return;
    epoll_ctl(epoll_.get(), EPOLL_CTL_DEL, watch.descriptor, nullptr);
    watch.descriptor = -1;
}

void LoopSources::watch(Watch& watch) {
    const int descriptor = watch.source->descriptor();
    const short events = descriptor >= 0 ? watch.source->events() : short{0};
    if (descriptor == watch.descriptor && events == watch.events)
        return;
    if (descriptor >= 0) {
        epoll_event event{};
        event.events = epollEvents(events);
        event.data.fd = descriptor;
        // A closed descriptor has left the set by itself, and its number may be in use again: try both ways.
        if (epoll_ctl(epoll_.get(), EPOLL_CTL_MOD, descriptor, &event) != 0)
            epoll_ctl(epoll_.get(), EPOLL_CTL_ADD, descriptor, &event);
    }
    watch.descriptor = descriptor;
    watch.events = events;
}

void LoopSources::setTimer(std::optional<LoopSource::Clock::time_point> deadline) {
    if (deadline == timerDeadline_)
        return;
    timerDeadline_ = deadline;
    itimerspec when{};
    if (deadline) {
        // The steady clock is CLOCK_MONOTONIC here; zero would disarm the timer.
        const auto nanoseconds =
            std::max<std::int64_t>(1, std::chrono::nanoseconds(deadline->time_since_epoch()).count());
        when.it_value.tv_sec = nanoseconds / 1'000'000'000;
        when.it_value.tv_nsec = nanoseconds % 1'000'000'000;
    }
    timerfd_settime(timer_.get(), TFD_TIMER_ABSTIME, &when, nullptr);
}

} // namespace platform::posix
