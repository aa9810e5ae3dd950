// Folders on the way to the settings that another user owns or can write to: nothing is put there.

#include "platform/files/FolderTrust.h"
#include "settings/Settings.h"
#include "shell/device/Provision.h"
#include "tests/robustness/hostile/HostileFixture.h"
#include "tests/robustness/hostile/OwnMounts.h"
#include "tests/support/BuildPaths.h"
#include "tests/support/Process.h"
#include "tests/support/doubles/RecordingNotificationCenter.h"

#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;
using platform::riskOfFolder;
using shell::Provision;

/// The whole message when such a folder is found.
std::vector<std::string> refusal(const std::string& folder, const std::string& reason) {
    return {"cannot use folder " + folder + ": " + reason};
}

class ForeignFolder : public HostileFixture {
protected:
    ForeignFolder() { fs::permissions(folder().path(), static_cast<fs::perms>(0755)); }

    /// A home of this user, with the device root in its place.
    std::string useHome() {
        environment.unset("WARDLOCK_DEVICE_ROOT");
        environment.unset("XDG_DATA_HOME");
        const std::string home = folder() / "home/tom";
        fs::create_directories(home);
        environment.set("HOME", home);
        return home;
    }
    static std::string rootIn(const std::string& home) { return home + "/.local/share/wardlock/device"; }

    RecordingNotificationCenter center;
};

TEST_F(ForeignFolder, GetsNeitherLinksNorADocumentInsideADevice) {
    SKIP_WITHOUT_OTHER_USER();
    for (const char* planted : {"/var", "/var/mobile/Library"}) {
        fs::remove_all(onDisk("/var"));
        makeFolder(planted);
        OtherUser::give(onDisk(planted));
        EXPECT_EQ(Provision().problems(),
                  refusal(onDisk(planted), onDisk(planted) + " belongs to another user"));
        EXPECT_TRUE(fs::is_empty(onDisk(planted)));
        EXPECT_FALSE(exists(documentPath));
    }
}

TEST_F(ForeignFolder, StaysEmptyWhenItReplacesTheDeviceRoot) {
    SKIP_WITHOUT_OTHER_USER();
    fs::remove_all(root());
    fs::create_directory(root());
    OtherUser::give(root());
    EXPECT_EQ(Provision().problems().front(), refusal(root(), root() + " belongs to another user").front());
    SettingsNew();
    EXPECT_TRUE(fs::is_empty(root()));
}

TEST_F(ForeignFolder, IsNotUsedBehindALinkOfAnotherUser) {
    SKIP_WITHOUT_OTHER_USER();
    makeFolder("/elsewhere");
    fs::remove_all(onDisk("/var"));
    OtherUser::createLink(onDisk("/elsewhere"), onDisk("/var"));
    EXPECT_EQ(Provision().problems(),
              refusal(onDisk("/var"), onDisk("/var") + " is a symbolic link of another user"));
    EXPECT_TRUE(fs::is_empty(onDisk("/elsewhere")));
}

TEST_F(ForeignFolder, IsJudgedAtTheTargetOfAnOwnLink) {
    fs::remove_all(onDisk("/var"));
    makeFolder("/elsewhere");
    fs::create_directory_symlink(onDisk("/elsewhere"), onDisk("/var"));
    EXPECT_EQ(Provision().problems(), std::vector<std::string>());
    EXPECT_TRUE(exists("/elsewhere/mobile/Library/Preferences/com.tavix.wardlock.plist"));
}

TEST_F(ForeignFolder, IsNotUsedInAHomeThatAGroupCanChange) {
    SKIP_WITHOUT_OTHER_USER();
    const std::string home = useHome();
    fs::permissions(home, static_cast<fs::perms>(0775));
    ASSERT_EQ(::chown(home.c_str(), ::geteuid(), OtherUser::group()), 0);
    EXPECT_EQ(Provision().problems().front(),
              refusal(rootIn(home), home + " can be changed by a group of users").front());
    SettingsNew();
    EXPECT_FALSE(fs::exists(rootIn(home) + "/var"));
    fs::permissions(home, static_cast<fs::perms>(0755));
    EXPECT_EQ(Provision().problems(), std::vector<std::string>());
    EXPECT_TRUE(fs::exists(rootIn(home) + documentPath));
}

// As sudo leaves it where it keeps HOME: the user could no longer change what root made there.
TEST_F(ForeignFolder, IsNotUsedByRootInTheHomeOfTheUserWhoBecameRoot) {
    SKIP_WITHOUT_OTHER_USER();
    const std::string home = useHome();
    OtherUser::give(home);
    const ProcessResult opened = runProcess(programFolder() + "/wardlock", {"settings", "--script", "-"});
    const ProcessResult doctor = runProcess(programFolder() + "/wardlock", {"doctor"});
    EXPECT_NE(doctor.output.find("BROKEN  Device root: "), std::string::npos) << doctor.output;
    EXPECT_EQ(opened.signal, 0) << opened.errors;
    for (const auto& entry : fs::recursive_directory_iterator(rootIn(home)))
        ADD_FAILURE() << entry.path() << " was made";
}

/// Tries a folder that its group may write to, with a user data base of the test's own.
class UserGroup : public ForeignFolder {
protected:
    /// Empty when the group counts as the user alone.
    std::string doubt(const std::string& users, const std::string& groups) {
        makeFolder("/shared");
        fs::permissions(onDisk("/shared"), static_cast<fs::perms>(0775));
        const int result = OwnMounts::does([&] {
            if (!OwnMounts::putInPlace("/etc/passwd", users, folder() / "passwd") ||
                !OwnMounts::putInPlace("/etc/group", groups, folder() / "group"))
                return 2;
            const auto found = riskOfFolder(onDisk("/shared"));
            return !found ? 0 : found.reason.ends_with(" can be changed by a group of users") ? 1 : 3;
        });
        EXPECT_TRUE(result == 0 || result == 1) << result;
        return result == 0 ? "" : "a group of users";
    }
    static constexpr const char* root = "root:x:0:0:root:/root:/bin/sh\n";
    static constexpr const char* group = "root:x:0:\n";
};

TEST_F(UserGroup, BelongsToTheUserAloneWithoutAnotherMember) {
    SKIP_WITHOUT_OWN_MOUNTS();
    EXPECT_EQ(doubt(root, group), "");
    EXPECT_EQ(doubt(std::string(root) + "tom:x:1000:1000::/home/tom:/bin/sh\n",
                    std::string(group) + "tom:x:1000:\n"),
              "");
}

TEST_F(UserGroup, IsSharedWithAMemberOfItsList) {
    SKIP_WITHOUT_OWN_MOUNTS();
    EXPECT_EQ(doubt(std::string(root) + "tom:x:1000:1000::/home/tom:/bin/sh\n", "root:x:0:tom\n"),
              "a group of users");
}

TEST_F(UserGroup, IsSharedWithAUserWhoseFirstGroupItIs) {
    SKIP_WITHOUT_OWN_MOUNTS();
    EXPECT_EQ(doubt(std::string(root) + "operator:x:11:0:operator:/root:/bin/sh\n", group),
              "a group of users");
}

TEST_F(UserGroup, IsNotSharedWithAnotherNameOfTheSameUser) {
    SKIP_WITHOUT_OWN_MOUNTS();
    EXPECT_EQ(doubt(std::string(root) + "toor:x:0:0::/root:/bin/sh\n", group), "");
}

/// A disk that was written on another machine, or that keeps no owners of its own.
class RemovableDisk : public ForeignFolder {
protected:
    /// The problems with a device root on it, as lines.
    std::string problems(unsigned user, unsigned mode) {
        const std::string report = folder() / "report";
        EXPECT_EQ(OwnMounts::does([&] {
                      if (!OwnMounts::insertDisk(root(), user, user, mode))
                          return 2;
                      const Provision provision;
                      std::ofstream file(report);
                      for (const std::string& problem : provision.problems())
                          file << problem << '\n';
                      file << (exists(documentPath) ? "document" : "no document");
                      return 0;
                  }),
                  0);
        return contents(report);
    }
};

TEST_F(RemovableDisk, ServesAsADeviceWhenTheUserOwnsIt) {
    SKIP_WITHOUT_OWN_MOUNTS();
    EXPECT_EQ(problems(::geteuid(), 0700), "document");
}

TEST_F(RemovableDisk, IsNotUsedWhenItsOwnerIsUnknownHere) {
    SKIP_WITHOUT_OWN_MOUNTS();
    constexpr unsigned unknown = 54321;
    EXPECT_EQ(problems(unknown, 0755),
              refusal(root(), root() + " belongs to another user").front() + "\nno document");
}

TEST_F(RemovableDisk, IsNotUsedWhenEveryUserMayChangeItsFiles) {
    SKIP_WITHOUT_OWN_MOUNTS();
    EXPECT_EQ(problems(::geteuid(), 0777),
              refusal(root(), root() + " can be changed by every user").front() + "\nno document");
}

} // namespace
} // namespace wardlock::test
