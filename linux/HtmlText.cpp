#include "linux/HtmlText.h"

#include "linux/HtmlEntities.h"
#include "linux/HtmlTag.h"
#include "platform/foundation/Utf8.h"

#include <curl/curl.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <memory>

namespace platform {
namespace {

constexpr std::size_t MostLinks = 1000;

constexpr std::array<std::string_view, 5> Unread{"script", "style", "title", "template", "svg"};
/// An empty line before and after.
constexpr std::array<std::string_view, 11> Paragraphs{"p",  "h1", "h2",    "h3",  "h4",        "h5",
                                                      "h6", "ul", "table", "pre", "blockquote"};
/// A line of their own.
constexpr std::array<std::string_view, 22> Lines{
    "div", "section", "article", "header", "footer", "nav",  "main",   "aside",   "form",     "li", "ol",
    "tr",  "dl",      "dt",      "dd",     "hr",     "body", "figure", "address", "fieldset", "br", "option"};

template <std::size_t Count>
bool isOneOf(const std::array<std::string_view, Count>& names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// The absolute address of a link, or nothing where it leads to no web page.
std::string resolved(const std::string& base, const std::string& link) {
    struct Release {
        void operator()(CURLU* url) const { curl_url_cleanup(url); }
    };
    const std::unique_ptr<CURLU, Release> url(curl_url());
    if (link.empty() || link.starts_with('#') || curl_url_set(url.get(), CURLUPART_URL, base.c_str(), 0) ||
        curl_url_set(url.get(), CURLUPART_URL, link.c_str(), CURLU_URLENCODE))
        return {};
    char* text = nullptr;
    if (curl_url_get(url.get(), CURLUPART_URL, &text, 0))
        return {};
    std::string address(text);
    curl_free(text);
    return address.starts_with("http://") || address.starts_with("https://") ? address : std::string();
}

/// Gathers text, white space collapsed and line ends held back until more text comes.
class Writer {
public:
    void write(std::string_view text) {
        for (std::size_t i = 0; i < text.size();) {
            const DecodedCharacter decoded = decodeUtf8(text, i);
            i += std::max<std::size_t>(decoded.length, 1);
            if (decoded.length != 0)
                put(decoded.character);
        }
    }
    void endLine(std::size_t lineEnds) {
        space_ = false;
        lineEnds_ = std::max(lineEnds_, lineEnds);
    }
    void breakLine() {
        space_ = false;
        ++lineEnds_;
    }
    void setKeepsSpace(bool keeps) { keepsSpace_ = keeps; }

    std::string take() {
        if (!text_.empty())
            text_.push_back('\n');
        return std::move(text_);
    }
    std::size_t size() const { return text_.size(); }
    std::string_view since(std::size_t start) const {
        const std::string_view text = std::string_view(text_).substr(std::min(start, text_.size()));
        return text.substr(std::min(text.find_first_not_of(" \n"), text.size()));
    }

private:
    static bool isControl(char32_t c) { return c < 0x20 || (c >= 0x7F && c < 0xA0); }

    void put(char32_t character) {
        const bool isSpace = character == ' ' || character == '\t' || character == '\r' || character == '\f';
        if (character == '\n' && keepsSpace_)
            breakLine();
        else if (character == '\n' || (isSpace && !keepsSpace_))
            space_ = true;
        else if (isSpace && character != '\r')
            append(U' ');
        else if (!isControl(character))
            append(character);
    }
    void append(char32_t character) {
        if (!text_.empty())
            text_.append(std::min<std::size_t>(lineEnds_, 2), '\n');
        if (space_ && lineEnds_ == 0 && !text_.empty())
            text_.push_back(' ');
        lineEnds_ = 0;
        space_ = false;
        appendUtf8(character, text_);
    }

    std::string text_;
    bool space_ = false;
    std::size_t lineEnds_ = 0;
    bool keepsSpace_ = false;
};

class Reader {
public:
    Reader(std::string_view html, const std::string& url) : html_(html), url_(url) {}

    PageText read() {
        while (position_ < html_.size()) {
            const std::size_t tag = std::min(html_.find('<', position_), html_.size());
            writer_.write(withoutEntities(html_.substr(position_, tag - position_)));
            position_ = tag;
            if (position_ < html_.size())
                readTag();
        }
        endLink();
        page_.text = writer_.take();
        return std::move(page_);
    }

private:
    /// A "<" that begins no tag is text.
    bool isTag() const {
        const std::string_view next = html_.substr(position_ + 1, 1);
        const bool letter =
            !next.empty() && ((next[0] >= 'a' && next[0] <= 'z') || (next[0] >= 'A' && next[0] <= 'Z'));
        return letter || next == "/" || next == "!" || next == "?";
    }

    void readTag() {
        if (!isTag()) {
            writer_.write("<");
            ++position_;
            return;
        }
        const HtmlTag tag = HtmlTag::read(html_, position_);
        if (isOneOf(Unread, tag.name) && !tag.isEnd)
            skip(tag.name);
        else if (isOneOf(Paragraphs, tag.name))
            writer_.endLine(2);
        else if (tag.name == "br")
            writer_.breakLine();
        else if (isOneOf(Lines, tag.name))
            writer_.endLine(1);
        if (tag.name == "pre")
            writer_.setKeepsSpace(!tag.isEnd);
        if (tag.name == "li" && !tag.isEnd)
            writer_.write("• ");
        if (tag.name == "td" || tag.name == "th")
            writer_.write(" ");
        if (tag.name == "img")
            writer_.write(tag.alt);
        if (tag.name == "a")
            tag.isEnd ? endLink() : beginLink(tag.href);
    }

    /// Leaves out everything up to the element's end.
    void skip(const std::string& name) {
        while (position_ < html_.size()) {
            position_ = std::min(html_.find("</", position_), html_.size());
            if (position_ == html_.size() || HtmlTag::read(html_, position_).name == name)
                return;
        }
    }

    void beginLink(const std::string& href) {
        endLink();
        link_ = page_.links.size() < MostLinks ? resolved(url_, href) : "";
        linkStart_ = writer_.size();
    }

    void endLink() {
        if (link_.empty())
            return;
        std::string text(writer_.since(linkStart_));
        page_.links.push_back({text.empty() ? link_ : text, std::move(link_)});
        link_.clear();
        char number[16];
        const auto end = std::to_chars(number, number + sizeof number, page_.links.size()).ptr;
        writer_.write(" [" + std::string(number, end) + "]");
    }

    std::string_view html_;
    const std::string& url_;
    std::size_t position_ = 0;
    Writer writer_;
    PageText page_;
    std::string link_;
    std::size_t linkStart_ = 0;
};

} // namespace

PageText htmlText(std::string_view html, const std::string& url) {
    return Reader(html, url).read();
}

PageText plainText(std::string_view text) {
    Writer writer;
    writer.setKeepsSpace(true);
    writer.write(text);
    return {writer.take(), {}};
}

} // namespace platform
