#pragma once

#include <string>
#include <utility>

namespace wardlock::shell {

/// Whether the user could do what was asked, and if not, the reason: one sentence without a full stop.
class [[nodiscard]] InputResult {
public:
    static InputResult done() { return InputResult({}); }
    static InputResult refused(std::string reason) { return InputResult(std::move(reason)); }

    explicit operator bool() const { return reason_.empty(); }
    /// Empty when it was done.
    const std::string& reason() const { return reason_; }

private:
    explicit InputResult(std::string reason) : reason_(std::move(reason)) {}

    std::string reason_;
};

} // namespace wardlock::shell
