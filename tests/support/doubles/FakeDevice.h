#pragma once

#include "platform/services/DeviceInformation.h"

namespace wardlock::test {

/// The process's device for the life of this object: a telephone of 320 x 568 points by default.
class FakeDevice : public platform::DeviceInformation {
public:
    FakeDevice() { setCurrent(this); }
    ~FakeDevice() override { setCurrent(nullptr); }

    long userInterfaceIdiom() override { return platform::UIUserInterfaceIdiomPhone; }
    platform::CGRect screenBounds() override { return bounds; }
    long statusBarOrientation() override { return platform::UIInterfaceOrientationPortrait; }
    std::string systemVersion() override { return "8.1"; }
    std::string machine() override { return "iPhone6,1"; }

    platform::CGRect bounds{{0, 0}, {320, 568}};
};

} // namespace wardlock::test
