#pragma once

#include "cli/io/SettingsLoop.h"
#include "cli/terminal/TerminalDialog.h"
#include "cli/terminal/TerminalSheets.h"
#include "cli/terminal/TextPage.h"
#include "shell/SettingsApplication.h"

#include <string>
#include <vector>

namespace wardlock::cli {

/// The front end in a terminal: prints what the user sees and prompts for commands. The keypad, an alert and
/// the mail sheet are prompted for before the page below them.
class TerminalView : private shell::ScreenObserver {
public:
    TerminalView(shell::SettingsApplication& settings, SettingsLoop& loop, TextStyle style);

    /// Returns when the input ends or the user quits.
    void run();
    /// Prints the page.
    void showPage();

private:
    // A change without a prompt is shown with the next one.
    void listReset(shell::Page&) override { stale_ = true; }
    void rowChanged(shell::Page&, platform::NSIndexPath) override { stale_ = true; }
    void contentChanged(shell::Page&) override { stale_ = true; }
    void noticeChanged() override { stale_ = true; }
    void offerChanged() override;

    void askPage();
    void runPageCommand(const std::string& word);
    void touchRow(platform::NSIndexPath path);
    /// Returns false where no row has that name.
    bool touchNamedRow(const std::string& word);
    void askText(platform::NSIndexPath path, const shell::Row& row);
    void askSlider(platform::NSIndexPath path, const shell::Row& row);
    /// Follows a link by its number or its address.
    void followLink(const std::string& link);
    void turnPage(bool forward);
    void showHelp();
    void showNotice();
    void showOffer();
    void followTurn();
    void redrawIfStale();

    shell::SettingsApplication& settings_;
    TerminalDialog dialog_;
    TerminalSheets sheets_;
    std::vector<platform::NSIndexPath> rows_;
    /// The page that is shown, and which part of it.
    const shell::Page* shownPage_ = nullptr;
    TextPage::Size shownSize_{};
    std::size_t first_ = 0;
    std::size_t shownCount_ = 0;
    std::size_t mostShown_ = 0;
    std::size_t count_ = 0;
    bool stale_ = false;
    /// Whether Settings offers something that was not printed.
    bool offerIsNew_ = false;
    bool pageIsAsked_ = false;
    /// Whether the page needs no repetition: it was printed right above an error or the help.
    bool pageStands_ = false;
    platform::Subscription changes_;
    platform::Subscription turns_;
};

} // namespace wardlock::cli
