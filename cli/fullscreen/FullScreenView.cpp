#include "cli/fullscreen/FullScreenView.h"

#include "cli/fullscreen/AlertSheet.h"
#include "cli/fullscreen/CursesLooks.h"
#include "cli/fullscreen/HelpSheet.h"
#include "cli/fullscreen/KeypadSheet.h"
#include "cli/fullscreen/MailSheet.h"
#include "cli/fullscreen/PageLayout.h"
#include "cli/io/TextWidth.h"

#include <algorithm>
#include <chrono>
#include <unistd.h>

namespace wardlock::cli {

namespace {

constexpr std::size_t mostNoticeLines = 4;
/// For the replies of the terminal.
constexpr std::chrono::milliseconds longestWait{100};
constexpr char32_t restoringKey = 'R';

std::string offerText(const shell::Offer& offer) {
    return offer.text + (offer.kind == shell::Offer::Kind::Undo ? "; u takes that back."
                                                                : ".\nR restores it, Esc does not.");
}

} // namespace

FullScreenView::FullScreenView(shell::SettingsApplication& settings, SettingsLoop& loop,
                               CursesTerminal& terminal, bool utf8)
    : settings_(settings), loop_(loop), terminal_(terminal), canvas_(utf8), page_(settings, canvas_),
      changes_(settings.observe(*this)), turns_(loop.observeTurns([this] { turn(); })),
      suspensions_(loop.observeSuspensions([this] { terminal_.suspend(); })),
      returns_(loop.observeReturns([this] { followStop(); })) {}

void FullScreenView::followStop() {
    terminal_.resume();
    stale_ = true;
}

bool FullScreenView::run() {
    const std::vector<Key> typed = askForGround();
    turn();
    for (const Key& key : typed)
        if (!over_)
            handle(key);
    turn();
    while (!over_ && loop_.waitForInput(STDIN_FILENO)) {
        while (const auto key = over_ ? std::nullopt : keys_.next())
            handle(*key);
        followGround();
        if (terminal_.isLost())
            return false;
        turn();
    }
    return true;
}

/// The wait spares the user a screen that changes its colours. Returns what was typed meanwhile.
std::vector<Key> FullScreenView::askForGround() {
    if (!terminal_.askForGround())
        return {};
    auto typed = keys_.awaitReplies(longestWait);
    followGround();
    return typed;
}

void FullScreenView::followGround() {
    if (!keys_.awaitsReply())
        terminal_.noteReplies();
    if (keys_.ground() == ground_)
        return;
    ground_ = keys_.ground();
    setGround(ground_);
    stale_ = true;
}

void FullScreenView::pageChanged() {
    page_.forgetLines(handling_ ? PageView::Change::Own : PageView::Change::Foreign);
    stale_ = true;
}

void FullScreenView::rowFound(shell::Page&, platform::NSIndexPath path) {
    page_.showRow(path);
    stale_ = true;
}

void FullScreenView::turn() {
    if (terminal_.followSize())
        stale_ = true;
    if (stale_ && !over_)
        draw();
}

void FullScreenView::followSheets() {
    const shell::Screen& screen = settings_.screen();
    const auto overlay = screen.overlay();
    const auto alert = screen.alert();
    const auto composer = screen.composer();
    const void* covering = overlay ? static_cast<const void*>(overlay->keypad.get())
                           : alert ? static_cast<const void*>(alert.get())
                                   : static_cast<const void*>(composer.get());
    const auto* help = dynamic_cast<HelpSheet*>(sheet_.get());
    if (covering == shown_ && (!help || !help->isClosed()))
        return;
    shown_ = covering;
    if (overlay)
        sheet_ = std::make_unique<KeypadSheet>(settings_, overlay->keypad);
    else if (alert)
        sheet_ = std::make_unique<AlertSheet>(settings_, alert);
    else if (composer)
        sheet_ = std::make_unique<MailSheet>(settings_, composer);
    else
        sheet_.reset();
}

void FullScreenView::handle(const Key& key) {
    stale_ = true;
    if (key.isControl('l'))
        return terminal_.forgetScreen();
    followSheets();
    handling_ = true;
    if (sheet_)
        sheet_->handle(key);
    else
        handleOnPage(key);
    handling_ = false;
    followSheets();
}

void FullScreenView::handleOnPage(const Key& key) {
    if (!page_.isTyping() && !settings_.screen().notice().empty() && key.kind != KeyKind::MouseRelease) {
        settings_.dismissNotice();
        if (key.kind == KeyKind::Escape)
            return;
    }
    if (!page_.isTyping() && handleOffer(key))
        return;
    if (page_.handle(key))
        return;
    if (key.is('q'))
        over_ = true;
    else if (key.is('?'))
        sheet_ = std::make_unique<HelpSheet>();
}

bool FullScreenView::handleOffer(const Key& key) {
    const auto& offer = settings_.screen().offer();
    // Any page takes the key for undoing.
    if (!offer || offer->kind != shell::Offer::Kind::Restore)
        return false;
    if (key.is(restoringKey))
        page_.report(settings_.recovery().restore());
    else if (key.kind == KeyKind::Escape)
        settings_.recovery().dismiss();
    else
        return false;
    return true;
}

void FullScreenView::draw() {
    stale_ = false;
    followSheets();
    canvas_.begin();
    page_.draw();
    drawNotice();
    if (sheet_) {
        canvas_.hideCaret();
        sheet_->draw(canvas_);
    }
    drawStatus();
    canvas_.end();
}

void FullScreenView::drawNotice() {
    const shell::Screen& screen = settings_.screen();
    std::string text = screen.offer() ? offerText(*screen.offer()) : std::string();
    text += (text.empty() || screen.notice().empty() ? "" : "\n") + screen.notice();
    if (text.empty())
        return;
    const PageLayout layout(canvas_);
    auto lines = wrapped(text, layout.textColumns());
    lines.resize(std::min({lines.size(), mostNoticeLines, layout.body.lines}));
    for (std::size_t index = 0; index < lines.size(); ++index) {
        const std::size_t line = layout.status.start.line - lines.size() + index;
        canvas_.fill({{line, layout.status.start.column}, 1, layout.status.columns}, Role::Notice);
        canvas_.put({line, layout.status.start.column + PageLayout::margin}, lines[index], Role::Notice);
    }
}

void FullScreenView::drawStatus() {
    const Area line = PageLayout(canvas_).status;
    const Area texts{{line.start.line, line.start.column + PageLayout::margin},
                     1,
                     line.columns - std::min(line.columns, 2 * PageLayout::margin)};
    const std::string& message = sheet_ ? sheet_->message() : page_.message();
    if (!sheet_ && page_.isFinding() && message.empty())
        return;
    canvas_.fill(line, Role::Text);
    if (!message.empty())
        canvas_.put(texts.start, truncated(printable(message), texts.columns), Role::Danger);
    else
        drawHints(canvas_, texts, sheet_ ? sheet_->hints(canvas_.glyphs()) : page_.hints());
}

} // namespace wardlock::cli
