#pragma once

#include "linux/mail/MailRoute.h"

namespace platform::mail {

/// The desktop's mail program, through xdg-email: where it is installed, a program is registered for mail and
/// there is a display.
class MailProgram : public MailRoute {
public:
    bool isOpen() override;
    std::optional<MailOutcome> send(const MailMessage& message, std::string& reason) override;
};

} // namespace platform::mail
