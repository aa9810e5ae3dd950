#include "shell/SettingsApplication.h"

#include "platform/base/Diagnostics.h"
#include "platform/runtime/MainLoop.h"
#include "platform/runtime/NSOperationQueue.h"
#include "platform/ui/UIApplication.h"
#include "settings/Log.h"
#include "settings/history/History.h"
#include "shell/BundleListController.h"

namespace wardlock::shell {

using platform::UIApplication;

SettingsApplication::SettingsApplication(platform::AnimationClock& clock, double transitionSeconds)
    : boundary_([this] { settle(); }, [this] { noteActivity(); }), clock_(clock, boundary_),
      screen_(std::make_shared<BundleListController>(
                  [this](std::function<void()> open) { guard_.admit(std::move(open)); }),
              boundary_),
      changes_(screen_.stack(), [this](platform::UIView& view) { endEditingIn(view); }),
      unsaved_(screen_, changes_), account_(screen_, changes_),
      pageInput_(screen_, changes_, account_, boundary_), sheetInput_(screen_, account_, boundary_),
      search_(screen_, changes_, pageInput_, boundary_), liveRefresh_(screen_, changes_, account_, boundary_),
      guard_(screen_, changes_, boundary_), idleTimer_(clock_, [this] { lockWhenIdle(); }),
      undo_(screen_, changes_, account_, pageInput_, undoHost(), boundary_),
      recovery_(screen_, changes_, account_, undoHost(), boundary_) {
    platform::setDiagnosticsHandler(&appendToLog);
    platform::setVersionPlace(SettingsPlace);
    keepForeignVersion();
    recovery_.check();
    platform::AnimationClock::setCurrent(&clock_);
    platform::DisplayObserver::setCurrent(&changes_);
    UIApplication::sharedApplication().setKeyWindow(screen_.window());
    setTransitionSeconds(transitionSeconds);
}

SettingsApplication::~SettingsApplication() {
    close();
    UIApplication::sharedApplication().setKeyWindow(nullptr);
    platform::DisplayObserver::setCurrent(nullptr);
    platform::AnimationClock::setCurrent(nullptr);
    platform::setDiagnosticsHandler(nullptr);
}

void SettingsApplication::setTransitionSeconds(double seconds) {
    screen_.navigation().setTransitionSeconds(seconds);
}

void SettingsApplication::process() {
    boundary_.enterFromLoop([&] {
        platform::MainLoop::shared().process();
        liveRefresh_.refreshIfNeeded();
    });
}

void SettingsApplication::resignActive() {
    boundary_.enter([&] {
        UIApplication::sharedApplication().resignActive();
        lock();
    });
}

void SettingsApplication::lock() {
    guard_.cancel();
    if (!guard_.isNeeded())
        return;
    undo_.lock();
    const auto& pages = screen_.navigation().viewControllers();
    if (pages.size() < 2)
        return;
    pageInput_.endEditing();
    dismissSheets();
    search_.forget();
    screen_.navigation().popToViewController(*pages.front(), false);
}

UndoHost SettingsApplication::undoHost() {
    return {[this] { liveRefresh_.refresh(); },
            [this] { return screen_.pages().size() < 2 && guard_.isNeeded(); }};
}

void SettingsApplication::lockWhenIdle() {
    if (guard_.isNeeded())
        resignActive();
}

void SettingsApplication::dismissNotice() {
    boundary_.enter([&] {
        if (screen_.notice().empty())
            return;
        screen_.clearNotice();
        changes_.notice();
    });
}

/// A page owns its alert, and an alert's handler may keep its page alive until the alert is dismissed.
void SettingsApplication::dismissSheets() {
    for (const auto& page : screen_.pages())
        if (page->controller().presentedViewController())
            page->controller().dismissViewControllerAnimated(false);
}

void SettingsApplication::close() {
    if (closed_)
        return;
    closed_ = true;
    pageInput_.endEditing();
    boundary_.enter([&] { dismissSheets(); });
    boundary_.enterFromLoop([] { platform::NSOperationQueue::mainQueue().drain(); });
}

bool SettingsApplication::storeTypedText() {
    const std::size_t unsaved = unsaved_.count();
    const std::string notice = screen_.notice();
    pageInput_.endEditing();
    return unsaved_.count() == unsaved && screen_.notice() == notice;
}

void SettingsApplication::endEditingIn(platform::UIView& view) {
    for (const auto& page : screen_.pages())
        if (page->edit() && page->holds(view))
            return pageInput_.endEditing();
}

void SettingsApplication::settle() {
    if (unsaved_.notify() && !closed_)
        liveRefresh_.refresh();
    watchMail();
    if (screen_.stack().follow()) {
        changes_.pages(screen_.isInTransition());
        recovery_.check();
    }
    if (std::exchange(inTransition_, screen_.isInTransition()) && !inTransition_)
        changes_.transitionEnded();
    readTopPage();
    idleTimer_.run(!closed_ && guard_.isOn() && screen_.pages().size() > 1);
    // The way to a row that was found waits for the passcode.
    if (!closed_ && !guard_.isAsking()) {
        search_.proceed();
        undo_.proceed();
    }
    changes_.deliver();
}

/// A page has its values from the moment it is on top, even when the front end does not read them. A switch
/// then flips the value of that moment, and the last values of a deleted account can still be shown.
void SettingsApplication::readTopPage() {
    if (closed_ || screen_.page()->isRead())
        return;
    boundary_.enter([&] {
        account_.follow();
        if (!account_.leaveIfGone())
            screen_.page()->readRows();
    });
}

void SettingsApplication::watchMail() {
    if (const auto composer = screen_.composer())
        mail_ = composer;
    if (!mail_)
        return;
    if (mail_->outcome()) {
        screen_.addNotice(mail_->outcome()->message);
        changes_.notice();
        mail_->forgetOutcome();
    }
    if (!mail_->isSending() && mail_ != screen_.composer()) {
        mail_.reset();
    }
}

} // namespace wardlock::shell
