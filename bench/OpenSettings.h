#pragma once

#include "bench/Person.h"
#include "bench/ProvisionedDevice.h"
#include "shell/input/ManualClock.h"

namespace wardlock::bench {

/// Settings without a front end on a device of its own, opened at Wardlock's first page. One at a time.
class OpenSettings {
public:
    explicit OpenSettings(std::string_view document) : device_(document) { person.tap("Wardlock"); }

private:
    ProvisionedDevice device_;
    shell::ManualClock clock_;

public:
    shell::SettingsApplication application{clock_};
    Person person{application};
};

} // namespace wardlock::bench
