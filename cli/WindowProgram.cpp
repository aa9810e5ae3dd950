#include "cli/WindowProgram.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace wardlock::cli {

namespace fs = std::filesystem;

namespace {

constexpr const char* windowProgram = "wardlock-settings";

bool hasDisplay() {
    for (const char* variable : {"WAYLAND_DISPLAY", "DISPLAY"})
        if (const char* value = std::getenv(variable); value && *value)
            return true;
    return false;
}

} // namespace

void openWindowProgram() {
    std::error_code error;
    const fs::path self = fs::canonical("/proc/self/exe", error);
    if (error || !hasDisplay())
        return;
    const std::string path = (self.parent_path() / windowProgram).string();
    execl(path.c_str(), windowProgram, nullptr);
}

} // namespace wardlock::cli
