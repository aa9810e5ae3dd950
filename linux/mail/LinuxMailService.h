#pragma once

#include "linux/mail/MailRoute.h"

#include <memory>
#include <vector>

namespace platform::mail {

/// Returns whether one of the routes is open, as soon as that is known. All are queried at once, beside the
/// calling thread; a route without a reply within seconds counts as closed.
bool oneOpensInTime(const std::vector<std::shared_ptr<MailRoute>>& routes);

/// Sends by the first of its routes that takes the mail. Routes wait for other programs, so they are tried
/// beside the main thread; a desktop that hangs blocks no caller.
class LinuxMailService : public MailService {
public:
    explicit LinuxMailService(std::vector<std::shared_ptr<MailRoute>> routes) : routes_(std::move(routes)) {}

    bool canSendMail() override;
    void send(const MailMessage& message, std::function<void(const MailOutcome&)> done) override;

private:
    std::vector<std::shared_ptr<MailRoute>> routes_;
};

} // namespace platform::mail
