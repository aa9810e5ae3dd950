#include "linux/web/PageEncoding.h"

#include "linux/web/EncodingLabels.h"
#include "linux/web/HtmlTree.h"
#include "platform/base/Utf8.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <iconv.h>
#include <utility>

namespace platform::web {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view utf8Name = "UTF-8";
constexpr const char* western = "CP1252";
constexpr std::string_view replacement = "\xEF\xBF\xBD";
constexpr std::string_view blanks = " \t\n\f\r";
/// Bytes of a page that are searched for its <meta>.
constexpr std::size_t metaBeginning = 4096;

std::string lowered(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](unsigned char c) { return std::tolower(c); });
    return lower;
}

std::string_view withoutBlanks(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

const char* encodingLabelled(std::string_view label) {
    return encodingOf(lowered(withoutBlanks(label)));
}

/// Returns the encoding after "charset=", as content types and <meta> elements have it; null for none.
const char* encodingIn(std::string_view text) {
    const std::string lower = lowered(text);
    constexpr std::string_view key = "charset";
    for (std::size_t at = lower.find(key); at != lower.npos; at = lower.find(key, at + 1)) {
        std::string_view value = withoutBlanks(std::string_view(lower).substr(at + key.size()));
        if (!value.starts_with('='))
            continue;
        value = withoutBlanks(value.substr(1));
        const bool isQuoted = value.starts_with('"') || value.starts_with('\'');
        const std::string_view end = isQuoted ? value.substr(0, 1) : "; \t\n\f\r"sv;
        value.remove_prefix(isQuoted ? 1 : 0);
        return encodingLabelled(value.substr(0, value.find_first_of(end)));
    }
    return nullptr;
}

/// Returns the encoding that one <meta> declares; null when it declares none.
const char* declaredBy(const GumboNode& meta) {
    const char* encoding = encodingLabelled(attribute(meta, "charset"));
    if (!encoding && lowered(attribute(meta, "http-equiv")) == "content-type")
        encoding = encodingIn(attribute(meta, "content"));
    // A page that could be read so far is not UTF-16.
    return encoding && std::string_view(encoding).starts_with("UTF-16") ? utf8Name.data() : encoding;
}

/// Returns the encoding of the first <meta> that names one; null for none.
const char* declaredEncoding(std::string_view bytes) {
    const HtmlTree tree(bytes.substr(0, metaBeginning));
    const char* encoding = nullptr;
    const auto look = [&encoding](const GumboNode& node) {
        if (!encoding && node.type == GUMBO_NODE_ELEMENT && node.v.element.tag == GUMBO_TAG_META)
            encoding = declaredBy(node);
        return encoding == nullptr;
    };
    if (tree.document())
        visit(*tree.document(), look, [](const GumboNode&) {});
    return encoding;
}

/// Removes the byte-order mark; returns its encoding, null for none.
const char* encodingMarked(std::string_view& bytes) {
    for (const auto& [mark, encoding] :
         {std::pair("\xEF\xBB\xBF"sv, "UTF-8"), {"\xFF\xFE"sv, "UTF-16LE"}, {"\xFE\xFF"sv, "UTF-16BE"}})
        if (bytes.starts_with(mark)) {
            bytes.remove_prefix(mark.size());
            return encoding;
        }
    return nullptr;
}

/// Replaces what is not well-formed by U+FFFD.
std::string validated(std::string_view text) {
    std::string valid;
    valid.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const DecodedCharacter decoded = decodeUtf8(text, i);
        if (decoded.length == 0)
            valid.append(replacement);
        else
            valid.append(text.substr(i, decoded.length));
        i += std::max<std::size_t>(decoded.length, 1);
    }
    return valid;
}

class Converter {
public:
    explicit Converter(std::string_view encoding)
        : handle_(iconv_open(utf8Name.data(), encoding.data())),
          unit_(encoding.starts_with("UTF-16") ? 2 : 1) {}
    ~Converter() {
        if (isOpen())
            iconv_close(handle_);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    // NOLINTNEXTLINE(performance-no-int-to-ptr): how iconv_open reports a failure
    bool isOpen() const { return handle_ != reinterpret_cast<iconv_t>(-1); }

    std::string convert(std::string_view bytes) {
        std::string text;
        auto* input = const_cast<char*>(bytes.data());
        std::size_t left = bytes.size();
        while (left > 0) {
            if (step(&input, &left, text) || errno == E2BIG)
                continue;
            text.append(replacement);
            const std::size_t skipped = std::min(unit_, left);
            input += skipped;
            left -= skipped;
        }
        // The characters that an encoding with states still has to write.
        step(nullptr, nullptr, text);
        return text;
    }

private:
    bool step(char** input, std::size_t* left, std::string& text) {
        char buffer[4096];
        char* output = buffer;
        std::size_t room = sizeof buffer;
        const std::size_t result = iconv(handle_, input, left, &output, &room);
        text.append(buffer, output);
        return result != static_cast<std::size_t>(-1);
    }

    iconv_t handle_;
    /// The bytes to skip where nothing can be read.
    std::size_t unit_;
};

std::string decoded(std::string_view bytes, const char* encoding) {
    if (!encoding)
        encoding = isValidUtf8(bytes) ? utf8Name.data() : western;
    if (encoding == utf8Name)
        return validated(bytes);
    Converter converter(encoding);
    return converter.isOpen() ? validated(converter.convert(bytes)) : decoded(bytes, utf8Name.data());
}

} // namespace

std::string decodedPage(std::string_view bytes, std::string_view contentType) {
    const char* encoding = encodingMarked(bytes);
    if (!encoding)
        encoding = encodingIn(contentType);
    if (!encoding)
        encoding = declaredEncoding(bytes);
    return decoded(bytes, encoding);
}

std::string decodedText(std::string_view bytes, std::string_view contentType) {
    const char* encoding = encodingMarked(bytes);
    return decoded(bytes, encoding ? encoding : encodingIn(contentType));
}

} // namespace platform::web
