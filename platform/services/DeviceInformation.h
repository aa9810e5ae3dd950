#pragma once

#include "platform/base/Export.h"
#include "platform/base/Geometry.h"
#include "platform/services/HostDevice.h"

#include <string>

namespace platform {

inline constexpr long UIInterfaceOrientationUnknown = 0;
inline constexpr long UIInterfaceOrientationPortrait = 1;
inline constexpr long UIInterfaceOrientationPortraitUpsideDown = 2;
inline constexpr long UIInterfaceOrientationLandscapeLeft = 3;
inline constexpr long UIInterfaceOrientationLandscapeRight = 4;

/// What the device reports about itself. Main thread only; each call reads again.
class WARDLOCK_API DeviceInformation {
public:
    virtual ~DeviceInformation();

    virtual long userInterfaceIdiom() = 0;
    /// Returns the main screen's bounds in points in its upright position: they do not turn with the
    /// orientation.
    virtual CGRect screenBounds() = 0;
    /// Returns the main screen's pixels per point; 2 where it is unknown. An image that is too fine looks
    /// right, one that is too coarse does not.
    virtual double screenScale() { return 2; }
    virtual long statusBarOrientation() = 0;
    /// The version of the operating system, "12" or "12.5".
    virtual std::string systemVersion() = 0;
    /// The machine field of uname: the hardware model code.
    virtual std::string machine() = 0;

    /// Returns the process's device: the one that was set, else the operating system's own.
    static DeviceInformation& current();
    /// Null restores the operating system's own. The caller keeps ownership.
    static void setCurrent(DeviceInformation* information);
    /// Returns the operating system's own, with what the host decides (HostDevice.h).
    static DeviceInformation& native();
};

} // namespace platform
