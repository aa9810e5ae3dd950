#pragma once

#include "platform/base/Export.h"
#include "platform/values/Value.h"

#include <exception>
#include <optional>
#include <string>

namespace platform {

inline constexpr const char* NSInvalidArgumentException = "NSInvalidArgumentException";
inline constexpr const char* NSRangeException = "NSRangeException";
inline constexpr const char* NSGenericException = "NSGenericException";

/// The platform's exception: storing nothing where a value is needed, an index out of range, a message to an
/// object of the wrong class. Nobody catches it; it ends the process after the uncaught-exception handler has
/// run.
class WARDLOCK_API NSException : public std::exception {
public:
    /// Takes the addresses of the calling stack here, where the throwing frames still stand.
    NSException(std::string name, std::string reason, std::optional<Dictionary> userInfo = std::nullopt);
    ~NSException() override;

    const std::string& name() const { return name_; }
    const std::string& reason() const { return reason_; }
    const std::optional<Dictionary>& userInfo() const { return userInfo_; }

    /// Unsigned integers, innermost frame first.
    const Array& callStackReturnAddresses() const { return addresses_; }
    /// Strings, one per return address: module, symbol and offset as far as they are known. Looked up at each
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

/// Makes `handler` the process's handler of exceptions that nobody catches; null removes it. It runs from the
/// terminate handler, in the thread that threw; when it returns the process ends by SIGABRT. An exception of
/// another type reaches the handler as an NSGenericException with the other's message as reason, and so does
/// an end without an exception. ExceptionBoundary.h keeps the exception current until then.
WARDLOCK_API void NSSetUncaughtExceptionHandler(NSUncaughtExceptionHandler handler);
WARDLOCK_API NSUncaughtExceptionHandler NSGetUncaughtExceptionHandler();

/// For a host: runs `last` once, after the uncaught-exception handler and before the process ends, for
/// example to write the queued log entries and give the terminal back. Replaces the previous one.
WARDLOCK_API void setLastRites(void (*last)());

} // namespace platform
