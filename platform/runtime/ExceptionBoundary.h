#pragma once

#include <exception>
#include <functional>
#include <type_traits>
#include <utility>

namespace platform {

/// The exception boundary. A host enters pages, callbacks and any other code that may throw through it,
/// wherever an exception must not reach the caller: a toolkit's loop, a library written in C, a destructor, a
/// `noexcept` function.
///
/// Returns what `call` returns. An exception that leaves `call` ends the process here while the exception is
/// current, so that the uncaught-exception handler and the termination hook run (NSException.h).
///
/// `noexcept` alone does not do that. gcc 12 may inline such a function together with clean-ups, and then
/// calls std::terminate without an active exception, which leaves nothing to report.
///
/// Any thread. The stack is unwound to here when the handler runs; an NSException carries its own.
template <class Call>
std::invoke_result_t<Call> callOrTerminate(Call&& call) noexcept {
    try {
        return std::invoke(std::forward<Call>(call));
    } catch (...) {
        // Inside the handler the exception is the current one.
        std::terminate();
    }
}

} // namespace platform
