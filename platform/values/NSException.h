#pragma once

#include "../base/Export.h"
#include "Value.h"

#include <exception>
#include <optional>
#include <string>

namespace platform {

inline constexpr const char* NSInvalidArgumentException = "NSInvalidArgumentException";
inline constexpr const char* NSRangeException = "NSRangeException";
inline constexpr const char* NSGenericException = "NSGenericException";

/// The platform's exception: storing null where a value is needed, an index out of range, a message to an
/// object of the wrong class. No page catches it; it ends the process after the uncaught-exception handler
/// has run.
class WARDLOCK_API NSException : public std::exception {
public:
    /// Records the addresses of the calling stack here, while the throwing frames are still on it.
    NSException(std::string name, std::string reason, std::optional<Dictionary> userInfo = std::nullopt);
    ~NSException() override;

    const std::string& name() const { return name_; }
    const std::string& reason() const { return reason_; }
    const std::optional<Dictionary>& userInfo() const { return userInfo_; }

    /// Unsigned integers, innermost frame first.
    const Array& callStackReturnAddresses() const { return addresses_; }
    /// One string per return address: module, symbol and offset as far as they are known. Looked up at each
    /// call.
    Array callStackSymbols() const;

    /// "name: reason".
    const char* what() const noexcept override { return what_.c_str(); }

private:
    std::string name_;
    std::string reason_;
    std::optional<Dictionary> userInfo_;
    Array addresses_;
    std::string what_;
};

using NSUncaughtExceptionHandler = void (*)(const NSException&);

/// Installs `handler` for exceptions that are not caught; null removes it. The terminate handler runs it in
/// the thread that threw; when it returns, the process ends by SIGABRT.
///
/// An exception of another type reaches the handler as an NSGenericException whose reason is the other's
/// message. So does an end without an exception. ExceptionBoundary.h keeps the exception current until then.
WARDLOCK_API void NSSetUncaughtExceptionHandler(NSUncaughtExceptionHandler handler);
WARDLOCK_API NSUncaughtExceptionHandler NSGetUncaughtExceptionHandler();

/// For a host: runs `hook` once, after the uncaught-exception handler and before the process ends. It may
/// write the queued log entries and restore the terminal. Replaces the previous hook; null removes it.
WARDLOCK_API void setTerminationHook(void (*hook)());

} // namespace platform
