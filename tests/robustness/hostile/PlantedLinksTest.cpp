// Symbolic links that another user has created where this one reads and writes. The folders are open to all
// and not sticky, so that the kernel's own protection of sticky folders decides nothing.

#include "platform/files/AtomicWriter.h"
#include "platform/plist/PropertyListFile.h"
#include "platform/runtime/NSBundle.h"
#include "platform/runtime/NSOperationQueue.h"
#include "platform/services/MailService.h"
#include "settings/Constants.h"
#include "settings/Document.h"
#include "settings/Log.h"
#include "settings/Settings.h"
#include "tests/robustness/hostile/HostileFixture.h"
#include "tests/support/doubles/RecordingNotificationCenter.h"

#include <filesystem>
#include <unistd.h>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;
using platform::MutableDictionary;

constexpr std::string_view aDocument =
    "<plist version=\"1.0\"><dict><key>kPasscode</key><string>9</string></dict></plist>";

class PlantedLink : public HostileFixture {
protected:
    void plant(const std::string& target, std::string_view devicePath) const {
        letOthersWrite(fs::path(onDisk(devicePath)).parent_path());
        OtherUser::createLink(target, onDisk(devicePath));
    }
    static bool writesDocument() {
        return updateDocument(BundleIdentifier,
                              [](MutableDictionary& document) {
                                  document.set("kPasscode", "1234");
                                  return true;
                              })
            .written;
    }
    int entriesOf(std::string_view devicePath) const {
        return static_cast<int>(
            std::distance(fs::directory_iterator(onDisk(devicePath)), fs::directory_iterator()));
    }

    RecordingNotificationCenter center;
};

TEST_F(PlantedLink, DoesNotRedirectTheWritingOfTheDocument) {
    SKIP_WITHOUT_OTHER_USER();
    plant(secret(), documentPath);
    EXPECT_FALSE(writesDocument());
    EXPECT_EQ(contents(secret()), "secret");
    EXPECT_EQ(entriesOf(documentFolder), 1) << "neither a temporary nor a second name of the secret is left";
}

TEST_F(PlantedLink, CreatesNoFileWhenItReplacesTheDocumentAndDangles) {
    SKIP_WITHOUT_OTHER_USER();
    plant(folder() / "made", documentPath);
    EXPECT_FALSE(writesDocument());
    EXPECT_FALSE(fs::exists(folder() / "made"));
}

TEST_F(PlantedLink, DoesNotRedirectTheReadingOfTheDocument) {
    SKIP_WITHOUT_OTHER_USER();
    writeFile("/other.plist", aDocument);
    plant(onDisk("/other.plist"), documentPath);
    EXPECT_FALSE(document(BundleIdentifier));
}

TEST_F(PlantedLink, IsNotFollowedBehindATrustedLink) {
    SKIP_WITHOUT_OTHER_USER();
    writeFile("/other.plist", aDocument);
    makeFolder("/shared");
    plant(onDisk("/other.plist"), "/shared/link");
    fs::create_symlink(onDisk("/shared/link"), onDisk(documentPath));
    EXPECT_FALSE(document(BundleIdentifier));
    EXPECT_FALSE(writesDocument());
    EXPECT_EQ(readFile("/other.plist"), aDocument);
}

TEST_F(PlantedLink, IsRefusedWithAReasonThatNamesIt) {
    SKIP_WITHOUT_OTHER_USER();
    plant(secret(), documentPath);
    const auto error = platform::AtomicWriter().write(onDisk(documentPath), "x", platform::Sync::None);
    EXPECT_EQ(error, std::errc::permission_denied);
    EXPECT_EQ(error.message(), "The symbolic link belongs to another user");
}

TEST_F(PlantedLink, IsFollowedAndKeptAtTheDocumentWhenTheUserOwnsIt) {
    writeFile("/elsewhere/real.plist", aDocument);
    fs::create_symlink("../../../../elsewhere/real.plist", onDisk(documentPath));
    ASSERT_TRUE(document(BundleIdentifier));
    EXPECT_TRUE(writesDocument());
    EXPECT_TRUE(fs::is_symlink(onDisk(documentPath)));
    EXPECT_EQ(document(BundleIdentifier)->find("kPasscode")->string(), "1234");
    EXPECT_NE(readFile("/elsewhere/real.plist"), aDocument);
}

TEST_F(PlantedLink, IsFollowedByAnOrdinaryUserWhenRootOwnsIt) {
    SKIP_WITHOUT_OTHER_USER();
    letOthersIn();
    writeFile("/elsewhere/real.plist", aDocument);
    fs::permissions(onDisk("/elsewhere"), static_cast<fs::perms>(0755));
    fs::permissions(onDisk("/elsewhere/real.plist"), static_cast<fs::perms>(0644));
    fs::create_symlink(onDisk("/elsewhere/real.plist"), onDisk(documentPath));
    EXPECT_EQ(OtherUser::does([] { return document(BundleIdentifier) ? 0 : 1; }), 0);
}

TEST_F(PlantedLink, LeavesItsTargetAloneAtTheKeptCopyOfADamagedDocument) {
    SKIP_WITHOUT_OTHER_USER();
    writeFile(documentPath, "damaged");
    plant(secret(), std::string(documentPath) + ".damaged");
    EXPECT_TRUE(writesDocument());
    EXPECT_EQ(contents(secret()), "secret");
    EXPECT_EQ(readFile(std::string(documentPath) + ".damaged.2"), "damaged");
}

TEST_F(PlantedLink, LeavesItsTargetAloneWhenItHasATemporarysName) {
    SKIP_WITHOUT_OTHER_USER();
    plant(secret(), std::string(documentFolder) + "/.com.tavix.wardlock.plist.0123456789abcdef.wardlock-new");
    EXPECT_TRUE(writesDocument());
    EXPECT_EQ(contents(secret()), "secret");
}

TEST_F(PlantedLink, DoesNotRedirectTheEntriesOfTheLog) {
    SKIP_WITHOUT_OTHER_USER();
    plant(secret(), logPath);
    jLog("an entry");
    platform::NSOperationQueue::mainQueue().drain();
    EXPECT_EQ(contents(secret()), "secret");
    EXPECT_TRUE(fs::is_symlink(onDisk(logPath)));
}

TEST_F(PlantedLink, MakesNoBundleWhenItReplacesAnInfoList) {
    SKIP_WITHOUT_OTHER_USER();
    writeFile("/other.plist", aDocument);
    makeFolder("/Library/PreferenceBundles/X.bundle");
    plant(onDisk("/other.plist"), "/Library/PreferenceBundles/X.bundle/Info.plist");
    EXPECT_EQ(platform::NSBundle::bundleWithPath("/Library/PreferenceBundles/X.bundle"), nullptr);
}

TEST_F(PlantedLink, ClosesTheOutboxWhenItReplacesIt) {
    SKIP_WITHOUT_OTHER_USER();
    environment.set("PATH", "/nonexistent");
    environment.unset("DISPLAY");
    environment.unset("WAYLAND_DISPLAY");
    makeFolder("/var/mobile/Library/Mail");
    makeFolder("/taken");
    fs::create_directory_symlink(onDisk("/taken"), onDisk(platform::mailOutboxPath));
    ASSERT_TRUE(platform::MailService::native().canSendMail()) << "a link of the same user";
    fs::remove(onDisk(platform::mailOutboxPath));
    plant(onDisk("/taken"), platform::mailOutboxPath);
    EXPECT_FALSE(platform::MailService::native().canSendMail());
}

} // namespace
} // namespace wardlock::test
