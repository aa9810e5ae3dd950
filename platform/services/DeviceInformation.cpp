#include "platform/services/DeviceInformation.h"

#include "platform/base/CurrentService.h"

namespace platform {

namespace {

constinit CurrentService<DeviceInformation> currentDevice(DeviceInformation::native);

} // namespace

DeviceInformation::~DeviceInformation() = default;

DeviceInformation& DeviceInformation::current() {
    return currentDevice.get();
}

void DeviceInformation::setCurrent(DeviceInformation* information) {
    currentDevice.set(information);
}

} // namespace platform
