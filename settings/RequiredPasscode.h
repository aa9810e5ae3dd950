#pragma once

#include "platform/base/Export.h"

#include <optional>
#include <string>
#include <string_view>

namespace wardlock {

/// The passcode that protects the Settings application. One is required while the extension is switched on,
/// an account is enabled, and "kPasscode" is not empty. Main thread only.
class WARDLOCK_API RequiredPasscode {
public:
    /// Reads the document as it is on disk now; none when no passcode is required. A missing key has its
    /// default, and so has every key where the document is missing or damaged. Nothing is written.
    ///
    /// A document that cannot be read now requires a passcode that no entry matches.
    static std::optional<RequiredPasscode> onDisk();

    /// Returns whether the digits are the passcode. None are where "kPasscode" is not a string.
    bool matches(std::string_view digits) const { return passcode_ == digits; }

private:
    explicit RequiredPasscode(std::optional<std::string> passcode) : passcode_(std::move(passcode)) {}

    /// None where no entry matches.
    std::optional<std::string> passcode_;
};

} // namespace wardlock
