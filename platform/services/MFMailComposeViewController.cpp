#include "platform/services/MFMailComposeViewController.h"

#include <utility>

namespace platform {

MFMailComposeViewControllerDelegate::~MFMailComposeViewControllerDelegate() = default;
MFMailComposeViewController::~MFMailComposeViewController() = default;

bool MFMailComposeViewController::canSendMail() {
    return MailService::current().canSendMail();
}

void MFMailComposeViewController::setMailComposeDelegate(
    std::weak_ptr<MFMailComposeViewControllerDelegate> delegate) {
    delegate_ = std::move(delegate);
}

void MFMailComposeViewController::setToRecipients(std::vector<std::string> recipients) {
    message_.recipients = std::move(recipients);
    changed();
}

void MFMailComposeViewController::setSubject(std::string subject) {
    message_.subject = std::move(subject);
    changed();
}

void MFMailComposeViewController::setMessageBody(std::string body, bool isHTML) {
    message_.body = std::move(body);
    message_.isHTML = isHTML;
    changed();
}

void MFMailComposeViewController::addAttachmentData(std::string data, std::string mimeType,
                                                    std::string fileName) {
    message_.attachments.push_back({std::move(data), std::move(mimeType), std::move(fileName)});
    changed();
}

void MFMailComposeViewController::removeAttachment(std::size_t index) {
    if (index >= message_.attachments.size())
        return;
    message_.attachments.erase(message_.attachments.begin() + static_cast<std::ptrdiff_t>(index));
    changed();
}

void MFMailComposeViewController::send() {
    if (std::exchange(sending_, true))
        return;
    changed();
    MailService::current().send(message_, [composer = self(this)](const MailOutcome& outcome) {
        composer->sending_ = false;
        composer->outcome_ = outcome;
        if (outcome.kind == MailOutcome::Kind::Failed) {
            composer->failure_ = outcome.message;
            return composer->changed();
        }
        const bool saved = outcome.kind == MailOutcome::Kind::SavedToOutbox;
        composer->finish(saved ? MFMailComposeResult::Saved : MFMailComposeResult::Sent, {});
    });
}

void MFMailComposeViewController::cancel() {
    if (!sending_)
        finish(failure_ ? MFMailComposeResult::Failed : MFMailComposeResult::Cancelled,
               failure_.value_or(std::string()));
}

void MFMailComposeViewController::finish(MFMailComposeResult result, const std::string& error) {
    const auto keepAlive = shared_from_this();
    if (const auto delegate = delegate_.lock())
        delegate->mailComposeControllerDidFinishWithResultError(*this, result, error);
    changed();
}

} // namespace platform
