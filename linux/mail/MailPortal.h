#pragma once

#include "linux/mail/MailRoute.h"

namespace platform::mail {

/// The desktop's email portal, org.freedesktop.portal.Email, over a connection of its own to the session bus
/// that the environment names. It takes the attachments as open files, and asks the person to choose the mail
/// program.
class MailPortal : public MailRoute {
public:
    bool isOpen() override;
    std::optional<MailOutcome> send(const MailMessage& message, std::string& reason) override;
};

} // namespace platform::mail
