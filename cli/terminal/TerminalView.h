#pragma once

#include "cli/io/SettingsLoop.h"
#include "cli/terminal/TerminalDialog.h"
#include "cli/terminal/TerminalSheets.h"
#include "cli/terminal/TextPage.h"
#include "shell/SettingsApplication.h"

#include <string>
#include <vector>

namespace wardlock::cli {

/// One conversation in a terminal: shows what a person sees, topmost first, and asks what to do. Whatever is
/// over the page - keypad, alert, mail - is asked for before the page.
class TerminalView : private shell::ScreenObserver {
public:
    TerminalView(shell::SettingsApplication& settings, SettingsLoop& loop, TextStyle style);
    ~TerminalView() override;

    /// Until the input ends or the person quits.
    void run();
    /// Shows the page and returns.
    void showPage();

private:
    // What changes while nobody is asked is shown at the next question.
    void listReset(shell::Page&) override { stale_ = true; }
    void rowChanged(shell::Page&, platform::NSIndexPath) override { stale_ = true; }
    void contentChanged(shell::Page&) override { stale_ = true; }
    void noticeChanged() override { stale_ = true; }

    void askPage();
    void obeyOnPage(const std::string& word);
    void touchRow(platform::NSIndexPath path);
    void askText(platform::NSIndexPath path, const shell::Row& row);
    void askSlider(platform::NSIndexPath path, const shell::Row& row);
    /// By its number or its address.
    void followLink(const std::string& link);
    void turnTable(bool forward);
    void showHelp();
    void showNotice();
    void followTurn();
    void redrawIfStale();

    shell::SettingsApplication& settings_;
    SettingsLoop& loop_;
    TerminalDialog dialog_;
    TerminalSheets sheets_;
    std::vector<platform::NSIndexPath> rows_;
    /// Which table rows are shown, of which page.
    const shell::Page* shownPage_ = nullptr;
    TextPage::Size shownSize_{};
    std::size_t firstTableRow_ = 0;
    std::size_t tableRowsShown_ = 0;
    std::size_t tableRowCount_ = 0;
    bool stale_ = false;
    bool pageIsAsked_ = false;
    /// Whether the page as it is stands right above: after a complaint or the help it is not shown again.
    bool pageStands_ = false;
};

} // namespace wardlock::cli
