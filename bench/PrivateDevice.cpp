#include "bench/PrivateDevice.h"

#include "bench/SampleDocument.h"
#include "platform/files/DeviceRoot.h"
#include "platform/plist/PropertyListFile.h"
#include "settings/Constants.h"
#include "settings/DocumentPath.h"

#include <cstdlib>

namespace wardlock::bench {

PrivateDevice::PrivateDevice() {
    std::string name = std::filesystem::temp_directory_path() / "wardlock-bench.XXXXXX";
    if (!mkdtemp(name.data()))
        std::abort();
    folder_ = name;
    setenv("WARDLOCK_DEVICE_ROOT", name.c_str(), 1);
}

PrivateDevice::~PrivateDevice() {
    std::filesystem::remove_all(folder_);
}

std::string PrivateDevice::storeDocument(std::size_t accounts) const {
    const std::string path = documentPath(BundleIdentifier);
    std::filesystem::create_directories(std::filesystem::path(platform::pathOnDevice(path)).parent_path());
    if (!platform::writeToFileAtomically(sampleDocument(accounts), path, platform::Sync::None))
        std::abort();
    return path;
}

} // namespace wardlock::bench
