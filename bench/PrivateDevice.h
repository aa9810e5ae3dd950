#pragma once

#include <filesystem>
#include <string>

namespace wardlock::bench {

/// A device root of its own in the temporary folder, named by WARDLOCK_DEVICE_ROOT while this object lives.
class PrivateDevice {
public:
    PrivateDevice();
    ~PrivateDevice();
    PrivateDevice(const PrivateDevice&) = delete;
    PrivateDevice& operator=(const PrivateDevice&) = delete;

    /// Stores a document of `accounts` accounts as the preferences document; returns its device path.
    std::string storeDocument(std::size_t accounts) const;

private:
    std::filesystem::path folder_;
};

} // namespace wardlock::bench
