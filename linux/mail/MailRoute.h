#pragma once

#include "platform/services/MailService.h"

#include <optional>

namespace platform::mail {

/// One way for a mail to leave this machine. Called from any thread, one at a time; may wait, bounded.
class MailRoute {
public:
    virtual ~MailRoute() = default;

    virtual bool isOpen() = 0;
    /// What became of the mail; none when this route turned out to be closed, so that the next is to be
    /// tried.
    virtual std::optional<MailOutcome> send(const MailMessage& message) = 0;
};

} // namespace platform::mail
