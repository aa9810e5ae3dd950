#include "bench/ProvisionedDevice.h"

#include "platform/files/DeviceRoot.h"
#include "settings/Constants.h"
#include "settings/DocumentPath.h"
#include "shell/device/Provision.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace wardlock::bench {

ProvisionedDevice::ProvisionedDevice(std::string_view document) {
    const std::filesystem::path path = platform::pathOnDevice(documentPath(BundleIdentifier));
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << document;
    const shell::Provision provision;
    for (const std::string& problem : provision.problems())
        std::fprintf(stderr, "%s\n", problem.c_str());
    if (!provision.problems().empty())
        std::exit(1);
}

} // namespace wardlock::bench
