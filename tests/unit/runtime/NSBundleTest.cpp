#include "platform/runtime/NSBundle.h"

#include "tests/support/ModuleFixture.h"
#include "tests/support/modules/Greeting.h"

#include <filesystem>
#include <unistd.h>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;
using platform::Class;

constexpr const char* place = "/Library/PreferenceBundles/Greeter.bundle";
constexpr const char* entries = "<key>CFBundleIdentifier</key><string>com.example.greeter</string>"
                                "<key>CFBundleExecutable</key><string>Greeter</string>"
                                "<key>NSPrincipalClass</key><string>Greeter</string>";

class NSBundle : public ModuleFixture {
protected:
    std::shared_ptr<platform::NSBundle> greeterBundle() {
        putBundle(place, entries);
        putModule("greeter", std::string(place) + "/Greeter");
        return platform::NSBundle::bundleWithPath(place);
    }
    /// Empty when it is missing.
    static std::string identifierOf(const platform::NSBundle& bundle) {
        const auto text = platform::stringValue(bundle.infoDictionary().find("CFBundleIdentifier"));
        return std::string(text.value_or(""));
    }
    /// Why the bundle with these entries has no principal class.
    std::string reasonWith(std::string_view entries) {
        putBundle(place, entries);
        std::string reason;
        EXPECT_EQ(platform::NSBundle::bundleWithPath(place)->principalClass(reason), nullptr);
        return reason;
    }
    static testing::AssertionResult contains(const std::string& text, const std::string& part) {
        return text.find(part) != std::string::npos ? testing::AssertionSuccess()
                                                    : testing::AssertionFailure() << text;
    }
};

TEST_F(NSBundle, IsAFolderWithAnInfoDictionary) {
    const auto bundle = greeterBundle();
    ASSERT_NE(bundle, nullptr);
    EXPECT_EQ(bundle->bundlePath(), onDisk(place));
    EXPECT_EQ(identifierOf(*bundle), "com.example.greeter");
    EXPECT_EQ(platform::stringValue(bundle->infoDictionary().find("NSPrincipalClass")), "Greeter");
}

TEST_F(NSBundle, DoesNotExistWithoutAnInfoDictionary) {
    EXPECT_EQ(platform::NSBundle::bundleWithPath(place), nullptr);
    makeFolder(place);
    EXPECT_EQ(platform::NSBundle::bundleWithPath(place), nullptr);
    for (const char* noDictionary : {"", "not a list", "<plist><array/></plist>"}) {
        writeFile(std::string(place) + "/Info.plist", noDictionary);
        EXPECT_EQ(platform::NSBundle::bundleWithPath(place), nullptr) << noDictionary;
    }
}

TEST_F(NSBundle, LeavesADamagedInfoDictionaryAlone) {
    writeFile(std::string(place) + "/Info.plist", "not a list");
    (void)platform::NSBundle::bundleWithPath(place);
    EXPECT_FALSE(exists(std::string(place) + "/Info.plist.damaged"));
}

TEST_F(NSBundle, ResolvesALinkToItsFolder) {
    (void)greeterBundle();
    fs::create_symlink(onDisk(place), onDisk("/Library/Link.bundle"));
    EXPECT_EQ(platform::NSBundle::bundleWithPath("/Library/Link.bundle")->bundlePath(), onDisk(place));
}

TEST_F(NSBundle, FindsItsResourcesByNameAndType) {
    const auto bundle = greeterBundle();
    writeFile(std::string(place) + "/mail.png", "x");
    writeFile(std::string(place) + "/changelog", "x");
    writeFile(std::string(place) + "/a.b.txt", "x");
    writeFile(std::string(place) + "/en.lproj/Names.strings", "x");
    EXPECT_EQ(bundle->pathForResource("mail", "png"), onDisk(place) + "/mail.png");
    EXPECT_EQ(bundle->pathForResource("changelog", ""), onDisk(place) + "/changelog");
    EXPECT_EQ(bundle->pathForResource("a.b", "txt"), onDisk(place) + "/a.b.txt");
    EXPECT_EQ(bundle->pathForResource("en.lproj/Names", "strings"),
              onDisk(place) + "/en.lproj/Names.strings");
}

TEST_F(NSBundle, HasNoResourceWithoutAFile) {
    const auto bundle = greeterBundle();
    makeFolder(std::string(place) + "/folder.png");
    fs::create_symlink("nowhere", onDisk(place) + "/link.png");
    EXPECT_EQ(bundle->pathForResource("mail", "png"), std::nullopt);
    EXPECT_EQ(bundle->pathForResource("folder", "png"), std::nullopt);
    EXPECT_EQ(bundle->pathForResource("link", "png"), std::nullopt);
    EXPECT_EQ(bundle->pathForResource("", ""), std::nullopt);
    EXPECT_EQ(bundle->pathForResource(std::string_view("Greeter\0x", 9), ""), std::nullopt);
}

TEST_F(NSBundle, HasNoResourceOutsideItsFolder) {
    const auto bundle = greeterBundle();
    writeFile("/Library/PreferenceBundles/secret.png", "x");
    EXPECT_EQ(bundle->pathForResource("../secret", "png"), std::nullopt);
    EXPECT_EQ(bundle->pathForResource("x/../../secret", "png"), std::nullopt);
    EXPECT_EQ(bundle->pathForResource("x", "/../../secret.png"), std::nullopt);
    EXPECT_EQ(bundle->pathForResource("..", ""), std::nullopt);
    EXPECT_EQ(bundle->pathForResource(onDisk("/Library/PreferenceBundles/secret"), "png"), std::nullopt);
}

TEST_F(NSBundle, OpensItsModuleForThePrincipalClass) {
    std::string reason = "before";
    const Class* found = greeterBundle()->principalClass(reason);
    ASSERT_NE(found, nullptr) << reason;
    EXPECT_EQ(reason, "");
    EXPECT_EQ(found->name(), "Greeter");
    EXPECT_EQ(platform::objc_getClass("Greeter"), found) << "the bundle was unloaded with its object";
}

TEST_F(NSBundle, ReturnsTheSamePrincipalClassAgain) {
    std::string reason;
    const auto bundle = greeterBundle();
    EXPECT_EQ(bundle->principalClass(reason), bundle->principalClass(reason));
}

TEST_F(NSBundle, FindsThePrincipalClassInItsOwnModule) {
    std::string reason;
    const Class* greeter = greeterBundle()->principalClass(reason);
    putBundle("/Library/Rival.bundle", entries);
    putModule("rival", "/Library/Rival.bundle/Greeter");
    const Class* rival = platform::NSBundle::bundleWithPath("/Library/Rival.bundle")->principalClass(reason);
    ASSERT_NE(rival, nullptr) << reason;
    EXPECT_NE(rival, greeter);
    EXPECT_EQ(platform::NSBundle::bundleWithPath(place)->principalClass(reason), greeter);
}

TEST_F(NSBundle, ReportsWhyThePrincipalClassIsMissing) {
    EXPECT_TRUE(contains(reasonWith(""), "names no module in CFBundleExecutable"));
    EXPECT_TRUE(
        contains(reasonWith("<key>CFBundleExecutable</key><string>../x</string>"), "names no module"));
    EXPECT_TRUE(contains(reasonWith("<key>CFBundleExecutable</key><string>Greeter</string>"),
                         "names no class in NSPrincipalClass"));
    EXPECT_TRUE(contains(reasonWith(entries), onDisk(place) + "/Greeter: No such file or directory"));
    writeFile(std::string(place) + "/Greeter", "no library");
    EXPECT_TRUE(contains(reasonWith(entries), onDisk(place) + "/Greeter"));
}

TEST_F(NSBundle, ReportsAClassThatTheModuleLacks) {
    putModule("rival", std::string(place) + "/Greeter");
    EXPECT_TRUE(contains(reasonWith("<key>CFBundleExecutable</key><string>Greeter</string>"
                                    "<key>NSPrincipalClass</key><string>Stranger</string>"),
                         "has no class Stranger"));
}

TEST_F(NSBundle, ReportsAnUntrustedModule) {
    (void)greeterBundle();
    setMode(std::string(place) + "/Greeter", 0777);
    EXPECT_TRUE(contains(reasonWith(entries), "can be changed by every user"));
}

TEST_F(NSBundle, IsFoundForAnObjectByTheModuleOfItsClass) {
    std::string reason;
    const Class* found = greeterBundle()->principalClass(reason);
    ASSERT_NE(found, nullptr) << reason;
    const auto object = found->create();
    EXPECT_EQ(identifierOf(*platform::NSBundle::bundleForObject(*object)), "com.example.greeter");
    EXPECT_EQ(platform::NSBundle::bundleForObject(*object)->bundlePath(), onDisk(place));
    const platform::Object& same = *object;
    EXPECT_EQ(platform::NSBundle::bundleForClass(typeid(same))->bundlePath(), onDisk(place));
}

TEST_F(NSBundle, IsTheNearestFolderWithAnInfoDictionaryAboveAModule) {
    putBundle(place, "<key>CFBundleIdentifier</key><string>outer</string>"
                     "<key>CFBundleExecutable</key><string>Contents/bin/Greeter</string>"
                     "<key>NSPrincipalClass</key><string>Greeter</string>");
    putModule("greeter", std::string(place) + "/Contents/bin/Greeter");
    std::string reason;
    const Class* found = platform::NSBundle::bundleWithPath(place)->principalClass(reason);
    ASSERT_NE(found, nullptr) << reason;
    const auto object = found->create();
    EXPECT_EQ(identifierOf(*platform::NSBundle::bundleForObject(*object)), "outer");
    writeFile(std::string(place) + "/Contents/Info.plist",
              "<dict><key>CFBundleIdentifier</key><string>inner</string></dict>");
    EXPECT_EQ(identifierOf(*platform::NSBundle::bundleForObject(*object)), "inner");
}

TEST_F(NSBundle, IsTheFolderOfTheProgramForAClassOutsideAnyBundle) {
    class Local : public platform::Object {};
    const auto bundle = platform::NSBundle::bundleForClass(typeid(Local));
    EXPECT_EQ(bundle->bundlePath(), fs::read_symlink("/proc/self/exe").parent_path().string());
    EXPECT_TRUE(bundle->infoDictionary().empty());
    EXPECT_EQ(identifierOf(*bundle), "");
}

} // namespace
} // namespace wardlock::test
