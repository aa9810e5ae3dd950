#pragma once

#include "platform/values/Value.h"
#include "shell/input/ManualClock.h"
#include "tests/support/BusFixture.h"
#include "tests/support/doubles/RecordingMailService.h"
#include "tests/support/doubles/RecordingURLOpener.h"
#include "tests/unit/window/Scene.h"
#include "window/WindowHost.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace wardlock::test {

/// A test of the window, with a device root and a bus of its own, provisioned with the bundle of this build.
/// The window is as a user gets it, but drawn in memory. The clock is stepped, and mails and opened URLs are
/// only recorded.
class WindowFixture : public BusFixture {
protected:
    WindowFixture();
    ~WindowFixture() override;

    /// Provisions the device and opens the window; once. Returns the problems that the host found.
    std::vector<std::string> open(double transitionSeconds = 0, QSize size = {390, 844});
    /// Opens the window and, in it, Wardlock's first page.
    void openWardlock();
    /// Has open() keep the guard of Settings; without it every bundle opens at once.
    void keepGuard() { keepsGuard_ = true; }
    /// And the page of its account of that number.
    void openAccount(int index = 0);
    void openFixtureBundle();
    void quit() { host_.reset(); }
    window::WindowHost& host() { return *host_; }
    QQuickWindow& window() { return *host_->window(); }
    Scene scene() { return Scene(*host_->window()); }

    /// Where a web engine finds every host of the web, "ADDRESS:PORT"; before the first page of the web.
    /// Without it there is no host at all.
    void mapWebTo(const std::string& address);
    void installApplication(const std::string& identifier, const std::string& name) const;
    /// The device's document before the window opens.
    void setAccounts(std::initializer_list<std::string_view> names) const;
    void writeDocument(const platform::Dictionary& document) const;
    platform::Dictionary document() const;
    platform::Value account(std::size_t index, std::string_view key) const;
    std::vector<std::string> accountNames() const;
    void setInAccount(std::size_t index, std::string_view key, platform::Value value) const;
    /// Another process that receives the announcements; its readLine() returns "key = object; ...".
    std::unique_ptr<Process> listen(int count = 1) const;
    /// What another process does after it has changed the document; until the window has received it.
    void announce();

    shell::ManualClock clock;
    RecordingMailService mail;
    RecordingURLOpener urls;

private:
    bool keepsGuard_ = false;
    std::unique_ptr<window::WindowHost> host_;
};

} // namespace wardlock::test
