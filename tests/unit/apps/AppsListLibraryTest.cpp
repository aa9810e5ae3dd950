#include "apps/AppsListController.h"
#include "platform/runtime/DynamicLibrary.h"
#include "tests/support/BuildPaths.h"
#include "tests/unit/apps/PickerFixture.h"

#include <filesystem>

namespace wardlock::test {
namespace {

/// The picker over the AppList library of this build, at its place on the device.
class AppsListLibrary : public PickerFixture {
protected:
    AppsListLibrary() {
        list.reset();
        restrict({});
        writeFile("/Applications/A.app/Info.plist",
                  "<plist><dict><key>CFBundleIdentifier</key><string>org.a</string>"
                  "<key>CFBundleDisplayName</key><string>Alpha</string></dict></plist>");
    }

    void installLibrary() {
        std::filesystem::create_symlink(appListModule(), onDisk(platform::appListLibraryPath));
    }
    static bool isRegistered() { return platform::objc_getClass("ALApplicationList") != nullptr; }
};

TEST_F(AppsListLibrary, ListsTheDevicesApplications) {
    installLibrary();
    EXPECT_EQ(rows(*open()), (Identifiers{"org.a"}));
}

TEST_F(AppsListLibrary, GivesAnEmptyListWhenItIsMissing) {
    const auto view = open();
    EXPECT_EQ(rows(*view), Identifiers());
    EXPECT_EQ(view->tableView()->numberOfRowsInSection(0), 0u);
}

TEST_F(AppsListLibrary, GivesAnEmptyListWhenItIsBroken) {
    writeFile(platform::appListLibraryPath, "no library");
    EXPECT_EQ(rows(*open()), Identifiers());
}

TEST_F(AppsListLibrary, GivesAnEmptyListWhenItsClassIsMissing) {
    std::filesystem::create_symlink(testModulesFolder() + "/greeter.so",
                                    onDisk(platform::appListLibraryPath));
    const auto view = open();
    EXPECT_EQ(rows(*view), Identifiers());
    EXPECT_EQ(view->tableView()->numberOfRowsInSection(0), 0u);
}

TEST_F(AppsListLibrary, GivesAnEmptyListWhenItsClassIsOfAnotherKind) {
    std::filesystem::create_symlink(testModulesFolder() + "/impostor.so",
                                    onDisk(platform::appListLibraryPath));
    const auto view = open();
    EXPECT_TRUE(isRegistered());
    EXPECT_EQ(rows(*view), Identifiers());
}

TEST_F(AppsListLibrary, IsClosedWithTheView) {
    installLibrary();
    auto view = open();
    EXPECT_TRUE(isRegistered());
    view = nullptr;
    EXPECT_FALSE(isRegistered());
}

TEST_F(AppsListLibrary, StaysOpenWhileOneViewReplacesAnother) {
    installLibrary();
    const auto page = std::make_shared<AppsListController>();
    page->viewWillAppear(false);
    page->viewWillAppear(false);
    EXPECT_TRUE(isRegistered());
    auto& view = dynamic_cast<AppsListView&>(*page->view());
    EXPECT_EQ(rows(view), (Identifiers{"org.a"}));
    EXPECT_EQ(cell(view, 0)->textLabel().text(), "Alpha");
}

TEST_F(AppsListLibrary, IsFoundLaterWhenThePageIsShownAgain) {
    EXPECT_EQ(rows(*open()), Identifiers());
    installLibrary();
    EXPECT_EQ(rows(*open()), (Identifiers{"org.a"}));
}

TEST_F(AppsListLibrary, IsClosedEvenWhenTheAccountIsGoneLater) {
    installLibrary();
    auto view = open();
    SelectedIndex = 5;
    view = nullptr;
    EXPECT_FALSE(isRegistered());
}

} // namespace
} // namespace wardlock::test
