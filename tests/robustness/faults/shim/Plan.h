#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace wardlock::test::shim {

/// What a call meets.
struct Fate {
    bool killed = false;                ///< the process ends before the call
    int error = 0;                      ///< the call fails with it, without effect
    std::size_t most = std::size_t(-1); ///< a write takes, a read brings no more bytes
    bool torn = false;                  ///< a write takes half of its bytes, then the process ends
};

/// Whether a full disk refuses the call.
enum class Room { None, Needed };

/// One line: what becomes of the calls, which are counted from 1.
///
///   record           nothing
///   kill N           the process is killed before call N
///   tear N           ... in the middle of call N, a write
///   fail N ERRNO     call N fails; `fail N- ERRNO`: so do all after it
///   fill N           call N finds the disk full; `fill N-`: so do all after it that need room
///   interrupt N      call N is interrupted; `interrupt N-`: from there on, each function once for each path
///   shorten N BYTES  call N, a write or a read, moves no more bytes; `shorten N- BYTES`: so do all after it
class Plan {
public:
    /// None when the text is not a plan.
    static std::optional<Plan> parse(const std::string& text);

    Fate fateOf(std::size_t call, std::string_view function, Room room, std::string_view path);

private:
    bool concerns(std::size_t call) const { return call == first_ || (fromThereOn_ && call > first_); }

    std::string verb_;
    std::size_t first_ = 0;
    bool fromThereOn_ = false;
    long argument_ = 0;
    std::set<std::string> interrupted_;
};

} // namespace wardlock::test::shim
