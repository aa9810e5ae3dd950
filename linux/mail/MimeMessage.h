#pragma once

#include "platform/services/MailMessage.h"

#include <ctime>
#include <string>

namespace platform::mail {

/// The sender and the time of a message.
struct MailOrigin {
    /// "user@host".
    std::string sender;
    std::time_t time = 0;
    /// Without angle brackets; unique.
    std::string messageId;
};

/// Returns the user, the host and the time of this process.
MailOrigin mailOriginOfProcess();

/// Returns the complete message, as a mail program opens it for sending: headers, text, attachments; ASCII
/// with CRLF.
std::string mimeMessage(const MailMessage& message, const MailOrigin& origin);

} // namespace platform::mail
