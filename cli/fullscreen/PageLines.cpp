#include "cli/fullscreen/PageLines.h"

#include "cli/io/RowText.h"
#include "cli/io/TextWidth.h"
#include "platform/ui/UIActivityIndicatorView.h"
#include "platform/ui/UITextView.h"
#include "platform/ui/UIWebView.h"

#include <algorithm>

namespace wardlock::cli {

using platform::NSIndexPath;
using Kind = PageLine::Kind;

namespace {

bool matches(const std::string& label, const std::string& filter) {
    return filter.empty() || folded(label).find(folded(filter)) != std::string::npos;
}

} // namespace

PageLines::PageLines(shell::Page& page, std::size_t columns, const std::string& filter) {
    if (page.isList())
        addList(page, columns, filter);
    else if (const auto table = page.table())
        addTable(*table, filter);
    if (!page.isList())
        addContent(page, columns);
}

void PageLines::addList(shell::Page& page, std::size_t columns, const std::string& filter) {
    for (std::size_t index = 0; index < page.sectionCount(); ++index) {
        const auto section = page.section(index);
        std::vector<NSIndexPath> rows;
        for (std::size_t row = 0; row < section.rowCount; ++row)
            if (filter.empty() || matches(rowLabel(page.row({index, row})), filter))
                rows.push_back({index, row});
        if (!filter.empty() && rows.empty())
            continue;
        if (rows.empty() && section.header.empty() && section.footer.empty())
            continue;
        if (!lines_.empty())
            lines_.push_back({});
        if (!section.header.empty())
            lines_.push_back({Kind::Header, {index, 0}, section.header});
        for (const auto path : rows)
            addRow(Kind::Row, path);
        if (!section.footer.empty() && filter.empty())
            addText(Kind::Footer, section.footer, columns);
    }
}

void PageLines::addTable(shell::Table& table, const std::string& filter) {
    for (std::size_t section = 0; section < table.sectionCount(); ++section)
        for (std::size_t row = 0; row < table.rowCount(section); ++row) {
            const auto shown = filter.empty() ? nullptr : table.show({section, row});
            if (!shown || matches(rowLabel(*shown), filter))
                addRow(Kind::TableRow, {section, row});
        }
}

void PageLines::addContent(shell::Page& page, std::size_t columns) {
    for (const auto& view : page.content()) {
        if (const auto* text = dynamic_cast<platform::UITextView*>(view.get()))
            addText(Kind::Text, text->text(), columns);
        else if (const auto* web = dynamic_cast<platform::UIWebView*>(view.get()))
            addText(web->text().empty() ? Kind::Note : Kind::Text,
                    web->text().empty() ? web->url() : web->text(), columns);
        else if (const auto* spinner = dynamic_cast<platform::UIActivityIndicatorView*>(view.get());
                 spinner && spinner->isAnimating())
            addText(Kind::Note, "Loading\u2026", columns);
    }
}

void PageLines::addText(Kind kind, const std::string& text, std::size_t columns) {
    for (auto& line : wrapped(text, columns))
        lines_.push_back({kind, {}, std::move(line)});
}

void PageLines::addRow(Kind kind, NSIndexPath path) {
    lines_.push_back({kind, path, {}});
    ++rowCount_;
}

std::optional<std::size_t> PageLines::find(NSIndexPath path) const {
    const auto found =
        std::ranges::find_if(lines_, [&](const PageLine& line) { return line.isRow() && line.path == path; });
    return found == lines_.end() ? std::nullopt : std::optional<std::size_t>(found - lines_.begin());
}

std::optional<std::size_t> PageLines::rowAfter(std::size_t index) const {
    for (++index; index < lines_.size(); ++index)
        if (lines_[index].isRow())
            return index;
    return std::nullopt;
}

std::optional<std::size_t> PageLines::rowBefore(std::size_t index) const {
    for (index = std::min(index, lines_.size()); index > 0; --index)
        if (lines_[index - 1].isRow())
            return index - 1;
    return std::nullopt;
}

std::optional<std::size_t> PageLines::rowNear(std::size_t index) const {
    if (index < lines_.size() && lines_[index].isRow())
        return index;
    const auto after = rowAfter(index);
    return after ? after : rowBefore(index);
}

} // namespace wardlock::cli
