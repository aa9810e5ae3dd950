#include "platform/services/MailService.h"

namespace platform {

namespace {

class NoMail : public MailService {
    bool canSendMail() override { return false; }
    void send(const MailMessage&, std::function<void(const MailOutcome&)> done) override {
        done({MailOutcome::Kind::Failed, "Mail cannot be sent from this device."});
    }
};

MailService* currentService = nullptr;

} // namespace

MailService::~MailService() = default;

MailService& MailService::current() {
    static NoMail none;
    return currentService ? *currentService : none;
}

void MailService::setCurrent(MailService* service) {
    currentService = service;
}

} // namespace platform
