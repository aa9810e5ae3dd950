#include "platform/values/NSException.h"

#include "platform/base/CallStack.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace platform {

namespace {

std::atomic<NSUncaughtExceptionHandler> uncaughtExceptionHandler = nullptr;
std::atomic<void (*)()> terminationHook = nullptr;
std::atomic<std::terminate_handler> defaultEnd = nullptr;
std::atomic<std::thread::id> endingThread;

Array numbers(const std::vector<std::uintptr_t>& addresses) {
    std::vector<Value> values;
    values.reserve(addresses.size());
    for (const std::uintptr_t address : addresses)
        values.emplace_back(static_cast<std::uint64_t>(address));
    return Array(std::move(values));
}

void callHandler() {
    const auto handler = uncaughtExceptionHandler.load();
    if (!handler)
        return;
    const auto uncaught = std::current_exception();
    if (!uncaught)
        return handler(NSException(NSGenericException, "terminated without an exception"));
    try {
        std::rethrow_exception(uncaught);
    } catch (const NSException& exception) {
        handler(exception);
    } catch (const std::exception& exception) {
        const char* what = exception.what();
        handler(NSException(NSGenericException, what ? what : "an exception without a message"));
    } catch (...) {
        handler(NSException(NSGenericException, "an exception of an unknown type"));
    }
}

/// The default terminate handler prints the exception's message and does not survive a null one.
bool defaultEndIsSafe() {
    try {
        if (const auto uncaught = std::current_exception())
            std::rethrow_exception(uncaught);
    } catch (const std::exception& exception) {
        return exception.what() != nullptr;
    } catch (...) {
        return true;
    }
    return true;
}

/// Runs one step of the end; a step that fails must not keep the next one from running.
void attempt(void (*step)()) {
    try {
        step();
    } catch (...) {
        return;
    }
}

[[noreturn]] void endProcess() {
    std::thread::id noThread;
    if (endingThread.compare_exchange_strong(noThread, std::this_thread::get_id())) {
        attempt(callHandler);
        if (const auto hook = terminationHook.exchange(nullptr))
            attempt(hook);
    } else if (noThread != std::this_thread::get_id()) {
        // Another thread is ending the process and may still write its report: wait here until the process
        // ends.
        static std::atomic_flag never;
        never.wait(false);
    }
    if (const auto end = defaultEnd.load(); end && defaultEndIsSafe())
        end();
    std::abort();
}

void installTerminateHandler() {
    static std::once_flag installed;
    std::call_once(installed, [] { defaultEnd = std::set_terminate(endProcess); });
}

} // namespace

NSException::NSException(std::string name, std::string reason, std::optional<Dictionary> userInfo)
    : name_(std::move(name)), reason_(std::move(reason)), userInfo_(std::move(userInfo)),
      addresses_(numbers(platform::callStackReturnAddresses(__builtin_return_address(0)))),
      what_(name_ + ": " + reason_) {}

NSException::~NSException() = default;

Array NSException::callStackSymbols() const {
    std::vector<Value> symbols;
    symbols.reserve(addresses_.size());
    for (const Value& address : addresses_)
        symbols.emplace_back(callStackSymbol(static_cast<std::uintptr_t>(address.unsignedInteger())));
    return Array(std::move(symbols));
}

void NSSetUncaughtExceptionHandler(NSUncaughtExceptionHandler handler) {
    uncaughtExceptionHandler = handler;
    installTerminateHandler();
}

NSUncaughtExceptionHandler NSGetUncaughtExceptionHandler() {
    return uncaughtExceptionHandler;
}

void setTerminationHook(void (*hook)()) {
    terminationHook = hook;
    installTerminateHandler();
}

} // namespace platform
