#pragma once

#include "linux/mail/MailRoute.h"

#include <memory>
#include <vector>

namespace platform::mail {

/// Whether the route is open. Asked beside the calling thread; one that does not answer within seconds counts
/// as closed.
bool opensInTime(const std::shared_ptr<MailRoute>& route);

/// Sends by the first of its routes that takes the mail. Routes wait for other programs, so they are walked
/// beside the main thread; a desktop that hangs holds nobody up.
class LinuxMailService : public MailService {
public:
    explicit LinuxMailService(std::vector<std::shared_ptr<MailRoute>> routes) : routes_(std::move(routes)) {}

    bool canSendMail() override;
    void send(const MailMessage& message, std::function<void(const MailOutcome&)> done) override;

private:
    std::vector<std::shared_ptr<MailRoute>> routes_;
};

} // namespace platform::mail
