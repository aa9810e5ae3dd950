#include "cli/terminal/TerminalView.h"

#include "cli/io/Output.h"
#include "cli/io/Terminal.h"
#include "cli/io/TextWidth.h"
#include "cli/terminal/RowNames.h"

#include <algorithm>
#include <utility>

namespace wardlock::cli {

using platform::NSIndexPath;
using shell::Row;
using shell::RowKind;

namespace {

constexpr std::size_t longestQuote = 40;
constexpr std::size_t longestList = 400;

TextPage::Size terminalSize() {
    const bool pages = Terminal::readsInput() && Terminal::showsOutput();
    return {Terminal::columns(), pages ? std::optional(Terminal::lines()) : std::nullopt};
}

} // namespace

TerminalView::TerminalView(shell::SettingsApplication& settings, SettingsLoop& loop, TextStyle style)
    : settings_(settings), dialog_(loop, style), sheets_(settings, loop, dialog_),
      offerIsNew_(settings.screen().offer().has_value()), changes_(settings.observe(*this)),
      turns_(loop.observeTurns([this] { followTurn(); })) {}

void TerminalView::run() {
    while (!dialog_.isOver()) {
        showNotice();
        if (!sheets_.ask())
            askPage();
    }
}

void TerminalView::followTurn() {
    sheets_.followKeypad();
    redrawIfStale();
}

void TerminalView::redrawIfStale() {
    if (!pageIsAsked_ || dialog_.prompt().empty() || !(stale_ || terminalSize() != shownSize_))
        return;
    Output::line("");
    showNotice();
    showPage();
    dialog_.repeatPrompt();
}

void TerminalView::showPage() {
    shell::Screen& screen = settings_.screen();
    if (shownPage_ != screen.page().get()) {
        shownPage_ = screen.page().get();
        first_ = 0;
    }
    shownSize_ = terminalSize();
    const TextPage page(screen, dialog_.style(), shownSize_, first_);
    Output::text(page.text());
    rows_ = page.rows();
    shownCount_ = page.shownCount();
    count_ = page.count();
    mostShown_ = page.most();
    stale_ = false;
}

void TerminalView::offerChanged() {
    offerIsNew_ = settings_.screen().offer().has_value();
    stale_ = stale_ || offerIsNew_;
}

void TerminalView::showOffer() {
    const auto& offer = settings_.screen().offer();
    if (!std::exchange(offerIsNew_, false) || !offer)
        return;
    const char* how = offer->kind == shell::Offer::Kind::Undo ? "; u takes that back." : ".\nR restores it.";
    for (const auto& line : wrapped(offer->text + how, Terminal::columns()))
        Output::line(dialog_.style().bold(line));
}

void TerminalView::showNotice() {
    showOffer();
    if (settings_.screen().notice().empty())
        return;
    for (const auto& line : wrapped(settings_.screen().notice(), Terminal::columns()))
        Output::line(dialog_.style().bold(line));
    settings_.dismissNotice();
}

void TerminalView::askPage() {
    if (stale_ || !std::exchange(pageStands_, false))
        showPage();
    const bool first = settings_.screen().pages().size() < 2;
    std::string prompt = "Number";
    if (!first)
        prompt += ", b back";
    if (settings_.screen().page()->barButton())
        prompt += ", + add";
    pageIsAsked_ = true;
    const auto word = dialog_.ask("\n" + prompt + ", ? help, q quit: ");
    pageIsAsked_ = false;
    if (word && !word->empty())
        runPageCommand(*word);
}

void TerminalView::runPageCommand(const std::string& word) {
    if (const auto number = wholeNumber(word)) {
        pageStands_ = *number == 0 || *number > rows_.size();
        if (pageStands_)
            dialog_.printError("There is no row " + std::to_string(*number) + ".");
        else
            touchRow(rows_[*number - 1]);
    } else if (word == "b") {
        dialog_.printRefusal(settings_.page().goBack());
    } else if (word == "+") {
        dialog_.printRefusal(settings_.page().tapBarButton());
    } else if (word == "n" || word == "p") {
        turnPage(word == "n");
    } else if (word == "u") {
        dialog_.printRefusal(settings_.history().undo());
    } else if (word == "r") {
        dialog_.printRefusal(settings_.history().redo());
    } else if (word == "R" && settings_.screen().offer()) {
        dialog_.printRefusal(settings_.recovery().restore());
    } else if (word == "z") {
        settings_.resignActive();
    } else if (word.starts_with("f ")) {
        followLink(word.substr(2));
    } else if (word == "q") {
        dialog_.end();
    } else if (word == "?") {
        showHelp();
    } else if (!touchNamedRow(word)) {
        pageStands_ = true;
        dialog_.printError("Unknown command '" + truncated(printable(word), longestQuote) +
                           "'; ? lists all commands.");
    }
}

bool TerminalView::touchNamedRow(const std::string& word) {
    const auto named = rowsNamed(*settings_.screen().page(), word);
    if (named.size() == 1) {
        touchRow(named[0].path);
    } else if (named.size() > 1) {
        pageStands_ = true;
        std::string names;
        for (const NamedRow& row : named) {
            // A row of a table may not be shown, and has no number then.
            const auto number = std::ranges::find(rows_, row.path);
            names += (names.empty() ? "" : ", ") +
                     (number == rows_.end() ? "" : std::to_string(number - rows_.begin() + 1) + ' ') +
                     printable(row.label);
        }
        dialog_.printError('\'' + truncated(printable(word), longestQuote) +
                           "' names several rows: " + truncated(names, longestList) + '.');
    }
    return !named.empty();
}

void TerminalView::touchRow(NSIndexPath path) {
    shell::Page& page = *settings_.screen().page();
    if (!page.isList())
        return dialog_.printRefusal(settings_.page().flipTableSwitch(path));
    if (!page.has(path))
        return dialog_.printError("The row is gone.");
    const Row row = page.row(path);
    if (row.isTextField())
        askText(path, row);
    else if (row.kind == RowKind::Slider)
        askSlider(path, row);
    else
        dialog_.printRefusal(settings_.page().tapRow(path));
}

void TerminalView::askText(NSIndexPath path, const Row& row) {
    const auto begun = settings_.page().beginEditing(path);
    if (!begun)
        return dialog_.printRefusal(begun);
    const std::string name = printable(row.label.empty() ? row.placeholder : row.label);
    const std::string prompt = name + " (Enter keeps it, \"\" clears it): ";
    const auto text =
        row.kind == RowKind::SecureEditText ? dialog_.askHidden(prompt) : dialog_.askText(prompt);
    if (text && !text->empty())
        dialog_.printRefusal(settings_.page().typeText(*text == "\"\"" ? "" : *text));
    settings_.page().endEditing();
}

void TerminalView::askSlider(NSIndexPath path, const Row& row) {
    const auto text = dialog_.ask("From " + shell::fieldText(platform::Value(row.min)) + " to " +
                                  shell::fieldText(platform::Value(row.max)) + ": ");
    if (!text || text->empty())
        return;
    if (const auto value = decimalNumber(*text))
        dialog_.printRefusal(settings_.page().moveSlider(path, *value));
    else
        dialog_.printError("Type a number.");
}

void TerminalView::turnPage(bool forward) {
    if (forward && first_ + shownCount_ < count_)
        first_ += shownCount_;
    else if (!forward)
        first_ -= std::min(first_, mostShown_);
}

void TerminalView::followLink(const std::string& link) {
    const auto number = wholeNumber(link);
    dialog_.printRefusal(number ? settings_.page().followLink(*number) : settings_.page().followLink(link));
}

void TerminalView::showHelp() {
    pageStands_ = true;
    Output::text("\n"
                 "  1, 2, ...  tap the row with that number\n"
                 "  NAME       tap the row with that name, or whose name begins with it\n"
                 "  b          go back\n"
                 "  +          press the button at the top right\n"
                 "  n, p       show the next or the previous part of a long page\n"
                 "  u, r       take your last change back, or make it again\n"
                 "  f LINK     follow a link of the page, by its number or its address\n"
                 "  z          switch to another application and back, as Ctrl+Z does; closes the\n"
                 "             keypad, where it can be typed too\n"
                 "  q          quit\n");
}

} // namespace wardlock::cli
