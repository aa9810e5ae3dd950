// Damaged settings: the last good version is offered, and never restored without the user.

#include "settings/DefaultSettings.h"
#include "settings/history/History.h"
#include "tests/support/doubles/FaultyFileSystem.h"
#include "tests/unit/shell/UndoFixture.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace wardlock::test {
namespace {

constexpr const char* damagedOffer = "The settings are damaged. Their last good version can be restored";

/// Its versions can be read, the document cannot.
class UnreadableDocument : public FaultyFileSystem {
public:
    using FaultyFileSystem::FaultyFileSystem;

    std::error_code readFile(const std::string& path, std::size_t maximum, std::string& bytes) override {
        return path.ends_with("com.tavix.wardlock.plist") ? std::make_error_code(std::errc::io_error)
                                                          : FaultyFileSystem::readFile(path, maximum, bytes);
    }
};

class Recovery : public UndoFixture {
protected:
    void damage() {
        removeFile(documentPath);
        writeFile(documentPath, "no document");
    }
    /// Settings that are damaged before the start; a version of them is kept.
    void startDamaged() {
        writeDocument(documentOf({"Ann", "Tom"}));
        keepForeignVersion();
        good_ = readFile(documentPath);
        damage();
        start();
        observe();
    }
    /// Another program replaces the settings and announces nothing.
    void repair(const platform::Dictionary& document) {
        removeFile(documentPath);
        writeFile(documentPath, platform::dataWithPropertyList(document));
    }
    void restore() {
        const auto result = settings().recovery().restore();
        EXPECT_TRUE(result) << result.reason();
    }
    const std::string& good() const { return good_; }

private:
    std::string good_;
};

TEST_F(Recovery, IsOfferedAtTheStart) {
    startDamaged();
    EXPECT_EQ(offer(), damagedOffer);
    EXPECT_EQ(readFile(documentPath), "no document");
    restore();
    EXPECT_EQ(offer(), "");
    EXPECT_EQ(readFile(documentPath), good());
    tap("Wardlock");
    EXPECT_TRUE(hasRow("Tom"));
}

TEST_F(Recovery, ShowsTheRestoredSettingsOnThePageThatIsOpen) {
    startDamaged();
    tap("Wardlock");
    EXPECT_FALSE(hasRow("Tom"));
    restore();
    EXPECT_TRUE(hasRow("Tom"));
    EXPECT_EQ(offer(), "");
}

TEST_F(Recovery, IsOfferedWhenAnotherPageMeetsTheDamage) {
    startWith({"Ann"});
    tap("Wardlock");
    EXPECT_EQ(offer(), "");
    damage();
    tap("Ann");
    EXPECT_EQ(offer(), damagedOffer);
}

TEST_F(Recovery, IsStillOfferedAfterAPageHasWrittenItsKey) {
    startDamaged();
    tap("Wardlock");
    tap("Enabled");
    ASSERT_FALSE(document().find(kAccounts));
    EXPECT_EQ(offer(), damagedOffer);
    restore();
    EXPECT_EQ(readFile(documentPath), good());
}

TEST_F(Recovery, IsNotOfferedOnceAnotherProgramHasRepairedTheSettings) {
    startDamaged();
    replaceElsewhere(documentOf({"Eva"}));
    EXPECT_EQ(offer(), "");
    EXPECT_EQ(settings().recovery().restore().reason(), "there is nothing to restore");
}

TEST_F(Recovery, DoesNotReplaceSettingsThatWereRepairedWithoutAnAnnouncement) {
    startDamaged();
    tap("Wardlock");
    repair(documentOf({"Eva"}));
    const std::string repaired = readFile(documentPath);
    EXPECT_EQ(settings().recovery().restore().reason(), "there is nothing to restore");
    EXPECT_EQ(readFile(documentPath), repaired);
    EXPECT_EQ(offer(), "");
    EXPECT_TRUE(hasRow("Eva"));
}

TEST_F(Recovery, IsWithdrawnWhenAnotherPageMeetsRepairedSettings) {
    startDamaged();
    repair(documentOf({"Eva"}));
    tap("Wardlock");
    EXPECT_EQ(offer(), "");
}

TEST_F(Recovery, IsStillOfferedWhereAnotherProcessFilledInTheDefaults) {
    startDamaged();
    repair(DefaultSettings());
    tap("Wardlock");
    EXPECT_EQ(offer(), damagedOffer);
    restore();
    EXPECT_EQ(readFile(documentPath), good());
}

TEST_F(Recovery, ReportsThatNothingWasRestoredWhereTheVersionIsGone) {
    startDamaged();
    std::filesystem::remove_all(onDisk(documentPath) + ".history");
    EXPECT_EQ(settings().recovery().restore().reason(), "there is nothing to restore");
    EXPECT_EQ(offer(), "");
    EXPECT_EQ(readFile(documentPath), "no document");
}

TEST_F(Recovery, IsTheLastChangeAndLeavesTheOneBeforeAlone) {
    startWith({"Ann", "Tom"});
    openAccount("Tom");
    tap("Siri");
    back();
    const std::string good = readFile(documentPath);
    damage();
    back();
    restore();
    EXPECT_EQ(readFile(documentPath), good);
    EXPECT_EQ(History().versions().back().origin.action, platform::VersionAction::Restore);
    EXPECT_EQ(settings().history().undo().reason(), "there is nothing to undo");
    EXPECT_TRUE(isOn(1, kRestrictSiri));
}

TEST_F(Recovery, IsOfferedOnTheFirstPageAfterAnAccountWasShown) {
    startWith({"Ann"});
    openAccount("Ann");
    back();
    damage();
    back();
    EXPECT_EQ(pages(), Names{"Settings"});
    EXPECT_EQ(offer(), damagedOffer);
    EXPECT_EQ(notice(), "");
}

TEST_F(Recovery, IsNotOfferedAgainAfterTheUserRefusedIt) {
    startDamaged();
    settings().recovery().dismiss();
    EXPECT_EQ(offer(), "");
    tap("Wardlock");
    EXPECT_EQ(offer(), "");
    replaceElsewhere(documentOf({"Eva"}));
    back();
    damage();
    tap("Wardlock");
    EXPECT_EQ(offer(), damagedOffer);
}

TEST_F(Recovery, IsOfferedWhenTheSettingsHaveDisappeared) {
    startWith({"Ann"});
    removeFile(documentPath);
    tap("Wardlock");
    EXPECT_EQ(offer(), "The settings have disappeared. Their last good version can be restored");
    restore();
    EXPECT_TRUE(hasRow("Ann"));
}

TEST_F(Recovery, IsNotOfferedWithoutAGoodVersion) {
    writeFile(documentPath, "no document");
    start();
    EXPECT_EQ(offer(), "");
}

TEST_F(Recovery, IsNotOfferedWhereTheDiskFails) {
    FaultyFileSystem files(platform::FileSystem::current());
    startWith({"Ann"});
    platform::FileSystem::setCurrent(&files);
    files.failEvery("readFile", std::errc::io_error);
    tap("Wardlock");
    EXPECT_EQ(offer(), "");
    quit();
    platform::FileSystem::setCurrent(nullptr);
}

TEST_F(Recovery, IsNotOfferedWhereOnlyTheDocumentCannotBeRead) {
    startWith({"Ann"});
    UnreadableDocument files(platform::FileSystem::current());
    platform::FileSystem::setCurrent(&files);
    tap("Wardlock");
    ASSERT_TRUE(History().lastReadable());
    EXPECT_EQ(offer(), "");
    quit();
    platform::FileSystem::setCurrent(nullptr);
}

TEST_F(Recovery, CanBeTakenBack) {
    startDamaged();
    tap("Wardlock");
    tap("Enabled");
    const std::string stump = readFile(documentPath);
    restore();
    undo();
    EXPECT_EQ(readFile(documentPath), stump);
    redo();
    EXPECT_EQ(readFile(documentPath), good());
}

TEST_F(Recovery, IsAnnouncedKeyByKey) {
    startDamaged();
    restore();
    EXPECT_EQ(announced, (Names{"kEnabled", "kPasscode", "kAccounts"}));
}

} // namespace
} // namespace wardlock::test
