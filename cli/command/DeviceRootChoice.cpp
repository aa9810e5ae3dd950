#include "cli/command/DeviceRootChoice.h"

#include "cli/io/CommandError.h"

#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

namespace wardlock::cli {

namespace fs = std::filesystem;

namespace {

bool chosen = false;

} // namespace

void useDeviceRoot(std::string_view folder) {
    std::error_code error;
    const fs::path root = fs::absolute(fs::path(folder), error).lexically_normal();
    if (folder.empty() || error)
        throw CommandError(ExitCode::WrongUsage, "'" + std::string(folder) + "' is not a folder name");
    // NOLINTNEXTLINE(concurrency-mt-unsafe): no other thread runs yet
    setenv("WARDLOCK_DEVICE_ROOT", root.c_str(), 1);
    chosen = true;
}

std::string_view nameOfDeviceRootChoice() {
    return chosen ? "--device-root" : "WARDLOCK_DEVICE_ROOT";
}

} // namespace wardlock::cli
