#include "cli/WindowProgram.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <unistd.h>

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
    const std::string path = windowProgramPath();
    if (!path.empty() && hasDisplay())
        execl(path.c_str(), windowProgram, nullptr);
}

} // namespace wardlock::cli
