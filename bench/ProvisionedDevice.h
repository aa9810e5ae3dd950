#pragma once

#include "bench/PrivateDevice.h"

#include <string_view>

namespace wardlock::bench {

/// A private device with the bundle of this build and a document. Ends the process when it cannot be created.
class ProvisionedDevice {
public:
    explicit ProvisionedDevice(std::string_view document);

private:
    PrivateDevice device_;
};

} // namespace wardlock::bench
