#pragma once

#include "platform/services/MailMessage.h"

#include <ctime>
#include <string>

namespace platform::mail {

/// What a message says of where and when it was written.
struct MailOrigin {
    /// "user@host".
    std::string sender;
    std::time_t time = 0;
    /// Without angle brackets; unique.
    std::string messageId;
};

/// Who, where and when this process is.
MailOrigin mailOriginOfProcess();

/// The complete message, as a mail program opens it for sending: headers, text, attachments; ASCII with CRLF.
std::string mimeMessage(const MailMessage& message, const MailOrigin& origin);

} // namespace platform::mail
