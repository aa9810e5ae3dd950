#include "platform/services/MailService.h"

#include "platform/base/CurrentService.h"

namespace platform {

namespace {

constinit CurrentService<MailService> currentMail(MailService::native);

} // namespace

MailService::~MailService() = default;

MailService& MailService::current() {
    return currentMail.get();
}

void MailService::setCurrent(MailService* service) {
    currentMail.set(service);
}

} // namespace platform
