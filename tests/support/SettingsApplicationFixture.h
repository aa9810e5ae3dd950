#pragma once

#include "platform/values/Value.h"
#include "shell/SettingsApplication.h"
#include "shell/input/ManualClock.h"
#include "tests/support/DeviceRootFixture.h"
#include "tests/support/doubles/LoopbackNotificationCenter.h"
#include "tests/support/doubles/RecordingMailService.h"
#include "tests/support/doubles/RecordingURLOpener.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace wardlock::test {

/// A test of the Settings application without a front end. Its device root is provisioned with the bundle of
/// this build. The clock is stepped, the centre has no other processes, and mails and opened URLs are only
/// recorded.
class SettingsApplicationFixture : public DeviceRootFixture {
protected:
    SettingsApplicationFixture();
    ~SettingsApplicationFixture() override;

    /// Provisions the device root and starts the application; once.
    void start(double transitionSeconds = 0);
    /// Has start() keep the guard of Settings; without it every bundle opens at once.
    void keepGuard() { keepsGuard_ = true; }
    shell::SettingsApplication& settings() { return *settings_; }
    shell::Page& page() { return *settings_->screen().page(); }
    /// Ends it as closing the window does.
    void quit() { settings_.reset(); }

    /// The first row whose label, or placeholder where it has none, is this; a failed expectation when the
    /// page has none.
    platform::NSIndexPath pathOf(std::string_view label);
    shell::Row row(std::string_view label) { return page().row(pathOf(label)); }
    bool hasRow(std::string_view label);
    /// Expects that the tap is accepted.
    void tap(std::string_view label);
    void type(std::string_view label, std::string text);
    void press(std::string_view digits);
    void chooseInAlert(std::string_view title);
    /// The labels of all rows, in order.
    std::vector<std::string> labels();

    platform::Dictionary document() const;
    void writeDocument(const platform::Dictionary& document) const;
    /// What another process does when it changes the settings: a document, then the notification.
    void changeElsewhere(const platform::Dictionary& document, std::string_view key = "kAccounts");
    /// A document of these accounts, switched on, without a passcode.
    static platform::Dictionary documentOf(std::initializer_list<std::string_view> accountNames);

    LoopbackNotificationCenter center;
    shell::ManualClock clock;
    RecordingMailService mail;
    RecordingURLOpener urls;

private:
    bool keepsGuard_ = false;
    std::unique_ptr<shell::SettingsApplication> settings_;
};

} // namespace wardlock::test
