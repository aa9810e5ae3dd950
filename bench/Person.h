#pragma once

#include "shell/SettingsApplication.h"

#include <cstddef>
#include <string_view>

namespace wardlock::bench {

/// Somebody at the pages of Settings. Whatever a person could not do ends the process.
class Person {
public:
    explicit Person(shell::SettingsApplication& settings) : settings_(settings) {}

    /// The first row of the page with that label.
    platform::NSIndexPath find(std::string_view label);
    void tap(platform::NSIndexPath path);
    void tap(std::string_view label) { tap(find(label)); }
    void goBack();

    /// Has the page's list built anew and arranged in sections; answers the number of rows.
    std::size_t rebuildPage();
    /// Looks at every row of the page, values included, as a face that shows all of them does.
    void readRows();

private:
    shell::Page& page() { return *settings_.screen().page(); }

    shell::SettingsApplication& settings_;
};

} // namespace wardlock::bench
