#include "cli/terminal/TextPage.h"

#include "cli/io/RowText.h"
#include "cli/io/TextWidth.h"
#include "platform/ui/UIActivityIndicatorView.h"
#include "platform/ui/UITextView.h"
#include "platform/ui/UIWebView.h"

#include <algorithm>
#include <utility>

namespace wardlock::cli {

using platform::NSIndexPath;
using shell::Row;
using shell::RowKind;

namespace {

constexpr std::size_t numberColumns = 5;
constexpr std::size_t gap = 2;
/// Lines besides those of the page: blank, title, rule, position, blank, and the prompt.
constexpr std::size_t linesAroundRows = 6;

std::string valueText(const Row& row) {
    switch (row.kind) {
    case RowKind::Switch:
        return row.isOn() ? "on" : "off";
    case RowKind::Slider:
    case RowKind::LinkList:
    case RowKind::EditText:
    case RowKind::SecureEditText:
        return row.text + (row.kind == RowKind::LinkList ? " \u203A" : "");
    case RowKind::Link:
        return "\u203A";
    case RowKind::StaticText:
        return row.marked ? "\u2713" : "";
    case RowKind::Button:
        break;
    }
    return "";
}

} // namespace

TextPage::TextPage(shell::Screen& screen, TextStyle style, Size size, std::size_t first)
    : style_(style), size_(size) {
    shell::Page& page = *screen.page();
    addTitle(screen);
    const auto table = page.isList() ? nullptr : page.table();
    if (table)
        addTable(*table, first);
    if (page.isList())
        addList(page);
    else
        addContent(page);
    // A table has been cut already: cells exist only for rows that are shown.
    addPart(table ? 0 : first);
}

std::size_t TextPage::height() const {
    return std::max<std::size_t>(*size_.lines - std::min(*size_.lines, linesAroundRows), 1);
}

void TextPage::addPart(std::size_t first) {
    const bool isTable = count_ > 0;
    const bool isCut = !isTable && size_.lines && lines_.size() > height();
    if (!isCut) {
        for (const auto& line : lines_)
            text_ += line + '\n';
        return;
    }
    count_ = lines_.size();
    first = std::min(first, count_ - 1);
    shownCount_ = std::min(height(), count_ - first);
    const auto begin = lines_.begin() + static_cast<std::ptrdiff_t>(first);
    lines_ = {begin, begin + static_cast<std::ptrdiff_t>(shownCount_)};
    addPosition("Lines", first);
    for (const auto& line : lines_)
        text_ += line + '\n';
}

void TextPage::addPosition(const std::string& what, std::size_t first) {
    addLine(style_.dim("     " + what + ' ' + std::to_string(first + 1) + " to " +
                       std::to_string(first + shownCount_) + " of " + std::to_string(count_) +
                       "; n shows the next, p the previous"));
}

void TextPage::addTitle(shell::Screen& screen) {
    const std::string back = printable(screen.backTitle());
    const std::string left = back.empty() ? "" : "\u2039 " + truncated(back, size_.columns / 3) + "   ";
    text_ += '\n' + style_.blue(left) +
             style_.bold(truncated(printable(screen.page()->title()), size_.columns - columnsOf(left))) +
             (screen.page()->barButton() ? style_.blue("   [+]") : "") + '\n';
    std::string rule;
    for (std::size_t column = 0; column < size_.columns; ++column)
        rule += "\u2500";
    text_ += style_.dim(rule) + '\n';
}

void TextPage::addList(shell::Page& page) {
    for (std::size_t index = 0; index < page.sectionCount(); ++index)
        addSection(page, index);
}

void TextPage::addSection(shell::Page& page, std::size_t index) {
    const auto section = page.section(index);
    if (index > 0)
        addLine();
    if (!section.header.empty())
        addLine(style_.bold(truncated(printable(section.header), size_.columns)));
    for (std::size_t number = 0; number < section.rowCount; ++number) {
        const NSIndexPath path{index, number};
        const Row row = page.row(path);
        const std::string value = printable(valueText(row));
        const bool accent = row.isOn() || row.marked;
        addRow(path, printable(rowLabel(row)), value, accent ? style_.green(value) : value, row.enabled);
    }
    if (!section.footer.empty())
        addParagraph(section.footer, numberColumns, true);
}

void TextPage::addRow(NSIndexPath path, const std::string& label, const std::string& value,
                      const std::string& styledValue, bool enabled) {
    rows_.push_back(path);
    const std::string number = std::to_string(rows_.size());
    const std::size_t room = size_.columns - std::min(size_.columns, numberColumns);
    // A long value is truncated for the label, down to half of the line.
    const std::string shownValue =
        truncated(value, std::max(room / 2, room - std::min(room, columnsOf(label) + gap)));
    const std::size_t valueColumns = columnsOf(shownValue);
    const std::size_t labelColumns = room - std::min(room, valueColumns + (valueColumns ? gap : 0));
    std::string shownLabel = truncated(label, labelColumns);
    if (valueColumns)
        shownLabel = padded(std::move(shownLabel), labelColumns);
    const std::string numberText =
        std::string(numberColumns - 2 - std::min(numberColumns - 2, number.size()), ' ') + number + "  ";
    addLine(style_.dim(numberText) + (enabled ? shownLabel : style_.dim(shownLabel)) +
            (valueColumns ? std::string(gap, ' ') + (shownValue == value ? styledValue : shownValue) : ""));
}

void TextPage::addParagraph(const std::string& text, std::size_t indent, bool dim) {
    for (const auto& line : wrapped(text, size_.columns - std::min(size_.columns - 1, indent)))
        addLine(std::string(indent, ' ') + (dim ? style_.dim(line) : line));
}

void TextPage::addTable(shell::Table& table, std::size_t first) {
    count_ = table.sectionCount() > 0 ? table.rowCount(0) : 0;
    first = std::min(first, count_ > 0 ? count_ - 1 : 0);
    shownCount_ = size_.lines ? std::min(height(), count_ - first) : count_ - first;
    for (std::size_t row = first; row < first + shownCount_; ++row)
        if (const auto shown = table.show({0, row})) {
            const std::string value = shown->switchControl() ? shown->isOn() ? "on" : "off" : "";
            addRow({0, row}, printable(rowLabel(*shown)), value, shown->isOn() ? style_.green(value) : value,
                   true);
        }
    if (shownCount_ < count_)
        addPosition("Rows", first);
}

void TextPage::addContent(shell::Page& page) {
    for (const auto& view : page.content()) {
        if (const auto* text = dynamic_cast<platform::UITextView*>(view.get()))
            addParagraph(text->text(), 0, false);
        else if (const auto* web = dynamic_cast<platform::UIWebView*>(view.get()))
            addParagraph(web->text().empty() ? web->url() : web->text(), 0, web->text().empty());
        else if (const auto* spinner = dynamic_cast<platform::UIActivityIndicatorView*>(view.get());
                 spinner && spinner->isAnimating())
            addLine(style_.dim("Loading\u2026"));
    }
}

} // namespace wardlock::cli
