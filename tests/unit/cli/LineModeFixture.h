#pragma once

#include "tests/support/BusFixture.h"
#include "tests/unit/cli/CommandFixture.h"

#include <string>
#include <vector>

namespace wardlock::test {

/// Settings line by line, in a terminal without colours and without a display.
class LineModeFixture : public BusFixture {
protected:
    LineModeFixture() {
        environment.set("TERM", "xterm");
        environment.set("NO_COLOR", "1");
        environment.unset("DISPLAY");
        environment.unset("WAYLAND_DISPLAY");
    }

    static std::vector<std::string> words() { return {"settings", "--plain"}; }
};

/// The end of the line that asks what to do on a page.
inline constexpr const char* question = "q quit: ";

} // namespace wardlock::test
