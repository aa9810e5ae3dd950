#include "linux/web/HtmlText.h"

#include "linux/web/HtmlTree.h"
#include "linux/web/TextFlow.h"
#include "linux/web/WebAddress.h"

#include <algorithm>
#include <array>

namespace platform::web {
namespace {

constexpr std::size_t mostLinks = 1000;

enum class Shown { Not, Inline, Line, Paragraph, Preformatted };

// How a browser shows the elements of HTML without styles; all others are inline.
constexpr std::array notShown{GUMBO_TAG_SCRIPT,   GUMBO_TAG_STYLE,  GUMBO_TAG_TITLE,    GUMBO_TAG_TEMPLATE,
                              GUMBO_TAG_NOSCRIPT, GUMBO_TAG_IFRAME, GUMBO_TAG_NOFRAMES, GUMBO_TAG_NOEMBED,
                              GUMBO_TAG_DATALIST, GUMBO_TAG_RP};
constexpr std::array paragraphs{GUMBO_TAG_P,     GUMBO_TAG_H1,        GUMBO_TAG_H2, GUMBO_TAG_H3,
                                GUMBO_TAG_H4,    GUMBO_TAG_H5,        GUMBO_TAG_H6, GUMBO_TAG_UL,
                                GUMBO_TAG_TABLE, GUMBO_TAG_BLOCKQUOTE};
constexpr std::array preformatted{GUMBO_TAG_PRE, GUMBO_TAG_LISTING, GUMBO_TAG_XMP, GUMBO_TAG_PLAINTEXT,
                                  GUMBO_TAG_TEXTAREA};
constexpr std::array lines{GUMBO_TAG_DIV,     GUMBO_TAG_SECTION, GUMBO_TAG_ARTICLE,    GUMBO_TAG_HEADER,
                           GUMBO_TAG_HGROUP,  GUMBO_TAG_FOOTER,  GUMBO_TAG_NAV,        GUMBO_TAG_MAIN,
                           GUMBO_TAG_ASIDE,   GUMBO_TAG_FORM,    GUMBO_TAG_LI,         GUMBO_TAG_OL,
                           GUMBO_TAG_TR,      GUMBO_TAG_CAPTION, GUMBO_TAG_DL,         GUMBO_TAG_DT,
                           GUMBO_TAG_DD,      GUMBO_TAG_HR,      GUMBO_TAG_BODY,       GUMBO_TAG_FIGURE,
                           GUMBO_TAG_DETAILS, GUMBO_TAG_SUMMARY, GUMBO_TAG_FIGCAPTION, GUMBO_TAG_ADDRESS,
                           GUMBO_TAG_CENTER,  GUMBO_TAG_LEGEND,  GUMBO_TAG_OPTION,     GUMBO_TAG_FIELDSET};

Shown shown(GumboTag tag) {
    const auto isOneOf = [tag](const auto& tags) { return std::ranges::find(tags, tag) != tags.end(); };
    return isOneOf(notShown)       ? Shown::Not
           : isOneOf(paragraphs)   ? Shown::Paragraph
           : isOneOf(preformatted) ? Shown::Preformatted
           : isOneOf(lines)        ? Shown::Line
                                   : Shown::Inline;
}

Shown shown(const GumboNode& node) {
    if (node.type == GUMBO_NODE_TEMPLATE)
        return Shown::Not;
    if (node.type != GUMBO_NODE_ELEMENT)
        return Shown::Inline;
    const GumboElement& element = node.v.element;
    if (element.tag_namespace == GUMBO_NAMESPACE_SVG || hasAttribute(node, "hidden"))
        return Shown::Not;
    return element.tag_namespace == GUMBO_NAMESPACE_HTML ? shown(element.tag) : Shown::Inline;
}

bool isElement(const GumboNode& node, GumboTag tag) {
    return node.type == GUMBO_NODE_ELEMENT && node.v.element.tag_namespace == GUMBO_NAMESPACE_HTML &&
           node.v.element.tag == tag;
}

/// Returns the base of the page's relative links: the first <base> that names an address, else the page
/// itself.
WebAddress baseOf(const GumboNode& document, const std::string& url) {
    const WebAddress page(url);
    std::string base;
    visit(
        document,
        [&](const GumboNode& node) {
            if (base.empty() && isElement(node, GUMBO_TAG_BASE))
                base = page.of(attribute(node, "href"));
            return base.empty();
        },
        [](const GumboNode&) {});
    return WebAddress(base.empty() ? url : base);
}

/// Returns the rank of a heading; 0 for any other element.
int headingRank(const GumboNode& node) {
    constexpr std::array headings{GUMBO_TAG_H1, GUMBO_TAG_H2, GUMBO_TAG_H3,
                                  GUMBO_TAG_H4, GUMBO_TAG_H5, GUMBO_TAG_H6};
    for (std::size_t i = 0; i < headings.size(); ++i)
        if (isElement(node, headings[i]))
            return static_cast<int>(i) + 1;
    return 0;
}

bool isList(const GumboNode& node) {
    return isElement(node, GUMBO_TAG_UL) || isElement(node, GUMBO_TAG_OL);
}

/// Writes the whole text of a page.
class WholeText {
public:
    explicit WholeText(const std::vector<WebBlock>& blocks) {
        for (const WebBlock& block : blocks)
            add(block);
        endLink();
        if (!text_.empty())
            text_.push_back('\n');
    }

    std::string take() { return std::move(text_); }

private:
    void add(const WebBlock& block) {
        if (!block.runs.empty() && block.runs.front().link != link_)
            endLink();
        if (!text_.empty())
            text_ += block.apart ? "\n\n" : "\n";
        if (block.kind == WebBlock::Kind::ListItem)
            text_ += "• ";
        for (const WebRun& run : block.runs) {
            if (run.link != link_)
                endLink();
            link_ = run.link;
            text_ += run.text;
        }
    }

    /// Runs of a link follow each other, also from block to block.
    void endLink() {
        if (link_ == 0)
            return;
        const bool isApart = text_.empty() || text_.back() == ' ' || text_.back() == '\n';
        text_ += (isApart ? "[" : " [") + std::to_string(link_) + "]";
        link_ = 0;
    }

    std::string text_;
    std::size_t link_ = 0;
};

class Reader {
public:
    Reader(const GumboNode& document, const std::string& url) : base_(baseOf(document, url)) {
        visit(
            document, [this](const GumboNode& node) { return enter(node); },
            [this](const GumboNode& node) { leave(node); });
    }

    PageText take() {
        page_.blocks = flow_.take();
        page_.text = WholeText(page_.blocks).take();
        return std::move(page_);
    }

private:
    bool enter(const GumboNode& node) {
        if (node.type == GUMBO_NODE_TEXT || node.type == GUMBO_NODE_CDATA ||
            node.type == GUMBO_NODE_WHITESPACE)
            flow_.write(node.v.text.text);
        const Shown how = shown(node);
        if (how == Shown::Not)
            return false;
        separate(how);
        if (how == Shown::Preformatted)
            flow_.beginPreformatted();
        if (const int rank = headingRank(node))
            flow_.beginHeading(rank);
        else if (isList(node))
            flow_.beginList();
        else if (isElement(node, GUMBO_TAG_BR))
            flow_.breakLine();
        else if (isElement(node, GUMBO_TAG_LI))
            flow_.beginItem();
        else if (isElement(node, GUMBO_TAG_TD) || isElement(node, GUMBO_TAG_TH))
            flow_.write(" ");
        else if (isElement(node, GUMBO_TAG_IMG))
            flow_.write(attribute(node, "alt"));
        else if (isElement(node, GUMBO_TAG_A))
            beginLink(attribute(node, "href"));
        return true;
    }

    void leave(const GumboNode& node) {
        const Shown how = shown(node);
        if (how == Shown::Not)
            return;
        if (isElement(node, GUMBO_TAG_A))
            endLink();
        else if (headingRank(node) != 0)
            flow_.endHeading();
        else if (isList(node))
            flow_.endList();
        else if (isElement(node, GUMBO_TAG_LI))
            flow_.endItem();
        if (how == Shown::Preformatted)
            flow_.endPreformatted();
        separate(how);
    }

    void separate(Shown how) {
        if (how != Shown::Inline)
            flow_.endLine(how == Shown::Line ? 1 : 2);
    }

    void beginLink(std::string_view href) {
        endLink();
        std::string url = page_.links.size() < mostLinks ? base_.of(href) : "";
        if (url.empty())
            return;
        page_.links.push_back({{}, std::move(url)});
        flow_.beginLink(page_.links.size());
        isInLink_ = true;
    }

    void endLink() {
        if (!isInLink_)
            return;
        isInLink_ = false;
        WebLink& link = page_.links.back();
        link.text = flow_.endLink();
        if (link.text.empty())
            link.text = link.url;
    }

    const WebAddress base_;
    TextFlow flow_;
    PageText page_;
    bool isInLink_ = false;
};

} // namespace

std::optional<PageText> htmlText(std::string_view html, const std::string& url) {
    const HtmlTree tree(html);
    if (!tree.document())
        return std::nullopt;
    return Reader(*tree.document(), url).take();
}

PageText plainText(std::string_view text) {
    TextFlow flow;
    flow.beginPreformatted();
    flow.write(text);
    auto blocks = flow.take();
    std::string whole = WholeText(blocks).take();
    return {std::move(whole), {}, std::move(blocks)};
}

} // namespace platform::web
