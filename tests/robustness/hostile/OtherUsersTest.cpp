// What other users of the machine cannot read.

#include "platform/plist/PropertyListFile.h"
#include "platform/runtime/MainLoop.h"
#include "platform/runtime/NSOperationQueue.h"
#include "platform/services/MailService.h"
#include "settings/Constants.h"
#include "settings/Document.h"
#include "settings/Log.h"
#include "settings/Settings.h"
#include "shell/device/DemonstrationDevice.h"
#include "shell/device/Provision.h"
#include "tests/robustness/hostile/HostileFixture.h"
#include "tests/support/TestTimeout.h"
#include "tests/support/doubles/FaultyFileSystem.h"
#include "tests/support/doubles/RecordingNotificationCenter.h"

#include <cerrno>
#include <filesystem>
#include <optional>
#include <sys/stat.h>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;
using platform::MutableDictionary;

/// Whatever the host's creation mask was before, it is put back.
class OpenCreationMask {
public:
    OpenCreationMask() : before_(::umask(0)) {}
    ~OpenCreationMask() { ::umask(before_); }
    OpenCreationMask(const OpenCreationMask&) = delete;
    OpenCreationMask& operator=(const OpenCreationMask&) = delete;

private:
    mode_t before_;
};

/// A host whose creation mask takes nothing away.
class OtherUsers : public HostileFixture {
protected:
    static bool setPasscode(MutableDictionary& document) {
        document.set("kPasscode", "1234");
        return true;
    }

    OpenCreationMask mask;
    RecordingNotificationCenter center;
};

TEST_F(OtherUsers, CannotReadANewDocument) {
    SKIP_WITHOUT_OTHER_USER();
    letOthersIn();
    SettingsNew();
    EXPECT_EQ(modeOf(onDisk(documentPath)), 0600u);
    EXPECT_EQ(OtherUser::reads(onDisk(documentPath)), EACCES);
}

TEST_F(OtherUsers, CannotReadTheDocumentAfterAChange) {
    SKIP_WITHOUT_OTHER_USER();
    letOthersIn();
    SettingsNew();
    ASSERT_TRUE(updateDocument(BundleIdentifier, setPasscode).written);
    EXPECT_EQ(OtherUser::reads(onDisk(documentPath)), EACCES);
}

TEST_F(OtherUsers, CannotReadTheTemporaryThatBecomesTheDocument) {
    SKIP_WITHOUT_OTHER_USER();
    letOthersIn();
    FaultyFileSystem files(platform::FileSystem::current());
    platform::FileSystem::setCurrent(&files);
    for (const char* call : {"write", "setMode", "sync", "rename"}) {
        int tried = 0;
        const auto everyTemporary = [&] {
            for (const auto& entry : fs::directory_iterator(onDisk(documentFolder)))
                if (entry.path().string().ends_with(".wardlock-new")) {
                    ++tried;
                    EXPECT_EQ(OtherUser::reads(entry.path()), EACCES) << call;
                }
        };
        SettingsNew();
        // A mode that is set, or the call in question would not be made.
        fs::permissions(onDisk(documentPath), static_cast<fs::perms>(0400));
        files.before(call, everyTemporary);
        EXPECT_TRUE(updateDocument(BundleIdentifier, setPasscode).written);
        EXPECT_EQ(tried, 1) << call;
    }
    platform::FileSystem::setCurrent(nullptr);
}

TEST_F(OtherUsers, CannotReadTheKeptCopyOfADamagedDocument) {
    SKIP_WITHOUT_OTHER_USER();
    letOthersIn();
    writeFile(documentPath, "<string>1234</string> and no more");
    fs::permissions(onDisk(documentPath), static_cast<fs::perms>(0600));
    ASSERT_TRUE(updateDocument(BundleIdentifier, setPasscode).written);
    EXPECT_EQ(contents(onDisk(documentPath) + ".damaged"), "<string>1234</string> and no more");
    EXPECT_EQ(OtherUser::reads(onDisk(documentPath) + ".damaged"), EACCES);
}

TEST_F(OtherUsers, CannotReadTheLog) {
    SKIP_WITHOUT_OTHER_USER();
    letOthersIn();
    jLog("the page was opened");
    platform::NSOperationQueue::mainQueue().drain();
    EXPECT_EQ(readFile(logPath), "\nthe page was opened");
    EXPECT_EQ(OtherUser::reads(onDisk(logPath)), EACCES);
}

TEST_F(OtherUsers, CannotEnterTheFoldersOfANewDevice) {
    SKIP_WITHOUT_OTHER_USER();
    letOthersIn();
    const std::string above = folder() / "some/where";
    environment.set("WARDLOCK_DEVICE_ROOT", above + "/device");
    const shell::Provision provision(shell::furnishDemonstration);
    ASSERT_TRUE(fs::exists(above + "/device" + std::string(documentPath)));
    EXPECT_EQ(modeOf(above), 0700u);
    for (const auto& entry : fs::recursive_directory_iterator(above))
        EXPECT_TRUE(entry.is_symlink() || (modeOf(entry.path()) & 0022) == 0) << entry.path();
    for (const char* below : {"", "/device", "/device/var", "/device/var/mobile/Library/Preferences"})
        EXPECT_EQ(OtherUser::lists(above + below), EACCES) << below;
}

TEST_F(OtherUsers, CannotReadAMailThatWasSaved) {
    SKIP_WITHOUT_OTHER_USER();
    makeFolder(platform::mailOutboxPath);
    letOthersIn();
    environment.set("PATH", "/nonexistent");
    std::optional<platform::MailOutcome> result;
    const platform::MailMessage message{
        {"support@example.org"}, "Help", "text", false, {{"a log", "text/plain", "log"}}};
    platform::MailService::native().send(message,
                                         [&](const platform::MailOutcome& outcome) { result = outcome; });
    ASSERT_TRUE(platform::MainLoop::shared().runUntil([&] { return result.has_value(); }, testTimeout));
    ASSERT_EQ(result->kind, platform::MailOutcome::Kind::SavedToOutbox) << result->message;
    int mails = 0;
    for (const auto& mail : fs::directory_iterator(onDisk(platform::mailOutboxPath))) {
        ++mails;
        EXPECT_EQ(OtherUser::reads(mail.path()), EACCES);
    }
    EXPECT_EQ(mails, 1);
}

} // namespace
} // namespace wardlock::test
