#pragma once

#include <string>
#include <utility>

namespace wardlock::shell {

/// Whether a person could do what was asked, and if not, why: one sentence without a full stop.
class [[nodiscard]] InputResult {
public:
    static InputResult done() { return InputResult({}); }
    static InputResult refused(std::string why) { return InputResult(std::move(why)); }

    explicit operator bool() const { return why_.empty(); }
    /// Empty when it was done.
    const std::string& why() const { return why_; }

private:
    explicit InputResult(std::string why) : why_(std::move(why)) {}

    std::string why_;
};

} // namespace wardlock::shell
