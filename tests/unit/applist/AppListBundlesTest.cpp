#include "tests/support/AppListFixture.h"

#include <filesystem>
#include <sys/stat.h>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;

class AppListBundle : public AppListFixture {};

TEST_F(AppListBundle, IsFoundInTheDevicesThreePlaces) {
    install("/Applications/A.app", "org.a", "A");
    install("/var/mobile/Applications/1/B.app", "org.b", "B");
    install("/var/containers/Bundle/Application/2/C.app", "org.c", "C");
    EXPECT_EQ(list().applications(), (platform::Dictionary{{"org.a", "A"}, {"org.b", "B"}, {"org.c", "C"}}));
}

TEST_F(AppListBundle, IsAbsentOnAnEmptyDevice) {
    EXPECT_TRUE(list().applications().empty());
    fs::remove_all(root());
    EXPECT_TRUE(list().applications().empty());
}

TEST_F(AppListBundle, IsNamedByDisplayNameThenBundleNameThenFolder) {
    install("/Applications/A.app", "org.a", "Shown", "<key>CFBundleName</key><string>Plain</string>");
    install("/Applications/B.app", "org.b", "", "<key>CFBundleName</key><string>Plain</string>");
    install("/Applications/Folder Name.app", "org.c", "");
    EXPECT_EQ(nameOf("org.a"), "Shown");
    EXPECT_EQ(nameOf("org.b"), "Plain");
    EXPECT_EQ(nameOf("org.c"), "Folder Name");
}

TEST_F(AppListBundle, MayHaveABinaryList) {
    // {"CFBundleIdentifier": "org.b", "CFBundleName": "Binary"}
    writeFile("/Applications/B.app/Info.plist",
              std::string("bplist00\xd2\x01\x02\x03\x04_\x10\x12"
                          "CFBundleIdentifier\\CFBundleNameUorg.bVBinary\x08\x0d\x22\x2f\x35"
                          "\0\0\0\0\0\0\x01\x01\0\0\0\0\0\0\0\x05\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\x3c",
                          8 + 5 + 21 + 13 + 6 + 7 + 5 + 32));
    EXPECT_EQ(nameOf("org.b"), "Binary");
}

TEST_F(AppListBundle, IsSkippedAloneWhenItIsBroken) {
    install("/Applications/Good.app", "org.good", "Good");
    makeFolder("/Applications/NoList.app");
    writeFile("/Applications/NoFolder.app", "x");
    writeFile("/Applications/Garbage.app/Info.plist", "garbage");
    writeFile("/Applications/Empty.app/Info.plist", "");
    writeFile("/Applications/Array.app/Info.plist", "<plist><array/></plist>");
    writeFile("/Applications/NoIdentifier.app/Info.plist", "<plist><dict/></plist>");
    install("/Applications/EmptyIdentifier.app", "", "x");
    writeFile("/Applications/Number.app/Info.plist",
              "<plist><dict><key>CFBundleIdentifier</key><integer>1</integer></dict></plist>");
    install("/Applications/Huge.app", "org.huge", std::string(2u << 20, 'x'));
    install("/Applications/LongIdentifier.app", std::string(2000, 'x'), "x");
    install("/Applications/Other", "org.other", "not an application's folder");
    makeFolder("/Applications/Pipe.app");
    ASSERT_EQ(mkfifo(onDisk("/Applications/Pipe.app/Info.plist").c_str(), 0600), 0);
    makeFolder("/Applications/Loop.app");
    fs::create_symlink("Info.plist", onDisk("/Applications/Loop.app/Info.plist"));
    EXPECT_EQ(list().applications(), (platform::Dictionary{{"org.good", "Good"}}));
}

TEST_F(AppListBundle, CountsOnceWhenOthersShareItsIdentifier) {
    install("/Applications/B.app", "org.a", "Second");
    install("/Applications/A.app", "org.a", "First");
    install("/var/mobile/Applications/1/A.app", "org.a", "Third");
    EXPECT_EQ(list().applications(), (platform::Dictionary{{"org.a", "First"}}));
}

TEST_F(AppListBundle, IsNamedByIdentifierWhenTheFoldersNameIsNotUtf8) {
    install("/Applications/\xff\xfe.app", "org.a", "");
    EXPECT_EQ(nameOf("org.a"), "org.a");
}

TEST_F(AppListBundle, IsSearchedForInALimitedNumberOfContainers) {
    const std::string place = "/var/containers/Bundle/Application";
    install(place + "/0/A.app", "org.first", "First");
    for (int i = 1; i < 10000; ++i)
        fs::create_directory_symlink("nowhere", onDisk(place + "/" + std::to_string(i)));
    install(place + "/zzz/A.app", "org.last", "Last");
    EXPECT_EQ(list().applications(), (platform::Dictionary{{"org.first", "First"}}));
    fs::remove(onDisk(place + "/5000"));
    EXPECT_EQ(nameOf("org.last"), "Last") << "the last one that is looked at";
}

TEST_F(AppListBundle, HasANameOfLimitedLength) {
    const std::string longest(1024, 'x');
    const std::string tooLong = longest + 'x';
    install("/Applications/A.app", longest, longest);
    install("/Applications/B.app", tooLong, "B");
    install("/Applications/C.app", "org.c", tooLong, "<key>CFBundleName</key><string>Shorter</string>");
    install("/Applications/D.app", "org.d", tooLong);
    EXPECT_EQ(list().applications(),
              (platform::Dictionary{{longest, longest}, {"org.c", "Shorter"}, {"org.d", "D"}}));
}

TEST_F(AppListBundle, IsSearchedForAgainEachTime) {
    install("/Applications/A.app", "org.a", "A");
    EXPECT_EQ(nameOf("org.a"), "A");
    fs::remove_all(onDisk("/Applications/A.app"));
    install("/Applications/B.app", "org.b", "B");
    EXPECT_EQ(nameOf("org.a"), std::nullopt);
    EXPECT_EQ(nameOf("org.b"), "B");
}

TEST_F(AppListBundle, IsListedWithoutDesktopEntriesForANamedRoot) {
    writeEntry("org.desktop.desktop", "Name=Desktop\n");
    install("/Applications/A.app", "org.a", "A");
    EXPECT_EQ(list().applications(), (platform::Dictionary{{"org.a", "A"}}));
}

} // namespace
} // namespace wardlock::test
