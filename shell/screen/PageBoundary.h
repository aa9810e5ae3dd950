#pragma once

#include "platform/runtime/ExceptionBoundary.h"

#include <functional>
#include <type_traits>
#include <utility>

namespace wardlock::shell {

/// The only entry into the pages, and an exception boundary: what a page throws and does not catch ends the
/// process here, and no front end's loop ever sees an exception. When the last call has left, `settled` runs,
/// so that a front end is notified of changes once the pages have finished. Main thread only.
class PageBoundary {
public:
    /// `userActs` runs before each call of enterForUser(); empty for none.
    explicit PageBoundary(std::function<void()> settled, std::function<void()> userActs = {})
        : settled_(std::move(settled)), userActs_(std::move(userActs)) {}
    PageBoundary(const PageBoundary&) = delete;
    PageBoundary& operator=(const PageBoundary&) = delete;

    /// For the clock, and for reading what a page shows.
    template <class Call>
    std::invoke_result_t<Call> enter(Call&& call) {
        return enterCounted(frontEndDepth_, std::forward<Call>(call));
    }

    /// For what the user does.
    template <class Call>
    std::invoke_result_t<Call> enterForUser(Call&& call) {
        if (userActs_)
            userActs_();
        return enter(std::forward<Call>(call));
    }

    /// For calls from outside the process: a bus's callbacks, the main queue.
    template <class Call>
    std::invoke_result_t<Call> enterFromLoop(Call&& call) {
        return enterCounted(loopDepth_, std::forward<Call>(call));
    }

    /// For work that the user did not ask for: exceptions are dropped, those of an entry within it too.
    /// Returns whether it came to its end.
    template <class Call>
    bool tryEnter(Call&& call) {
        return enterFromLoop([&] {
            const Counted containing(containingDepth_);
            try {
                std::forward<Call>(call)();
                return true;
            } catch (...) {
                return false;
            }
        });
    }

    /// Returns whether input, the clock or a reading front end is inside, rather than a call from outside the
    /// process.
    bool isEnteredByFrontEnd() const { return frontEndDepth_ > 0; }
    bool isInside() const { return frontEndDepth_ + loopDepth_ > 0; }

private:
    /// Also counts down when a page's exception passes a caller that contains it.
    class Counted {
    public:
        explicit Counted(int& depth) : depth_(depth) { ++depth_; }
        ~Counted() { --depth_; }
        Counted(const Counted&) = delete;
        Counted& operator=(const Counted&) = delete;

    private:
        int& depth_;
    };

    template <class Call>
    std::invoke_result_t<Call> enterCounted(int& depth, Call&& call) {
        const auto counted = [&]() -> std::invoke_result_t<Call> {
            const Counted inside(depth);
            return std::forward<Call>(call)();
        };
        if (containingDepth_ > 0)
            return counted();
        return platform::callOrTerminate([&]() -> std::invoke_result_t<Call> {
            if constexpr (std::is_void_v<std::invoke_result_t<Call>>) {
                counted();
                settleOutside();
            } else {
                auto result = counted();
                settleOutside();
                return result;
            }
        });
    }

    void settleOutside() {
        if (!isInside())
            settled_();
    }

    std::function<void()> settled_;
    std::function<void()> userActs_;
    int frontEndDepth_ = 0;
    int loopDepth_ = 0;
    int containingDepth_ = 0;
};

} // namespace wardlock::shell
