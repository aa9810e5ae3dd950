#include "platform/plist/PropertyListFile.h"
#include "settings/Accounts.h"
#include "settings/Keys.h"
#include "tests/support/SettingsApplicationFixture.h"
#include "tests/support/doubles/FaultyFileSystem.h"

#include <gtest/gtest.h>

namespace wardlock::test {
namespace {

constexpr const char* noSpace = "Your change could not be saved: no space left on device.";

/// Changes that the pages cannot store.
class UnsavedChanges : public SettingsApplicationFixture {
protected:
    UnsavedChanges() { platform::FileSystem::setCurrent(&files_); }
    ~UnsavedChanges() override {
        quit();
        platform::FileSystem::setCurrent(nullptr);
    }

    void installApplication(const std::string& identifier) const {
        writeFile("/Applications/" + identifier + ".app/Info.plist",
                  "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>" + identifier +
                      "</string></dict></plist>");
    }
    void openWardlock() {
        start();
        tap("Wardlock");
    }
    void openAccount() {
        openWardlock();
        tap("Default");
    }
    void fillDisk() { files_.fillDiskFrom(files_.calls() + 1); }
    void clearDisk() { files_.fillDiskFrom(std::size_t(-1)); }
    void refuseEvery(const std::string& function, std::errc error) { files_.failEvery(function, error); }
    const std::string& notice() { return settings().screen().notice(); }
    std::string keypadStatus() {
        const auto overlay = settings().screen().overlay();
        return overlay ? overlay->keypad->shownText() : "no keypad";
    }

private:
    FaultyFileSystem files_{platform::FileSystem::current()};
};

/// Notes what a front end is notified of.
struct UnsavedObserver : shell::ScreenObserver {
    void changeNotSaved(const std::string& reason) override { reasons.push_back(reason); }
    void noticeChanged() override { ++notices; }
    std::vector<std::string> reasons;
    int notices = 0;
};

TEST_F(UnsavedChanges, AreReportedAndTheSwitchShowsWhatIsStored) {
    openWardlock();
    fillDisk();
    tap("Enabled");
    EXPECT_EQ(notice(), noSpace);
    EXPECT_TRUE(row("Enabled").isOn());
    clearDisk();
    settings().dismissNotice();
    tap("Enabled");
    EXPECT_EQ(notice(), "");
    EXPECT_FALSE(row("Enabled").isOn());
    EXPECT_EQ(*document().find(kEnabled), platform::Value(false));
}

TEST_F(UnsavedChanges, AreReportedAndAnAccountsSwitchShowsWhatIsStored) {
    openAccount();
    refuseEvery("create", std::errc::read_only_file_system);
    tap("Siri");
    EXPECT_EQ(notice(), "Your change could not be saved: read-only file system.");
    EXPECT_FALSE(row("Siri").isOn());
    EXPECT_EQ(page().title(), "Default");
}

TEST_F(UnsavedChanges, AreReportedAndTheFieldShowsWhatIsStored) {
    openAccount();
    type("Account Name", "Tom");
    fillDisk();
    settings().page().endEditing();
    EXPECT_EQ(notice(), noSpace);
    EXPECT_EQ(row("Account Name").text, "Default");
}

TEST_F(UnsavedChanges, LeaveThePasscodeUnset) {
    openWardlock();
    tap("Passcode");
    fillDisk();
    press("1234");
    clock.step(1);
    EXPECT_EQ(notice(), noSpace);
    clearDisk();
    tap("Passcode");
    EXPECT_EQ(keypadStatus(), "Enter New Passcode");
}

TEST_F(UnsavedChanges, LeaveNoRowOfANewAccount) {
    openWardlock();
    EXPECT_TRUE(settings().page().tapBarButton());
    EXPECT_TRUE(settings().sheets().typeIntoAlert(0, "Tom"));
    fillDisk();
    chooseInAlert("Create");
    EXPECT_EQ(notice(), noSpace);
    EXPECT_FALSE(hasRow("Tom"));
}

TEST_F(UnsavedChanges, LeaveADeletedAccountInTheList) {
    openAccount();
    tap("Delete Account");
    fillDisk();
    chooseInAlert("Delete");
    EXPECT_EQ(notice(), noSpace);
    EXPECT_EQ(page().title(), "Wardlock");
    EXPECT_TRUE(hasRow("Default"));
}

TEST_F(UnsavedChanges, AreReportedAndThePickerShowsWhatIsStored) {
    installApplication("com.example.one");
    openAccount();
    tap("Apps");
    const auto shown = page().table()->show({0, 0});
    ASSERT_TRUE(shown);
    const bool before = shown->isOn();
    fillDisk();
    EXPECT_TRUE(settings().page().flipTableSwitch({0, 0}));
    EXPECT_EQ(notice(), noSpace);
    EXPECT_EQ(page().table()->show({0, 0})->isOn(), before);
}

TEST_F(UnsavedChanges, AreReportedWhereThereIsNoListOfAccounts) {
    openWardlock();
    EXPECT_TRUE(settings().page().tapBarButton());
    EXPECT_TRUE(settings().sheets().typeIntoAlert(0, "Tom"));
    writeDocument(platform::Dictionary{{kEnabled, true}});
    chooseInAlert("Create");
    EXPECT_EQ(notice(), "Your change could not be saved: there is no list of accounts.");
}

TEST_F(UnsavedChanges, GiveTheReasonOfADocumentThatCannotBeRead) {
    openAccount();
    refuseEvery("readFile", std::errc::io_error);
    tap("Siri");
    EXPECT_EQ(notice(), "Your change could not be saved: input/output error.");
}

TEST_F(UnsavedChanges, AreReportedOnceForAsManyAsHaveTheSameReason) {
    openWardlock();
    fillDisk();
    UnsavedObserver observer;
    const auto observing = settings().observe(observer);
    tap("Enabled");
    tap("Enabled");
    EXPECT_EQ(notice(), noSpace);
    EXPECT_EQ(observer.reasons,
              (std::vector<std::string>{"no space left on device", "no space left on device"}));
    EXPECT_EQ(observer.notices, 2);
}

TEST_F(UnsavedChanges, DoNotReplaceANoticeThatHasNotBeenDismissed) {
    start();
    writeDocument(documentOf({"Ann", "Tom"}));
    tap("Wardlock");
    tap("Tom");
    changeElsewhere(documentOf({"Ann"}));
    const std::string removed = notice();
    fillDisk();
    tap("Enabled");
    EXPECT_EQ(notice(), removed + ' ' + noSpace);
}

TEST_F(UnsavedChanges, KeepSettingsFromClosingOverTypedText) {
    openAccount();
    type("Account Name", "Tom");
    fillDisk();
    EXPECT_FALSE(settings().storeTypedText());
    EXPECT_EQ(notice(), noSpace);
    EXPECT_TRUE(settings().storeTypedText()) << "nothing is being typed";
}

TEST_F(UnsavedChanges, AreNotSeenWhereTypedTextIsStored) {
    openAccount();
    type("Account Name", "Tom");
    EXPECT_TRUE(settings().storeTypedText());
    EXPECT_EQ(notice(), "");
    EXPECT_EQ(Accounts::onDisk().name(0), "Tom");
}

} // namespace
} // namespace wardlock::test
