#include "linux/TextEncoding.h"

#include "platform/foundation/Utf8.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <iconv.h>

namespace platform {
namespace {

constexpr const char* Utf8 = "UTF-8";
constexpr const char* Western = "WINDOWS-1252";
constexpr std::string_view Replacement = "\xEF\xBF\xBD";
constexpr std::size_t MetaBeginning = 4096;

std::string lowered(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return std::tolower(c); });
    return lower;
}

/// The value behind "charset=", as content types and <meta> elements have it; empty for none.
std::string charsetIn(std::string_view text) {
    constexpr std::string_view key = "charset=";
    const std::string lower = lowered(text);
    const std::size_t found = lower.find(key);
    if (found == std::string::npos)
        return {};
    const std::size_t start = lower.find_first_not_of("\"' ", found + key.size());
    const std::size_t end = lower.find_first_of("\"' ;>/", std::min(start, lower.size()));
    return start == std::string::npos ? "" : lower.substr(start, end - start);
}

std::string charsetOf(std::string_view bytes, std::string_view contentType) {
    if (bytes.starts_with("\xEF\xBB\xBF"))
        return Utf8;
    if (bytes.starts_with("\xFF\xFE"))
        return "UTF-16LE";
    if (bytes.starts_with("\xFE\xFF"))
        return "UTF-16BE";
    std::string charset = charsetIn(contentType);
    if (charset.empty())
        charset = charsetIn(bytes.substr(0, MetaBeginning));
    if (charset.empty() && !isValidUtf8(bytes))
        return Western;
    return charset.empty() ? Utf8 : charset;
}

/// iconv lets bytes through that only look like UTF-8.
std::string validated(std::string_view text) {
    std::string valid;
    valid.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const DecodedCharacter decoded = decodeUtf8(text, i);
        if (decoded.length == 0)
            valid.append(Replacement);
        else
            valid.append(text.substr(i, decoded.length));
        i += std::max<std::size_t>(decoded.length, 1);
    }
    return valid;
}

class Converter {
public:
    explicit Converter(const std::string& charset) : handle_(iconv_open(Utf8, charset.c_str())) {
        if (!isOpen())
            handle_ = iconv_open(Utf8, Western);
    }
    ~Converter() {
        if (isOpen())
            iconv_close(handle_);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    std::string convert(std::string_view bytes) {
        std::string text;
        auto* input = const_cast<char*>(bytes.data());
        std::size_t left = bytes.size();
        while (isOpen() && left > 0) {
            char buffer[4096];
            char* output = buffer;
            std::size_t room = sizeof buffer;
            const std::size_t result = iconv(handle_, &input, &left, &output, &room);
            text.append(buffer, output);
            if (result != static_cast<std::size_t>(-1) || errno == E2BIG)
                continue;
            text.append(Replacement);
            ++input;
            --left;
        }
        return text;
    }

private:
    // NOLINTNEXTLINE(performance-no-int-to-ptr): how iconv_open tells
    bool isOpen() const { return handle_ != reinterpret_cast<iconv_t>(-1); }

    iconv_t handle_;
};

} // namespace

std::string decodedPage(std::string_view bytes, std::string_view contentType) {
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    std::string text = validated(Converter(charsetOf(bytes, contentType)).convert(bytes));
    if (text.starts_with(mark))
        text.erase(0, mark.size());
    return text;
}

} // namespace platform
