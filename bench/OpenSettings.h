#pragma once

#include "bench/ProvisionedDevice.h"
#include "bench/SimulatedUser.h"
#include "shell/input/ManualClock.h"

namespace wardlock::bench {

/// Settings without a front end on a device of its own, opened at Wardlock's first page. One at a time.
class OpenSettings {
public:
    explicit OpenSettings(std::string_view document) : device_(document) {
        // It would ask for the passcode of the document.
        application.turnOffGuard();
        user.tap("Wardlock");
        // Ends the process where another page is shown.
        user.find("Change Log");
    }

private:
    ProvisionedDevice device_;
    shell::ManualClock clock_;

public:
    shell::SettingsApplication application{clock_};
    SimulatedUser user{application};
};

} // namespace wardlock::bench
