#pragma once

#include "tests/support/BusFixture.h"
#include "tests/unit/cli/CommandFixture.h"
#include "tests/unit/cli/ScreenProcess.h"

#include <memory>
#include <string>
#include <vector>

namespace wardlock::test {

/// Settings on the whole screen of a terminal with 256 colours and UTF-8.
class FullScreenFixture : public BusFixture {
protected:
    FullScreenFixture() {
        environment.set("TERM", "xterm-256color");
        environment.set("LC_ALL", "C.UTF-8");
        for (const char* name : {"NO_COLOR", "COLORTERM", "COLORFGBG", "DISPLAY", "WAYLAND_DISPLAY"})
            environment.unset(name);
    }

    static std::vector<std::string> words() { return {"settings"}; }
    /// Opens Settings and waits for its first page.
    static std::unique_ptr<ScreenProcess> open(ScreenProcess::Size size = {}) {
        auto screen = std::make_unique<ScreenProcess>(command, words(), size);
        screen->waitFor("? help");
        return screen;
    }
    /// Moves the cursor from the first row to the row, and taps it.
    static void tap(ScreenProcess& screen, const std::string& row) { screen.type("/" + row + "\r"); }
    void writeAccounts(const std::vector<std::string>& names) {
        writeFile(documentPath, accountsDocument(names));
    }
    bool documentHolds(std::string_view text) const {
        return readFile(documentPath).find(text) != std::string::npos;
    }
};

inline constexpr const char* up = "\x1BOA";
inline constexpr const char* down = "\x1BOB";
inline constexpr const char* right = "\x1BOC";
inline constexpr const char* left = "\x1BOD";
inline constexpr const char* pageDown = "\x1B[6~";
inline constexpr const char* pageUp = "\x1B[5~";
inline constexpr const char* home = "\x1BOH";
inline constexpr const char* end = "\x1BOF";
inline constexpr const char* escape = "\x1B";

} // namespace wardlock::test
