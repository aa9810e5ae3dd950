#include "linux/mail/MailHeader.h"

#include "platform/base/Base64.h"
#include "platform/base/Utf8.h"

#include <algorithm>

namespace platform::mail {

namespace {

constexpr std::size_t longestLine = 76;
/// "=?UTF-8?B?" and "?=".
constexpr std::size_t charactersAroundWord = 12;
/// A word with less room than this moves to the next line.
constexpr std::size_t fewestBytesOfWord = 12;

bool isAscii(std::string_view text) {
    return std::ranges::all_of(text, [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

/// Returns how many bytes an encoded word takes on a line of which `used` characters are taken.
std::size_t bytesBeside(std::size_t used) {
    const std::size_t room = longestLine - std::min(longestLine, used + charactersAroundWord);
    return room / 4 * 3;
}

/// Returns the length of the beginning of `text` that fits `most` bytes, cut between characters.
std::size_t lengthOfWord(std::string_view text, std::size_t most) {
    std::size_t length = 0;
    while (length < text.size()) {
        const std::size_t next = std::max<std::size_t>(1, decodeUtf8(text, length).length);
        if (length + next > most)
            break;
        length += next;
    }
    return length;
}

/// Returns encoded words that begin on a line of which `used` characters are taken.
std::string encodedWords(std::string_view text, std::size_t used) {
    std::string words;
    if (bytesBeside(used) < fewestBytesOfWord) {
        words = "\r\n ";
        used = 1;
    }
    while (!text.empty()) {
        const std::size_t length = lengthOfWord(text, bytesBeside(used));
        words += "=?UTF-8?B?";
        appendBase64(words, text.substr(0, length));
        text.remove_prefix(length);
        words += text.empty() ? "?=" : "?=\r\n ";
        used = 1;
    }
    return words;
}

/// Breaks at blanks where the line grows too long; a word longer than a line stays whole.
std::string folded(const std::string& name, std::string text) {
    // Not right after the name: the first line would be blank.
    const std::size_t begin = name.size() + 2;
    text.insert(0, name + ": ");
    std::size_t lineStart = 0;
    std::size_t blank = std::string::npos;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\n')
            lineStart = i + 1;
        if (text[i] == ' ' && i > lineStart && i >= begin)
            blank = i;
        if (i - lineStart < longestLine || blank == std::string::npos || blank <= lineStart)
            continue;
        text.insert(blank, "\r\n");
        i += 2;
        lineStart = blank + 2;
        blank = std::string::npos;
    }
    return text;
}

/// Returns the text of a name, which may be quoted as a whole or in parts.
std::string unquoted(std::string_view name) {
    std::string text;
    for (std::size_t i = 0; i < name.size(); ++i) {
        if (name[i] == '\\' && i + 1 < name.size())
            text += name[++i];
        else if (name[i] != '"')
            text += name[i];
    }
    const std::size_t begin = std::min(text.find_first_not_of(' '), text.size());
    return text.substr(begin, text.find_last_not_of(' ') + 1 - begin);
}

/// Returns the ASCII name as it stands before an address: quoted where it has characters with a meaning
/// there.
std::string quotedIfNeeded(const std::string& name) {
    if (name.find_first_of("()<>[]:;@\\,.\"") == std::string::npos)
        return name;
    std::string text = "\"";
    for (const char byte : name) {
        if (byte == '"' || byte == '\\')
            text += '\\';
        text += byte;
    }
    return text + '"';
}

std::string encodedAddress(std::string_view address) {
    const std::size_t angle = address.rfind('<');
    if (angle == std::string_view::npos)
        return std::string(address);
    const std::string name = unquoted(address.substr(0, angle));
    const std::string place(address.substr(angle));
    if (name.empty())
        return place;
    return (isAscii(name) ? quotedIfNeeded(name) : encodedWords(name, longestLine / 2)) + ' ' + place;
}

bool needsEscape(char byte) {
    return !((byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9') ||
             byte == '.' || byte == '-' || byte == '_');
}

std::string percentEncoded(std::string_view text) {
    constexpr const char* digits = "0123456789ABCDEF";
    std::string encoded;
    for (const char byte : text) {
        if (!needsEscape(byte)) {
            encoded += byte;
            continue;
        }
        encoded += '%';
        encoded += digits[static_cast<unsigned char>(byte) >> 4];
        encoded += digits[static_cast<unsigned char>(byte) & 15];
    }
    return encoded;
}

} // namespace

std::string withoutControls(std::string_view text) {
    std::string clean(text);
    std::ranges::replace_if(
        clean, [](char byte) { return static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F; }, ' ');
    return clean;
}

std::string mailHeader(std::string_view name, std::string_view text) {
    const std::string clean = withoutControls(text);
    return folded(std::string(name), isAscii(clean) ? clean : encodedWords(clean, name.size() + 2)) + "\r\n";
}

std::string mailAddressHeader(std::string_view name, const std::vector<std::string>& addresses) {
    std::string list;
    for (const std::string& address : addresses) {
        const std::string text = encodedAddress(withoutControls(address));
        if (!text.empty())
            list += (list.empty() ? "" : ", ") + text;
    }
    return folded(std::string(name), list) + "\r\n";
}

std::string mailFileNameParameter(std::string_view parameter, std::string_view fileName) {
    const std::string clean = withoutControls(fileName);
    if (!isAscii(clean))
        return ";\r\n " + std::string(parameter) + "*=UTF-8''" + percentEncoded(clean);
    std::string plain;
    for (const char byte : clean)
        plain += byte == '"' || byte == '\\' ? '_' : byte;
    return "; " + std::string(parameter) + "=\"" + plain + '"';
}

} // namespace platform::mail
