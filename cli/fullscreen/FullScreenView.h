#pragma once

#include "cli/fullscreen/Canvas.h"
#include "cli/fullscreen/CursesKeys.h"
#include "cli/fullscreen/CursesTerminal.h"
#include "cli/fullscreen/PageView.h"
#include "cli/fullscreen/Sheet.h"
#include "cli/io/SettingsLoop.h"
#include "shell/SettingsApplication.h"

#include <memory>
#include <string>
#include <vector>

namespace wardlock::cli {

/// The front end on the whole screen of a terminal: the page, what covers it, and one line of hints. It draws
/// at every turn of the loop in which something has changed. What is being typed stays as it is.
class FullScreenView : private shell::ScreenObserver {
public:
    /// The terminal was taken.
    FullScreenView(shell::SettingsApplication& settings, SettingsLoop& loop, CursesTerminal& terminal,
                   bool utf8);

    /// Returns when the user quits or a signal asks the process to end. Returns false when the terminal is
    /// gone.
    bool run();

private:
    void pagesChanged(bool) override { pageChanged(); }
    void pageChanged(shell::Page&) override { pageChanged(); }
    void listReset(shell::Page&) override { pageChanged(); }
    void rowInserted(shell::Page&, platform::NSIndexPath, bool) override { pageChanged(); }
    void rowFound(shell::Page&, platform::NSIndexPath path) override;
    void contentChanged(shell::Page&) override { pageChanged(); }
    void rowChanged(shell::Page&, platform::NSIndexPath) override { stale_ = true; }
    void tableRowChanged(shell::Page&, platform::NSIndexPath) override { stale_ = true; }
    void overlayChanged() override { stale_ = true; }
    void presentationChanged() override { stale_ = true; }
    void editingChanged() override { stale_ = true; }
    void noticeChanged() override { stale_ = true; }
    void offerChanged() override { stale_ = true; }

    void pageChanged();
    std::vector<Key> askForGround();
    void followGround();
    void turn();
    void followStop();
    void handle(const Key& key);
    void handleOnPage(const Key& key);
    /// Returns whether the key took or refused what Settings offers.
    bool handleOffer(const Key& key);
    /// Has the sheet that covers the page now, if any.
    void followSheets();
    void draw();
    void drawNotice();
    void drawStatus();

    shell::SettingsApplication& settings_;
    SettingsLoop& loop_;
    CursesTerminal& terminal_;
    Canvas canvas_;
    KeyReader keys_;
    /// What the terminal has replied.
    Ground ground_ = Ground::Unknown;
    PageView page_;
    std::unique_ptr<Sheet> sheet_;
    /// What sheet_ shows; null for the help.
    const void* shown_ = nullptr;
    bool stale_ = true;
    /// Whether what changes now is the effect of a key.
    bool handling_ = false;
    bool over_ = false;
    platform::Subscription changes_;
    platform::Subscription turns_;
    platform::Subscription suspensions_;
    platform::Subscription returns_;
};

} // namespace wardlock::cli
