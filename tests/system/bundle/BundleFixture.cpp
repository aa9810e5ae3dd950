#include "tests/system/bundle/BundleFixture.h"

#include "tests/support/BuildPaths.h"

#include <dlfcn.h>
#include <filesystem>

namespace wardlock::test {

namespace {

std::string builtBundle() {
    return buildFolder() + "/lib/wardlock/PreferenceBundles/WardlockSettings.bundle";
}

} // namespace

BundleFixture::BundleFixture() {
    const std::filesystem::path link = onDisk(bundlePath);
    std::filesystem::create_directories(link.parent_path());
    std::filesystem::create_directory_symlink(builtBundle(), link);
    bundle = platform::NSBundle::bundleWithPath(bundlePath);
}

std::shared_ptr<platform::PSListController> BundleFixture::makePage() {
    std::string reason;
    const auto* principal = bundle->principalClass(reason);
    EXPECT_NE(principal, nullptr) << reason;
    return principal ? std::dynamic_pointer_cast<platform::PSListController>(principal->create()) : nullptr;
}

void* BundleFixture::exported(const char* name) {
    const std::string module = builtBundle() + "/WardlockSettings";
    void* const loaded = ::dlopen(module.c_str(), RTLD_NOLOAD | RTLD_LAZY);
    EXPECT_NE(loaded, nullptr) << "not loaded";
    return loaded ? ::dlsym(loaded, name) : nullptr;
}

} // namespace wardlock::test
