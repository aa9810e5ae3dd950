#pragma once

#include "platform/services/MailService.h"

#include <optional>
#include <string>

namespace platform::mail {

/// One way for a mail to leave this machine. Called from any thread, one at a time; may wait, bounded.
class MailRoute {
public:
    virtual ~MailRoute() = default;

    virtual bool isOpen() = 0;
    /// Returns the result; nothing when this route turned out to be closed, so that the next is tried. Then
    /// `reason` may become a sentence for the person.
    virtual std::optional<MailOutcome> send(const MailMessage& message, std::string& reason) = 0;
};

} // namespace platform::mail
