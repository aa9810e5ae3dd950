#pragma once

#include "platform/preferences/PSListController.h"
#include "platform/runtime/NSBundle.h"
#include "tests/support/PageFixture.h"

#include <memory>
#include <string>

namespace wardlock::test {

/// A test of the settings bundle of this build, linked into the device root and loaded as a module.
class BundleFixture : public PageFixture {
protected:
    static constexpr const char* bundlePath = "/Library/PreferenceBundles/WardlockSettings.bundle";

    BundleFixture();

    /// The bundle's first page, made by its principal class.
    std::shared_ptr<platform::PSListController> makePage();
    /// What the loaded module exports under the name; null when it exports nothing of that name.
    static void* exported(const char* name);

    std::shared_ptr<platform::NSBundle> bundle;
};

} // namespace wardlock::test
