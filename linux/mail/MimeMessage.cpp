#include "linux/mail/MimeMessage.h"

#include "linux/mail/MailHeader.h"
#include "platform/base/Base64.h"

#include <algorithm>
#include <array>
#include <pwd.h>
#include <random>
#include <unistd.h>

namespace platform::mail {

namespace {

constexpr const char* lineEnd = "\r\n";
constexpr std::size_t base64Line = 76;

std::string twoDigits(int number) {
    return {static_cast<char>('0' + number / 10 % 10), static_cast<char>('0' + number % 10)};
}

/// Not strftime: month and day names depend on the locale there.
std::string mailDate(std::time_t time) {
    constexpr std::array days{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    constexpr std::array months{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    std::tm parts{};
    gmtime_r(&time, &parts);
    return std::string(days[static_cast<std::size_t>(parts.tm_wday)]) + ", " + twoDigits(parts.tm_mday) +
           ' ' + months[static_cast<std::size_t>(parts.tm_mon)] + ' ' + std::to_string(parts.tm_year + 1900) +
           ' ' + twoDigits(parts.tm_hour) + ':' + twoDigits(parts.tm_min) + ':' + twoDigits(parts.tm_sec) +
           " +0000";
}

std::string randomText() {
    constexpr const char* digits = "0123456789abcdef";
    std::random_device random;
    std::string text;
    for (int i = 0; i < 4; ++i)
        for (unsigned bits = random(), digit = 0; digit < 8; ++digit, bits >>= 4)
            text += digits[bits & 15];
    return text;
}

std::string base64Lines(std::string_view bytes) {
    std::string encoded;
    appendBase64(encoded, bytes);
    std::string lines;
    for (std::size_t at = 0; at < encoded.size(); at += base64Line)
        lines += encoded.substr(at, base64Line) + lineEnd;
    return lines;
}

std::string withMailLineEnds(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n')
            continue;
        if (text[i] == '\n' || text[i] == '\r')
            result += lineEnd;
        else
            result += text[i];
    }
    return result;
}

/// Returns whether a message can contain the text as it is: ASCII, printable, in lines that are not too long.
bool canStandPlain(std::string_view text) {
    std::size_t column = 0;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        column = byte == '\n' ? 0 : column + 1;
        if (column > base64Line || (byte < ' ' && byte != '\n' && byte != '\r' && byte != '\t') ||
            byte >= 0x7F)
            return false;
    }
    return true;
}

std::string textPart(const MailMessage& message) {
    const std::string text = withMailLineEnds(message.body);
    const bool plain = canStandPlain(text);
    return std::string("Content-Type: ") + (message.isHTML ? "text/html" : "text/plain") +
           "; charset=utf-8\r\nContent-Transfer-Encoding: " + (plain ? "7bit" : "base64") + "\r\n\r\n" +
           (plain ? text : base64Lines(text));
}

std::string safeMimeType(const std::string& type) {
    const bool safe = std::ranges::all_of(type, [](char byte) {
        return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9') ||
               byte == '/' || byte == '.' || byte == '+' || byte == '-';
    });
    return safe && type.find('/') != std::string::npos ? type : "application/octet-stream";
}

std::string attachmentPart(const MailAttachment& attachment) {
    return "Content-Type: " + safeMimeType(attachment.mimeType) +
           mailFileNameParameter("name", attachment.fileName) + "\r\nContent-Disposition: attachment" +
           mailFileNameParameter("filename", attachment.fileName) +
           "\r\nContent-Transfer-Encoding: base64\r\n\r\n" + base64Lines(attachment.data);
}

/// Thread-safe: mails are written beside the main thread, which may look users up meanwhile.
std::string nameOfUser() {
    std::array<char, 16384> room{};
    passwd entry{};
    passwd* found = nullptr;
    getpwuid_r(geteuid(), &entry, room.data(), room.size(), &found);
    return found ? found->pw_name : "wardlock";
}

} // namespace

MailOrigin mailOriginOfProcess() {
    std::array<char, 256> host{};
    const bool named = gethostname(host.data(), host.size() - 1) == 0 && host[0] != '\0';
    const std::string hostName = named ? host.data() : "localhost";
    return {nameOfUser() + '@' + hostName, std::time(nullptr), randomText() + '@' + hostName};
}

std::string mimeMessage(const MailMessage& message, const MailOrigin& origin) {
    std::string text = "Date: " + mailDate(origin.time) + lineEnd;
    text += mailAddressHeader("From", {origin.sender});
    if (!message.recipients.empty())
        text += mailAddressHeader("To", message.recipients);
    text += mailHeader("Subject", message.subject);
    text += "Message-ID: <" + withoutControls(origin.messageId) + ">\r\n";
    // Mail programs open a message with this header for editing and sending.
    text += "X-Unsent: 1\r\nMIME-Version: 1.0\r\n";
    if (message.attachments.empty())
        return text + textPart(message);
    // A boundary with "=_" cannot occur in base64, and a random one not in the text.
    const std::string boundary = "=_" + randomText();
    text += "Content-Type: multipart/mixed; boundary=\"" + boundary + "\"\r\n\r\n";
    text += "--" + boundary + lineEnd + textPart(message);
    for (const auto& attachment : message.attachments)
        text += std::string(lineEnd) + "--" + boundary + lineEnd + attachmentPart(attachment);
    return text + lineEnd + "--" + boundary + "--\r\n";
}

} // namespace platform::mail
