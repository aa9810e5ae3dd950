#include "linux/mail/MailPortal.h"

#include "linux/mail/MailFolder.h"
#include "linux/mail/MailPortalRequest.h"
#include "platform/base/Translation.h"

namespace platform::mail {

namespace {

constexpr std::chrono::seconds replyTimeout{2};
/// The portal may ask the person which mail program to take.
constexpr std::chrono::minutes userTimeout{5};

} // namespace

bool MailPortal::isOpen() {
    const PortalBus bus = openPortalBus();
    return bus && emailPortalVersion(*bus, replyTimeout);
}

std::optional<MailOutcome> MailPortal::send(const MailMessage& message, std::string& reason) {
    const PortalBus bus = openPortalBus();
    const auto version = bus ? emailPortalVersion(*bus, replyTimeout) : std::nullopt;
    if (!version)
        return std::nullopt;
    const MailFolder folder(message.attachments);
    std::optional<PortalResponse> response;
    if (!folder.complete())
        reason = folder.problem();
    else
        response = composeEmail(*bus, *version, message, folder.files(), userTimeout);
    // The portal has the files open and needs their names no longer.
    folder.remove();
    if (response == PortalResponse::Done)
        return MailOutcome{MailOutcome::Kind::HandedOver,
                           translated("Mail", "The mail was handed to your mail program.")};
    if (response == PortalResponse::Cancelled)
        return MailOutcome{MailOutcome::Kind::Failed,
                           translated("Mail", "The mail was not sent: no mail program was chosen.")};
    return std::nullopt;
}

} // namespace platform::mail
