#include "platform/services/DeviceInformation.h"
#include "tests/support/AppListFixture.h"

#include <filesystem>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* svg = "<?xml version=\"1.0\"?><svg xmlns=\"http://www.w3.org/2000/svg\"/>";

class AppListIcon : public AppListFixture {
protected:
    AppListIcon() { platform::setScreenScale(2); }

    void installWithIcon(std::string_view icon) {
        install("/Applications/A.app", "org.a", "A",
                "<key>CFBundleIconFile</key><string>" + std::string(icon) + "</string>");
    }
    void writeIcon(const std::string& name, std::string_view bytes) {
        writeFile("/Applications/A.app/" + name, bytes);
    }
};

TEST_F(AppListIcon, IsTheSmallestThatFillsTheScreensPixels) {
    installWithIcon("App");
    writeIcon("App.png", png(29));
    writeIcon("App@2x.png", png(58));
    writeIcon("App@3x.png", png(87));
    EXPECT_EQ(iconOf("org.a", 29), "App@2x.png");
    EXPECT_EQ(iconOf("org.a", 14), "App.png");
    EXPECT_EQ(iconOf("org.a", 30), "App@3x.png");
    EXPECT_EQ(iconOf("org.a", 200), "App@3x.png");
}

TEST_F(AppListIcon, FollowsTheScreensScale) {
    installWithIcon("App.png");
    writeIcon("App.png", png(29));
    writeIcon("App@3x.png", png(87));
    platform::setScreenScale(1);
    EXPECT_EQ(iconOf("org.a"), "App.png");
    platform::setScreenScale(3);
    EXPECT_EQ(iconOf("org.a"), "App@3x.png");
}

TEST_F(AppListIcon, IsNamedByAnyOfTheKeys) {
    install("/Applications/A.app", "org.a", "A",
            "<key>CFBundleIcons</key><dict><key>CFBundlePrimaryIcon</key><dict><key>CFBundleIconFiles</key>"
            "<array><string>Primary</string></array></dict></dict>");
    writeIcon("Primary60x60@2x.png", png(120));
    writeIcon("Primary.png", png(60));
    install("/Applications/B.app", "org.b", "B",
            "<key>CFBundleIconFiles</key><array><integer>1</integer><string>Files.jpg</string></array>");
    writeFile("/Applications/B.app/Files.jpg", "\xff\xd8\xff\xe0");
    install("/Applications/C.app", "org.c", "C");
    writeFile("/Applications/C.app/Icon@2x~iphone.png", png(114));
    install("/Applications/D.app", "org.d", "D", "<key>CFBundleIconFile</key><string>Drawn.svg</string>");
    writeFile("/Applications/D.app/Drawn.svg", svg);
    EXPECT_EQ(iconOf("org.a"), "Primary.png");
    EXPECT_EQ(iconOf("org.b"), "Files.jpg");
    EXPECT_EQ(iconOf("org.c"), "Icon@2x~iphone.png");
    EXPECT_EQ(iconOf("org.d"), "Drawn.svg");
}

TEST_F(AppListIcon, HasANameOfLimitedLength) {
    const std::string file = "App.png";
    std::string longest = file;
    while (longest.size() + 2 <= 1024)
        longest.insert(0, "./");
    writeIcon(file, png(29));
    installWithIcon(longest);
    EXPECT_EQ(iconOf("org.a"), file);
    for (const char* key : {"CFBundleIconFile", "CFBundleIconFiles"}) {
        const std::string name = "<string>.//" + longest + "</string>";
        const bool isList = std::string_view(key) == "CFBundleIconFiles";
        install("/Applications/B.app", "org.b", key,
                "<key>" + std::string(key) + "</key>" + (isList ? "<array>" + name + "</array>" : name));
        writeFile("/Applications/B.app/App.png", png(29));
        list().applications();
        EXPECT_EQ(iconOf("org.b"), "") << key;
    }
}

TEST_F(AppListIcon, HasALimitedNumberOfNames) {
    const auto installWith = [this](int names) {
        std::string all;
        for (int i = 1; i < names; ++i)
            all += "<string>none" + std::to_string(i) + "</string>";
        install("/Applications/A.app", "org.a", std::to_string(names),
                "<key>CFBundleIconFiles</key><array>" + all + "<string>Last.png</string></array>");
        writeIcon("Last.png", png(29));
        list().applications();
        return iconOf("org.a");
    };
    EXPECT_EQ(installWith(32), "Last.png");
    EXPECT_EQ(installWith(33), "");
}

TEST_F(AppListIcon, IsRefusedOutsideTheFolder) {
    writeFile("/secret.png", png(58));
    for (const std::string name : {"../../secret.png", "link.png", "folder/secret.png"}) {
        installWithIcon(name);
        fs::remove(onDisk("/Applications/A.app/link.png"));
        fs::create_symlink(onDisk("/secret.png"), onDisk("/Applications/A.app/link.png"));
        fs::remove(onDisk("/Applications/A.app/folder"));
        fs::create_directory_symlink(root(), onDisk("/Applications/A.app/folder"));
        list().applications();
        EXPECT_EQ(iconOf("org.a"), "") << name;
    }
    installWithIcon(onDisk("/secret.png"));
    list().applications();
    EXPECT_EQ(iconOf("org.a"), "");
}

TEST_F(AppListIcon, IsFoundBehindALinkInsideTheFolder) {
    installWithIcon("link.png");
    writeIcon("images/real.png", png(58));
    fs::create_symlink("images/real.png", onDisk("/Applications/A.app/link.png"));
    EXPECT_EQ(iconOf("org.a"), "real.png");
}

TEST_F(AppListIcon, IsRefusedWhenItCannotBeShown) {
    const std::string deviceForm = std::string("\x89PNG\r\n\x1a\n\0\0\0\x04"
                                               "CgBI",
                                               16) +
                                   std::string(32, '\0');
    for (const std::string& bytes : {png(4000), png(0), deviceForm, std::string("garbage"), std::string(),
                                     png(58).substr(0, 20), png(58) + std::string(3u << 20, '\0')}) {
        installWithIcon("App.png");
        writeIcon("App.png", bytes);
        fs::remove(onDisk("/Applications/A.app/Info.plist"));
        installWithIcon("App.png");
        list().applications();
        EXPECT_EQ(iconOf("org.a"), "");
        fs::remove_all(onDisk("/Applications/A.app"));
        list().applications();
    }
}

TEST_F(AppListIcon, IsAbsentForAMissingApplicationAndAnInvalidSize) {
    installWithIcon("App.png");
    writeIcon("App.png", png(29));
    EXPECT_EQ(list().iconOfSize(29, "org.none"), nullptr);
    EXPECT_EQ(list().iconOfSize(29, ""), nullptr);
    EXPECT_EQ(list().iconOfSize(0, "org.a"), nullptr);
    EXPECT_EQ(list().iconOfSize(-1, "org.a"), nullptr);
}

TEST_F(AppListIcon, IsSearchedForWhenItsPathIsRequested) {
    installWithIcon("App.png");
    const auto icon = list().iconOfSize(29, "org.a");
    ASSERT_NE(icon, nullptr);
    writeIcon("App.png", png(29));
    EXPECT_FALSE(icon->isEmpty());
    EXPECT_EQ(fs::path(icon->path()).filename(), "App.png");
}

TEST_F(AppListIcon, IsEmptyWhereTheApplicationHasNone) {
    installWithIcon("App.png");
    const auto icon = list().iconOfSize(29, "org.a");
    ASSERT_NE(icon, nullptr);
    EXPECT_TRUE(icon->isEmpty());
}

TEST_F(AppListIcon, IsKeptUntilItsApplicationChanges) {
    installWithIcon("App.png");
    writeIcon("App.png", png(29));
    const auto first = list().iconOfSize(29, "org.a");
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(list().iconOfSize(29, "org.a"), first);
    list().applications();
    EXPECT_EQ(list().iconOfSize(29, "org.a"), first);
    installWithIcon("Other.png");
    writeIcon("Other.png", png(29));
    list().applications();
    EXPECT_EQ(iconOf("org.a"), "Other.png");
}

} // namespace
} // namespace wardlock::test
