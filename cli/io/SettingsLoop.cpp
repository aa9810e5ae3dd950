#include "cli/io/SettingsLoop.h"

#include "cli/io/Terminal.h"
#include "platform/runtime/MainLoop.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <poll.h>
#include <system_error>

namespace wardlock::cli {

namespace {

constexpr std::chrono::milliseconds forever{3'600'000};

} // namespace

bool SettingsLoop::waitForInput(int descriptor) {
    while (!stopped_)
        if (turn(descriptor, forever)) {
            // A script's commands are the user's acts, not its lines.
            if (clock_)
                settings_.noteActivity();
            return true;
        }
    return false;
}

bool SettingsLoop::waitUntil(const std::function<bool()>& done, std::chrono::milliseconds timeout) {
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    while (!stopped_) {
        if (done())
            return true;
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
        if (left.count() <= 0)
            return false;
        turn(-1, left);
    }
    return false;
}

bool SettingsLoop::turn(int descriptor, std::chrono::milliseconds longest) {
    if (const auto time = clock_ ? clock_->timeToNext() : std::nullopt)
        longest = std::min(longest, std::chrono::ceil<std::chrono::milliseconds>(*time));
    std::array<pollfd, 6> waits{pollfd{descriptor, POLLIN, 0},
                                pollfd{platform::MainLoop::shared().descriptor(), POLLIN, 0},
                                pollfd{stop_.descriptor(), POLLIN, 0},
                                pollfd{resize_.descriptor(), POLLIN, 0},
                                pollfd{suspend_.descriptor(), POLLIN, 0},
                                pollfd{continue_.descriptor(), POLLIN, 0}};
    const int ready = poll(waits.data(), waits.size(), static_cast<int>(longest.count()));
    if (ready < 0 && errno != EINTR)
        throw std::system_error(errno, std::generic_category(), "poll");
    if (ready > 0 && waits[1].revents != 0)
        settings_.process();
    if (ready > 0 && waits[4].revents != 0)
        suspend();
    if (ready > 0 && waits[5].revents != 0) {
        // A stop that could not be noticed before.
        settings_.resignActive();
        followStop();
    }
    if (clock_)
        clock_->runDue();
    resize_.take();
    stopped_ = ready > 0 && waits[2].revents != 0;
    turns_.forEach([](const std::function<void()>& turn) { turn(); });
    return ready > 0 && waits[0].revents != 0;
}

void SettingsLoop::suspend() {
    settings_.resignActive();
    suspensions_.forEach([](const std::function<void()>& call) { call(); });
    {
        const Terminal::GivenBack terminal;
        suspend_.obey(SIGTSTP);
    }
    followStop();
}

void SettingsLoop::followStop() {
    continue_.take();
    returns_.forEach([](const std::function<void()>& call) { call(); });
}

} // namespace wardlock::cli
