#pragma once

#include <exception>
#include <functional>
#include <optional>
#include <type_traits>
#include <utility>

namespace wardlock::shell {

/// The one way into the pages. What a page throws and does not catch ends the process here: no
/// face's loop ever sees an exception. When the last call has left, `settled` runs, so that a face is told of
/// changes once the pages are done with them. Main thread only.
class Door {
public:
    explicit Door(std::function<void()> settled) : settled_(std::move(settled)) {}
    Door(const Door&) = delete;
    Door& operator=(const Door&) = delete;

    /// For what a person or the clock does, and for reading what a page shows.
    template <class Call>
    auto enter(Call&& call) noexcept -> std::invoke_result_t<Call> {
        const Inside inside(*this, personDepth_);
        return std::forward<Call>(call)();
    }

    /// For what arrives from outside the process: a bus's callbacks, the main queue.
    template <class Call>
    auto enterFromLoop(Call&& call) noexcept -> std::invoke_result_t<Call> {
        const Inside inside(*this, loopDepth_);
        return std::forward<Call>(call)();
    }

    /// For what nobody asked for: what it throws is dropped. Answers whether it came to its end.
    template <class Call>
    bool tryEnter(Call&& call) noexcept {
        const Inside inside(*this, loopDepth_);
        try {
            std::forward<Call>(call)();
            return true;
        } catch (...) {
            return false;
        }
    }

    /// Whether a person, the clock or a face is inside, rather than something from outside the process.
    bool personIsInside() const { return personDepth_ > 0; }
    bool isInside() const { return personDepth_ + loopDepth_ > 0; }

private:
    /// Also counts down when a page's exception passes a caller that contains it.
    class Inside {
    public:
        Inside(Door& door, int& depth) : door_(door), depth_(depth) { ++depth_; }
        ~Inside() {
            --depth_;
            if (!door_.isInside() && std::uncaught_exceptions() == 0)
                door_.settled_();
        }
        Inside(const Inside&) = delete;
        Inside& operator=(const Inside&) = delete;

    private:
        Door& door_;
        int& depth_;
    };

    std::function<void()> settled_;
    int personDepth_ = 0;
    int loopDepth_ = 0;
};

} // namespace wardlock::shell
