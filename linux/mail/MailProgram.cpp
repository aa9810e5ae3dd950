#include "linux/mail/MailProgram.h"

#include "linux/mail/MailFolder.h"
#include "linux/mail/MailHeader.h"
#include "linux/posix/Program.h"
#include "linux/web/UrlHandlers.h"
#include "platform/base/Translation.h"

namespace platform::mail {

namespace {

/// How long a failure may take to show. xdg-email waits for a mail program that was not running yet until
/// that program is closed.
constexpr std::chrono::seconds timeout{10};

bool looksLikeAddress(const std::string& text) {
    return text.find('@') != std::string::npos && text.front() != '-';
}

} // namespace

bool MailProgram::isOpen() {
    return web::hasDisplay() && posix::findProgram("xdg-email") && web::schemeHasHandler("mailto");
}

std::optional<MailOutcome> MailProgram::send(const MailMessage& message, std::string& reason) {
    const MailFolder folder(message.attachments);
    if (!folder.complete()) {
        reason = folder.problem();
        folder.remove();
        return std::nullopt;
    }
    std::vector<std::string> words{"xdg-email", "--utf8",    "--subject", withoutControls(message.subject),
                                   "--body",    message.body};
    for (const auto& file : folder.files())
        words.insert(words.end(), {"--attach", file});
    for (const auto& recipient : message.recipients)
        if (looksLikeAddress(recipient))
            words.push_back(withoutControls(recipient));
    const auto code = posix::startProgram(words, timeout);
    if (code && *code == 0)
        return MailOutcome{MailOutcome::Kind::HandedOver,
                           translated("Mail", "The mail was handed to your mail program.")};
    folder.remove();
    return std::nullopt;
}

} // namespace platform::mail
