#pragma once

#include "linux/mail/MailRoute.h"

namespace platform::mail {

/// The device root's outbox folder, where it exists: a complete message is saved there.
class MailOutbox : public MailRoute {
public:
    bool isOpen() override;
    std::optional<MailOutcome> send(const MailMessage& message, std::string& reason) override;
};

} // namespace platform::mail
