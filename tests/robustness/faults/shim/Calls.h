#pragma once

#include "tests/robustness/faults/shim/FaultInjector.h"

#include <cerrno>
#include <dlfcn.h>
#include <type_traits>

/// What the functions that replace those of the C library have in common. They have their own names and get
/// the C library's at the assembler: so they need not repeat the exact declarations of this C library.
#define WARDLOCK_STANDS_FOR(name) __asm__(name) __attribute__((visibility("default"), used))

namespace wardlock::test::shim {

/// The function of that name behind this library.
template <class Function>
Function* behind(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

/// Which call it is: its function, the path it is upon, and what the journal records of it.
struct Call {
    std::string function;
    Room room = Room::None;
    std::string path;
    std::vector<std::string> fields;
};

template <class Result>
long number(Result result) {
    if constexpr (std::is_pointer_v<Result>)
        return result ? 1 : 0;
    else
        return static_cast<long>(result);
}

/// Makes a call that counts, or what the plan puts in its place.
template <class Result, class Act>
Result make(const Call& call, Result failed, Act act) {
    FaultInjector& injector = FaultInjector::shared();
    const Fate fate = injector.meet(call.function, call.room, call.path);
    const int before = errno;
    Result result = failed;
    errno = fate.error ? fate.error : before;
    if (!fate.error)
        result = act(fate);
    const int after = errno;
    injector.record(call.function, result == failed ? after : 0, number(result), call.fields);
    errno = after;
    return result;
}

/// Makes the call, through the injector where it is upon a file that counts. `upon` is a path or a handle.
template <class Result, class Upon, class Act>
Result conduct(const Upon& upon, const Call& call, Result failed, Act act) {
    const std::lock_guard guard(FaultInjector::shared().mutex());
    return FaultInjector::shared().counts(upon) ? make(call, failed, act) : act(Fate());
}

std::string octal(unsigned number);
std::string hexadecimal(const void* bytes, std::size_t count);

} // namespace wardlock::test::shim
