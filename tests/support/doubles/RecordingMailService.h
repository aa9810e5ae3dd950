#pragma once

#include "platform/services/MailService.h"

#include <functional>
#include <utility>
#include <vector>

namespace wardlock::test {

/// Keeps the mails that are sent; their outcome is reported when the test says so. The process's
/// service while it lives.
class RecordingMailService final : public platform::MailService {
public:
    RecordingMailService() { setCurrent(this); }
    ~RecordingMailService() override { setCurrent(nullptr); }
    RecordingMailService(const RecordingMailService&) = delete;
    RecordingMailService& operator=(const RecordingMailService&) = delete;

    bool canSendMail() override { return canSend; }
    void send(const platform::MailMessage& message,
              std::function<void(const platform::MailOutcome&)> done) override {
        sent.push_back(message);
        waiting_.push_back(std::move(done));
    }
    void finish(const platform::MailOutcome& outcome) {
        for (const auto& done : std::exchange(waiting_, {}))
            done(outcome);
    }

    bool canSend = true;
    std::vector<platform::MailMessage> sent;

private:
    std::vector<std::function<void(const platform::MailOutcome&)>> waiting_;
};

} // namespace wardlock::test
