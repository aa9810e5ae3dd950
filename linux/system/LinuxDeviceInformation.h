#pragma once

#include "platform/services/DeviceInformation.h"

#include <string_view>

namespace platform::system {

/// The device as this machine and the host's window determine it. Main thread only.
class WARDLOCK_API LinuxDeviceInformation final : public DeviceInformation {
public:
    long userInterfaceIdiom() override { return idiom_; }
    /// Upright whichever way the screen is held: never wider than high.
    CGRect screenBounds() override;
    double screenScale() override { return screenScale_; }
    /// Portrait unless the screen is wider than high.
    long statusBarOrientation() override;
    /// VERSION_ID of os-release; the kernel's release where the system names no version.
    std::string systemVersion() override;
    std::string machine() override;

    void becomeIdiom(long idiom) { idiom_ = idiom; }
    /// The size as the screen is held.
    void becomeScreenSize(CGSize size) { screenSize_ = size; }
    void becomeScreenScale(double scale) { screenScale_ = scale; }

private:
    long idiom_ = UIUserInterfaceIdiomPhone;
    CGSize screenSize_{390, 844};
    double screenScale_ = 2;
};

/// Returns the one of the process, which hosts change by the functions of HostDevice.h.
LinuxDeviceInformation& machineInformation();

/// Returns the unquoted VERSION_ID in the text of an os-release file; empty where there is none.
WARDLOCK_API std::string versionInRelease(std::string_view text);

} // namespace platform::system
