// Modules that another user could have put there or changed, anywhere on the path to them.

#include "platform/runtime/Class.h"
#include "platform/runtime/DynamicLibrary.h"
#include "platform/runtime/NSBundle.h"
#include "platform/services/ALApplicationList.h"
#include "shell/device/BundleList.h"
#include "shell/device/Provision.h"
#include "tests/support/ModuleFixture.h"
#include "tests/support/OtherUser.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <sys/xattr.h>
#include <unistd.h>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* folderAbove = "/usr/share";
constexpr const char* module = "/usr/share/modules/greeter.so";
constexpr const char* bundle = "/Library/PreferenceBundles/Greeter.bundle";

class ModuleTrust : public ModuleFixture {
protected:
    ModuleTrust() {
        putModule("greeter", module);
        // Whatever the creation mask.
        for (const char* folder : {"", "/usr", folderAbove})
            setMode(folder, 0755);
    }

    /// Empty when the module at the path is opened, else why not.
    static std::string refusal(std::string_view path = module) {
        void* const handle = platform::dlopen(path, platform::RTLD_Lazy);
        platform::dlclose(handle);
        EXPECT_EQ(platform::dlerror().find('\n'), std::string::npos);
        return platform::dlerror();
    }
    /// The reason names the folder or file of the device.
    std::string reason(std::string_view devicePath, const std::string& text) const {
        return onDisk(devicePath) + ' ' + text;
    }
    void createLink(const std::string& target, std::string_view devicePath) const {
        makeFolder(fs::path(devicePath).parent_path().string());
        setMode(fs::path(devicePath).parent_path().string(), 0755);
        fs::create_symlink(target, onDisk(devicePath));
    }
};

TEST_F(ModuleTrust, IsGivenToAModuleBelowTrustedFolders) {
    EXPECT_EQ(refusal(), "");
}

TEST_F(ModuleTrust, EndsAtAFolderHighAboveThatEveryUserCanChange) {
    setMode(folderAbove, 0757);
    EXPECT_EQ(refusal(), reason(folderAbove, "can be changed by every user"));
}

TEST_F(ModuleTrust, EndsAtAFolderAboveTheDeviceRootToo) {
    fs::permissions(folder().path(), fs::perms::all);
    EXPECT_EQ(refusal(), folder().path() + " can be changed by every user");
}

TEST_F(ModuleTrust, EndsAtAFolderHighAboveThatAGroupCanChange) {
    SKIP_WITHOUT_OTHER_USER();
    ASSERT_EQ(::chown(onDisk(folderAbove).c_str(), 0, OtherUser::group()), 0);
    setMode(folderAbove, 0775);
    EXPECT_EQ(refusal(), reason(folderAbove, "can be changed by a group of users"));
}

TEST_F(ModuleTrust, EndsAtAFolderHighAboveThatBelongsToAnotherUser) {
    SKIP_WITHOUT_OTHER_USER();
    OtherUser::give(onDisk(folderAbove));
    EXPECT_EQ(refusal(), reason(folderAbove, "belongs to another user"));
}

TEST_F(ModuleTrust, SurvivesAStickyFolderAboveTheModule) {
    setMode(folderAbove, 01777);
    EXPECT_EQ(refusal(), "");
}

TEST_F(ModuleTrust, EndsInAStickyFolderAtAnEntryOfAnotherUser) {
    SKIP_WITHOUT_OTHER_USER();
    setMode(folderAbove, 01777);
    OtherUser::give(onDisk("/usr/share/modules"));
    EXPECT_EQ(refusal(), reason("/usr/share/modules", "belongs to another user"));
}

TEST_F(ModuleTrust, EndsAtAStickyFolderOfAnotherUser) {
    SKIP_WITHOUT_OTHER_USER();
    OtherUser::give(onDisk(folderAbove));
    setMode(folderAbove, 01777);
    EXPECT_EQ(refusal(), reason(folderAbove, "belongs to another user"));
}

TEST_F(ModuleTrust, EndsAtTheFolderOfALinkThatEveryUserCanChange) {
    createLink(onDisk(module), "/open/link.so");
    EXPECT_EQ(refusal("/open/link.so"), "");
    setMode("/open", 0777);
    EXPECT_EQ(refusal("/open/link.so"), reason("/open", "can be changed by every user"));
}

TEST_F(ModuleTrust, EndsAtAFolderThatOnlyALinkCrosses) {
    createLink("../usr/share", "/open/share");
    createLink("../open/share/modules", "/first/modules");
    EXPECT_EQ(refusal("/first/modules/greeter.so"), "");
    setMode("/open", 0777);
    EXPECT_EQ(refusal("/first/modules/greeter.so"), reason("/open", "can be changed by every user"));
}

TEST_F(ModuleTrust, SurvivesAnOwnLinkInAStickyFolder) {
    createLink(onDisk(module), "/open/link.so");
    setMode("/open", 01777);
    EXPECT_EQ(refusal("/open/link.so"), "");
}

TEST_F(ModuleTrust, EndsAtALinkOfAnotherUser) {
    SKIP_WITHOUT_OTHER_USER();
    createLink(onDisk(module), "/open/link.so");
    setMode("/open", 01777);
    ASSERT_EQ(::lchown(onDisk("/open/link.so").c_str(), OtherUser::id(), OtherUser::group()), 0);
    EXPECT_EQ(refusal("/open/link.so"), reason("/open/link.so", "is a symbolic link of another user"));
}

TEST_F(ModuleTrust, EndsWhereLinksLeadInACircle) {
    createLink("b", "/open/a");
    createLink("a", "/open/b");
    EXPECT_NE(refusal("/open/a"), "");
}

/// The attribute that names a further user who may read, write and search, beside owner, group and others.
std::string accessListFor(std::uint32_t user) {
    struct Entry {
        std::uint16_t tag;
        std::uint16_t rights;
        std::uint32_t id;
    };
    constexpr std::uint32_t unnamed = ~0u;
    const std::array<Entry, 5> entries{Entry{1, 7, unnamed}, Entry{2, 7, user}, Entry{4, 5, unnamed},
                                       Entry{16, 7, unnamed}, Entry{32, 5, unnamed}};
    const std::uint32_t version = 2;
    std::string bytes(sizeof version + sizeof entries, '\0');
    std::memcpy(bytes.data(), &version, sizeof version);
    std::memcpy(bytes.data() + sizeof version, entries.data(), sizeof entries);
    return bytes;
}

TEST_F(ModuleTrust, EndsAtAFolderWhoseAccessListLetsAnotherUserChangeIt) {
    // Root has a group alone everywhere.
    SKIP_WITHOUT_OTHER_USER();
    setMode(folderAbove, 0775);
    ASSERT_EQ(refusal(), "");
    const std::string list = accessListFor(65534);
    if (::setxattr(onDisk(folderAbove).c_str(), "system.posix_acl_access", list.data(), list.size(), 0) !=
        0) {
        // Without access lists, no list can give another user access.
        ASSERT_EQ(errno, ENOTSUP);
        GTEST_SKIP() << "the file system of the temporary folder keeps no access lists";
    }
    EXPECT_EQ(refusal(), reason(folderAbove, "can be changed by a group of users"));
}

class BundleTrust : public ModuleTrust {
protected:
    BundleTrust() {
        putBundle(bundle, "<key>CFBundleExecutable</key><string>greeter.so</string>"
                          "<key>NSPrincipalClass</key><string>Greeter</string>");
        putModule("greeter", std::string(bundle) + "/greeter.so");
        setMode(std::string(bundle) + "/Info.plist", 0644);
        for (const char* folder : {"/Library", "/Library/PreferenceBundles"})
            setMode(folder, 0755);
    }
    /// Empty when the bundle is listed and opened, else why not.
    static std::string refusal() {
        std::string reason;
        const bool opened = platform::NSBundle::bundleWithPath(bundle)->principalClass(reason) != nullptr;
        EXPECT_EQ(opened, reason.empty());
        const shell::BundleList list;
        EXPECT_EQ(list.entries().size(), opened ? 1u : 0u);
        const std::vector<std::string> expected{"\u201cGreeter.bundle\u201d is not shown: " + reason + "."};
        EXPECT_EQ(list.leftOut(), opened ? std::vector<std::string>() : expected);
        return reason;
    }
};

TEST_F(BundleTrust, IsGivenToABundleBelowTrustedFolders) {
    EXPECT_EQ(refusal(), "");
}

TEST_F(BundleTrust, EndsWhenEveryUserCanChangeTheBundlesInfo) {
    const std::string info = std::string(bundle) + "/Info.plist";
    setMode(info, 0666);
    EXPECT_EQ(refusal(), reason(info, "can be changed by every user"));
}

TEST_F(BundleTrust, ListsABundleWhoseModuleAloneEveryUserCanChangeAndRefusesToOpenIt) {
    const std::string code = std::string(bundle) + "/greeter.so";
    setMode(code, 0666);
    EXPECT_EQ(shell::BundleList().entries().size(), 1U);
    std::string why;
    EXPECT_EQ(platform::NSBundle::bundleWithPath(bundle)->principalClass(why), nullptr);
    EXPECT_EQ(why, reason(code, "can be changed by every user"));
}

TEST_F(BundleTrust, EndsWhereEveryUserCanChangeTheBundlesFolder) {
    setMode(bundle, 0777);
    EXPECT_EQ(refusal(), reason(bundle, "can be changed by every user"));
}

TEST_F(BundleTrust, EndsWhereEveryUserCanPutAnotherBundleInItsPlace) {
    setMode("/Library/PreferenceBundles", 0777);
    EXPECT_EQ(refusal(), reason("/Library/PreferenceBundles", "can be changed by every user"));
}

TEST_F(BundleTrust, EndsWhenEveryUserCanReplaceALinkToABundle) {
    fs::rename(onDisk(bundle), onDisk("/usr/Greeter.bundle"));
    createLink(onDisk("/usr/Greeter.bundle"), bundle);
    ASSERT_EQ(refusal(), "");
    setMode("/Library", 0777);
    EXPECT_EQ(refusal(), reason("/Library", "can be changed by every user"));
}

TEST_F(ModuleTrust, EndsForTheApplicationListWithANoticeAtTheStart) {
    ASSERT_EQ(shell::Provision().problems(), std::vector<std::string>());
    ASSERT_EQ(refusal(platform::appListLibraryPath), "");
    const char* const modules = "/Library/MobileSubstrate/DynamicLibraries";
    setMode(modules, 0777);
    const std::string why = reason(modules, "can be changed by every user");
    EXPECT_EQ(shell::Provision().problems(),
              (std::vector<std::string>{"cannot use folder " + onDisk(modules) + ": " + why,
                                        "cannot list applications: " + why}));
    EXPECT_EQ(refusal(platform::appListLibraryPath), why);
}

} // namespace
} // namespace wardlock::test
