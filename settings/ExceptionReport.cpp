#include "settings/ExceptionReport.h"

#include "settings/Log.h"

#include <string_view>

namespace wardlock {

namespace {

constexpr std::string_view separator =
    "\n\n---------------------------------------------------------------\n\n";
constexpr std::string_view reportFormat = "%@Exception Caught\n\nName: %@\nReason: %@\nInfo: %@\n"
                                          "Return Address: %@\nCall Stack: %@%@";

} // namespace

void TweakExceptionHandler(const platform::NSException& exception) {
    const auto& name = exception.name();
    const auto& reason = exception.reason();
    const auto& userInfo = exception.userInfo();
    const auto& addresses = exception.callStackReturnAddresses();
    const auto symbols = exception.callStackSymbols();
    jLog(reportFormat, separator, name, reason, userInfo, addresses, symbols, separator);
}

} // namespace wardlock
