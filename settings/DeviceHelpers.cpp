#include "settings/DeviceHelpers.h"

#include "platform/services/DeviceInformation.h"

namespace wardlock {

namespace {

/// Queries the orientation once for each of the two tests.
bool isPortrait(platform::DeviceInformation& device) {
    return device.statusBarOrientation() == platform::UIInterfaceOrientationPortrait ||
           device.statusBarOrientation() == platform::UIInterfaceOrientationPortraitUpsideDown;
}

} // namespace

bool isIpad() {
    return platform::DeviceInformation::current().userInterfaceIdiom() == platform::UIUserInterfaceIdiomPad;
}

platform::CGSize screenSize() {
    auto& device = platform::DeviceInformation::current();
    const platform::CGSize size = device.screenBounds().size;
    if (isPortrait(device))
        return size;
    // The width is read again after the orientation: the screen may have changed in between.
    return {size.height, device.screenBounds().size.width};
}

bool isLandscape() {
    return !isPortrait(platform::DeviceInformation::current());
}

} // namespace wardlock
