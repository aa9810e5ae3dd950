#include "cli/command/WindowProgram.h"

#include "platform/services/ProcessStart.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace wardlock::cli {

namespace fs = std::filesystem;

namespace {

constexpr const char* windowProgram = "wardlock-settings";

} // namespace

bool hasDisplay() {
    for (const char* variable : {"WAYLAND_DISPLAY", "DISPLAY"})
        if (const char* value = std::getenv(variable); value && *value)
            return true;
    return false;
}

std::string windowProgramPath() {
    std::error_code error;
    const fs::path self = fs::canonical("/proc/self/exe", error);
    if (error)
        return {};
    const fs::path program = self.parent_path() / windowProgram;
    return fs::is_regular_file(program, error) ? program.string() : std::string();
}

void openWindowProgram() {
    if (!windowProgramPath().empty() && hasDisplay())
        platform::becomeProgramBeside(windowProgram, {"--or-terminal"});
}

} // namespace wardlock::cli
