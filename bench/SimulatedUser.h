#pragma once

#include "shell/SettingsApplication.h"

#include <cstddef>
#include <string_view>

namespace wardlock::bench {

/// Operates the pages of Settings as a user does. An action that a user could not perform ends the
/// process.
class SimulatedUser {
public:
    explicit SimulatedUser(shell::SettingsApplication& settings) : settings_(settings) {}

    /// Returns the first row of the page with that label.
    platform::NSIndexPath find(std::string_view label);
    void tap(platform::NSIndexPath path);
    void tap(std::string_view label) { tap(find(label)); }
    void goBack();

    /// Rebuilds the page's list and arranges it in sections; returns the number of rows.
    std::size_t rebuildPage();
    /// Reads every row of the page, values included, as a front end that shows all of them does.
    void readRows();

private:
    shell::Page& page() { return *settings_.screen().page(); }

    shell::SettingsApplication& settings_;
};

} // namespace wardlock::bench
