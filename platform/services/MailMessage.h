#pragma once

#include <string>
#include <vector>

namespace platform {

struct MailAttachment {
    std::string data;
    std::string mimeType;
    std::string fileName;

    bool operator==(const MailAttachment&) const = default;
};

/// A mail in the composer; texts are UTF-8.
struct MailMessage {
    std::vector<std::string> recipients;
    std::string subject;
    std::string body;
    bool isHTML = false;
    std::vector<MailAttachment> attachments;

    bool operator==(const MailMessage&) const = default;
};

} // namespace platform
