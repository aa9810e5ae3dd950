#include "shell/device/Provision.h"

#include "platform/plist/PropertyListFile.h"
#include "settings/DefaultSettings.h"
#include "shell/device/InstalledFiles.h"
#include "tests/support/DeviceRootFixture.h"
#include "tests/support/doubles/FaultyFileSystem.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <sys/stat.h>

namespace fs = std::filesystem;
using wardlock::shell::Provision;

namespace {

constexpr const char* document = "/var/mobile/Library/Preferences/com.tavix.wardlock.plist";
constexpr const char* bundle = "/Library/PreferenceBundles/WardlockSettings.bundle";

class Provisioning : public wardlock::test::DeviceRootFixture {
protected:
    void removeRoot() const { fs::remove_all(root()); }
};

} // namespace

TEST_F(Provisioning, CreatesAMissingDeviceRootWithItsFolders) {
    removeRoot();
    EXPECT_EQ(Provision().problems(), std::vector<std::string>());
    for (const char* folder : {"/var/mobile/Library/Preferences", "/Library/PreferenceBundles",
                               "/Library/MobileSubstrate/DynamicLibraries", "/tmp", "/Applications"})
        EXPECT_TRUE(fs::is_directory(onDisk(folder))) << folder;
}

TEST_F(Provisioning, CreatesFoldersForTheUserAlone) {
    removeRoot();
    const Provision provision;
    for (const char* folder : {"", "/var/mobile/Library/Preferences", "/Library"})
        EXPECT_EQ(fs::status(onDisk(folder)).permissions(), fs::perms::owner_all) << folder;
}

TEST_F(Provisioning, LeavesTheModeOfAnExistingFolder) {
    fs::permissions(onDisk("/tmp"), fs::perms::all);
    const Provision provision;
    EXPECT_EQ(fs::status(onDisk("/tmp")).permissions(), fs::perms::all);
    EXPECT_EQ(provision.problems(),
              std::vector<std::string>{"cannot use folder " + onDisk("/tmp") + ": " + onDisk("/tmp") +
                                       " can be changed by every user"});
}

TEST_F(Provisioning, CreatesFoldersThatAreClosedFromTheFirstMoment) {
    removeRoot();
    const mode_t before = ::umask(0);
    wardlock::test::FaultyFileSystem files(platform::FileSystem::current());
    platform::FileSystem::setCurrent(&files);
    int looks = 0;
    const std::function<void()> look = [&] {
        ++looks;
        files.before("makeFolder", look);
        if (!fs::exists(root()))
            return;
        EXPECT_EQ(fs::status(root()).permissions(), fs::perms::owner_all);
        for (const auto& entry : fs::recursive_directory_iterator(root()))
            if (entry.is_directory() && !entry.is_symlink()) {
                EXPECT_EQ(entry.status().permissions(), fs::perms::owner_all) << entry.path();
            }
    };
    files.before("makeFolder", look);
    const Provision provision;
    platform::FileSystem::setCurrent(nullptr);
    ::umask(before);
    EXPECT_GT(looks, 8);
    EXPECT_EQ(provision.problems(), std::vector<std::string>());
}

TEST_F(Provisioning, CreatesNothingInARootThatEveryUserCanChange) {
    removeRoot();
    fs::create_directory(root());
    fs::permissions(root(), fs::perms::all);
    const Provision provision([] { ADD_FAILURE() << "it was furnished"; });
    EXPECT_TRUE(fs::is_empty(root()));
    EXPECT_EQ(provision.problems().front(),
              "cannot use folder " + root() + ": " + root() + " can be changed by every user");
}

TEST_F(Provisioning, CreatesNoDocumentInAFolderThatEveryUserCanChange) {
    const char* const above = "/var/mobile/Library";
    makeFolder(above);
    fs::permissions(onDisk(above), fs::perms::all);
    const Provision provision;
    EXPECT_FALSE(exists(document));
    EXPECT_TRUE(exists(bundle)) << "other folders are not concerned";
    EXPECT_EQ(provision.problems().size(), 1U);
}

TEST_F(Provisioning, LinksTheBundleOfThisInstallation) {
    const Provision provision;
    EXPECT_EQ(fs::read_symlink(onDisk(bundle)),
              wardlock::shell::installedFolder() + "/PreferenceBundles/WardlockSettings.bundle");
    EXPECT_TRUE(fs::exists(onDisk(bundle) + "/Info.plist"));
}

TEST_F(Provisioning, RepairsALinkThatLeadsNowhereOrElsewhere) {
    makeFolder("/Library/PreferenceBundles");
    fs::create_symlink("/nowhere", onDisk(bundle));
    const Provision provision;
    EXPECT_TRUE(fs::exists(onDisk(bundle) + "/Info.plist"));
    const auto count = std::distance(fs::directory_iterator(onDisk("/Library/PreferenceBundles")), {});
    EXPECT_EQ(count, 1) << "nothing is left beside the link";
}

TEST_F(Provisioning, LeavesABundleThatIsNotALink) {
    writeFile(std::string(bundle) + "/Info.plist", "mine");
    const Provision provision;
    EXPECT_EQ(readFile(std::string(bundle) + "/Info.plist"), "mine");
}

TEST_F(Provisioning, StartsTheEnforcingHalfWithoutADocument) {
    const Provision provision;
    EXPECT_EQ(platform::dictionaryWithContentsOfFile(document), wardlock::DefaultSettings());
}

TEST_F(Provisioning, NeverTouchesADocumentThatExists) {
    writeFile(document, "no document at all");
    const Provision provision;
    EXPECT_EQ(readFile(document), "no document at all");
    EXPECT_FALSE(exists(std::string(document) + ".damaged"));
}

TEST_F(Provisioning, DoesNotReplaceADocumentThatIsADanglingLink) {
    fs::create_symlink("/nowhere/at/all", onDisk(document));
    const Provision provision;
    EXPECT_TRUE(fs::is_symlink(onDisk(document)));
}

TEST_F(Provisioning, RunsItsCallbackBeforeTheFirstStart) {
    bool foldersStood = false;
    bool documentStood = true;
    const Provision provision([&] {
        foldersStood = exists("/Applications");
        documentStood = exists(document);
    });
    EXPECT_TRUE(foldersStood);
    EXPECT_FALSE(documentStood);
}

TEST_F(Provisioning, ReportsAFolderThatCannotBeCreated) {
    fs::remove_all(onDisk("/Library"));
    writeFile("/Library", "a file");
    const auto problems = Provision().problems();
    ASSERT_FALSE(problems.empty());
    EXPECT_NE(problems.front().find("/Library"), std::string::npos) << problems.front();
}

TEST_F(Provisioning, FindsNothingMissingTheSecondTime) {
    const Provision first;
    const auto before = fs::last_write_time(onDisk("/Library/PreferenceBundles"));
    const Provision second;
    EXPECT_EQ(second.problems(), std::vector<std::string>());
    EXPECT_EQ(fs::last_write_time(onDisk("/Library/PreferenceBundles")), before);
}
