#include "cli/command/DeviceRootChoice.h"

#include "cli/io/CommandError.h"
#include "platform/files/DeviceRoot.h"

#include <cstdlib>
#include <string>

namespace wardlock::cli {

namespace {

bool chosen = false;

} // namespace

void useDeviceRoot(std::string_view folder) {
    const auto use = [](const std::string& root) {
        // NOLINTNEXTLINE(concurrency-mt-unsafe): no other thread runs yet
        setenv("WARDLOCK_DEVICE_ROOT", root.c_str(), 1);
    };
    use(std::string(folder));
    const std::string root = platform::deviceRoot();
    if (folder.empty() || !root.starts_with('/'))
        throw CommandError(ExitCode::WrongUsage, "'" + std::string(folder) + "' is not a folder name");
    // A child process may have another working folder.
    use(root);
    chosen = true;
}

std::string_view nameOfDeviceRootChoice() {
    return chosen ? "--device-root" : "WARDLOCK_DEVICE_ROOT";
}

} // namespace wardlock::cli
