#include "linux/HtmlTag.h"

#include "linux/HtmlEntities.h"

#include <algorithm>

namespace platform {
namespace {

constexpr std::string_view Space = " \t\r\n\f";

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
}

std::string lowered(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), lower);
    return result;
}

std::size_t orEnd(std::size_t found, std::string_view text) {
    return std::min(found, text.size());
}

/// An attribute's value, quoted or not; `position` stands behind the "=" and moves behind the value.
std::string_view value(std::string_view html, std::size_t& position) {
    position = orEnd(html.find_first_not_of(Space, position), html);
    if (position == html.size())
        return {};
    const char quote = html[position];
    if (quote == '"' || quote == '\'') {
        const std::size_t start = position + 1;
        const std::size_t end = orEnd(html.find(quote, start), html);
        position = std::min(end + 1, html.size());
        return html.substr(start, end - start);
    }
    const std::size_t start = position;
    position = orEnd(html.find_first_of(" \t\r\n\f>", start), html);
    return html.substr(start, position - start);
}

void readAttributes(std::string_view html, std::size_t& position, HtmlTag& tag) {
    while (position < html.size() && html[position] != '>') {
        const std::size_t start = orEnd(html.find_first_not_of(" \t\r\n\f/", position), html);
        position = orEnd(html.find_first_of(" \t\r\n\f/=>", start), html);
        const std::string name = lowered(html.substr(start, position - start));
        position = orEnd(html.find_first_not_of(Space, position), html);
        if (position == html.size() || html[position] != '=') {
            if (name.empty() && position < html.size() && html[position] != '>')
                ++position;
            continue;
        }
        ++position;
        const std::string text = withoutEntities(value(html, position));
        if (name == "href")
            tag.href = text;
        else if (name == "alt")
            tag.alt = text;
    }
}

} // namespace

HtmlTag HtmlTag::read(std::string_view html, std::size_t& position) {
    HtmlTag tag;
    if (html.substr(position).starts_with("<!--")) {
        const std::size_t end = html.find("-->", position + 4);
        position = end == html.npos ? html.size() : end + 3;
        return tag;
    }
    ++position;
    if (position < html.size() && html[position] == '/') {
        tag.isEnd = true;
        ++position;
    }
    const std::size_t end = orEnd(html.find_first_of(" \t\r\n\f/>", position), html);
    tag.name = lowered(html.substr(position, end - position));
    position = end;
    if (tag.name.starts_with('!') || tag.name.starts_with('?')) {
        position = orEnd(html.find('>', position), html);
        tag.name.clear();
    } else {
        readAttributes(html, position, tag);
    }
    position = std::min(position + 1, html.size());
    return tag;
}

} // namespace platform
