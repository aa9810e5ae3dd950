// Earlier versions contain passcodes: what other users get of them, and what happens where others were first.

#include "settings/Constants.h"
#include "settings/Document.h"
#include "settings/Settings.h"
#include "settings/history/History.h"
#include "tests/robustness/hostile/HostileFixture.h"
#include "tests/support/OtherUser.h"
#include "tests/support/doubles/RecordingNotificationCenter.h"

#include <cerrno>
#include <filesystem>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;

class EarlierVersions : public HostileFixture {
protected:
    std::string historyFolder() const { return onDisk(documentPath) + ".history"; }
    static bool setPasscode(const char* digits) {
        return updateDocument(BundleIdentifier,
                              [digits](platform::MutableDictionary& entries) {
                                  entries.set("kPasscode", digits);
                                  return true;
                              })
            .written;
    }
    void letOthersWriteTheDocumentsFolder() const {
        letOthersIn();
        letOthersWrite(fs::path(onDisk(documentPath)).parent_path());
    }

    RecordingNotificationCenter center;
};

TEST_F(EarlierVersions, CannotBeReadByAnotherUser) {
    SKIP_WITHOUT_OTHER_USER();
    letOthersIn();
    SettingsNew();
    // The document's mode is its versions' mode; the folder keeps others out.
    fs::permissions(onDisk(documentPath), fs::perms(0644));
    ASSERT_TRUE(setPasscode("1111"));
    ASSERT_TRUE(setPasscode("2222"));
    EXPECT_EQ(OtherUser::reads(onDisk(documentPath)), 0);
    EXPECT_EQ(OtherUser::lists(historyFolder()), EACCES);
    const History history;
    EXPECT_EQ(history.versions().size(), 3u);
    for (const auto& version : history.versions())
        EXPECT_EQ(OtherUser::reads(historyFolder() + '/' + version.name()), EACCES);
}

TEST_F(EarlierVersions, AreNotKeptInAFolderThatAnotherUserPlanted) {
    SKIP_WITHOUT_OTHER_USER();
    letOthersWriteTheDocumentsFolder();
    fs::create_directory(historyFolder());
    letOthersWrite(historyFolder());
    OtherUser::give(historyFolder());
    EXPECT_TRUE(setPasscode("1111"));
    EXPECT_TRUE(fs::is_empty(historyFolder()));
    EXPECT_TRUE(History().versions().empty());
}

TEST_F(EarlierVersions, AreNotKeptBehindALinkThatAnotherUserPlanted) {
    SKIP_WITHOUT_OTHER_USER();
    letOthersWriteTheDocumentsFolder();
    const std::string target = folder() / "elsewhere";
    fs::create_directory(target);
    fs::permissions(target, fs::perms::owner_all);
    OtherUser::createLink(target, historyFolder());
    EXPECT_TRUE(setPasscode("1111"));
    EXPECT_TRUE(fs::is_empty(target));
}

} // namespace
} // namespace wardlock::test
