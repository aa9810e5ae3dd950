#pragma once

#include "platform/services/MailMessage.h"
#include "platform/services/MailService.h"
#include "platform/ui/UIViewController.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace platform {

enum class MFMailComposeResult : int { Cancelled = 0, Saved = 1, Sent = 2, Failed = 3 };

class MFMailComposeViewController;

class WARDLOCK_API MFMailComposeViewControllerDelegate {
public:
    virtual ~MFMailComposeViewControllerDelegate();
    /// `error` is empty unless the result is Failed.
    virtual void mailComposeControllerDidFinishWithResultError(MFMailComposeViewController& controller,
                                                               MFMailComposeResult result,
                                                               const std::string& error) = 0;
};

/// The sheet in which a person reads, edits and sends a mail. Its delegate is not retained and dismisses the
/// sheet.
class WARDLOCK_API MFMailComposeViewController : public UIViewController {
public:
    static bool canSendMail();

    MFMailComposeViewController() = default;
    ~MFMailComposeViewController() override;

    void setMailComposeDelegate(std::weak_ptr<MFMailComposeViewControllerDelegate> delegate);
    void setToRecipients(std::vector<std::string> recipients);
    void setSubject(std::string subject);
    void setMessageBody(std::string body, bool isHTML);
    void addAttachmentData(std::string data, std::string mimeType, std::string fileName);
    const MailMessage& message() const { return message_; }

    /// What a person does. Sending goes through the MailService; the outcome is kept for the host to show.
    /// After a failure the sheet stays for another attempt; when it is cancelled then, the delegate receives
    /// the failure.
    void removeAttachment(std::size_t index);
    void send();
    void cancel();
    bool isSending() const { return sending_; }
    const std::optional<MailOutcome>& outcome() const { return outcome_; }
    /// To be called when the host has shown the outcome.
    void forgetOutcome() { outcome_.reset(); }

private:
    void finish(MFMailComposeResult result, const std::string& error);

    std::weak_ptr<MFMailComposeViewControllerDelegate> delegate_;
    MailMessage message_;
    bool sending_ = false;
    std::optional<MailOutcome> outcome_;
    /// Why the last attempt failed.
    std::optional<std::string> failure_;
};

} // namespace platform
