#pragma once

#include "platform/services/MailService.h"

#include <optional>

namespace platform::mail {

/// One way for a mail to leave this machine. Called from any thread, one at a time; may wait, bounded.
class MailRoute {
public:
    virtual ~MailRoute() = default;

    virtual bool isOpen() = 0;
    /// Returns the result; nothing when this route turned out to be closed, so that the next is tried.
    virtual std::optional<MailOutcome> send(const MailMessage& message) = 0;
};

} // namespace platform::mail
