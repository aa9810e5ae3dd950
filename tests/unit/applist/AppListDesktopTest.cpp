#include "platform/services/DeviceInformation.h"
#include "tests/support/AppListFixture.h"

#include <filesystem>
#include <fstream>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;

/// Entries of the desktop, seen from the user's own device root.
class AppListDesktop : public AppListFixture {
protected:
    AppListDesktop() { useOwnRoot(); }

    void writeTheme(const std::string& theme, std::string_view inherits, std::string_view folders) {
        writeDesktop("icons/" + theme + "/index.theme", "[Icon Theme]\nName=" + theme +
                                                            "\nInherits=" + std::string(inherits) + "\n" +
                                                            std::string(folders));
    }
    void chooseTheme(const std::string& theme) {
        const fs::path file = fs::path(std::getenv("XDG_CONFIG_HOME")) / "gtk-3.0/settings.ini";
        fs::create_directories(file.parent_path());
        std::ofstream(file) << "[Settings]\ngtk-icon-theme-name=" << theme << "\n";
    }
    std::string iconPath(std::string_view identifier, int size = 29) {
        const auto icon = list().iconOfSize(size, identifier);
        return icon ? fs::relative(icon->path(), dataFolder()).string() : "";
    }
};

constexpr const char* twoSizes = "Directories=32x32/apps,64x64/apps\n"
                                 "[32x32/apps]\nSize=32\nType=Threshold\n"
                                 "[64x64/apps]\nSize=64\nType=Fixed\n";

TEST_F(AppListDesktop, ListsTheEntriesThatMenusShow) {
    writeEntry("org.shown.desktop", "Name=Shown\n");
    writeEntry("vendor/tool.desktop", "Name=Tool\n");
    writeEntry("org.nodisplay.desktop", "Name=NoDisplay\nNoDisplay=true\n");
    writeEntry("org.hidden.desktop", "Name=Hidden\nHidden=true\n");
    writeEntry("org.elsewhere.desktop", "Name=Elsewhere\nOnlyShowIn=Other;\n");
    EXPECT_EQ(list().applications(), (platform::Dictionary{{"org.shown", "Shown"}, {"vendor-tool", "Tool"}}));
}

TEST_F(AppListDesktop, NamesApplicationsInTheUsersLanguage) {
    environment.set("LC_ALL", "de_DE.UTF-8");
    environment.set("LANGUAGE", "de");
    writeEntry("org.files.desktop", "Name=Files\nName[de]=Dateien\nName[fr]=Fichiers\n");
    EXPECT_EQ(nameOf("org.files"), "Dateien");
}

TEST_F(AppListDesktop, LeavesOutEntriesThatAreNotForThisDesktop) {
    environment.set("XDG_CURRENT_DESKTOP", "Ours:Base");
    writeEntry("org.any.desktop", "Name=Any\n");
    writeEntry("org.not.desktop", "Name=Not\nNotShowIn=Other;Base;\n");
    writeEntry("org.notelsewhere.desktop", "Name=Not elsewhere\nNotShowIn=Other;\n");
    writeEntry("org.only.desktop", "Name=Only\nOnlyShowIn=Base;\n");
    writeEntry("org.elsewhere.desktop", "Name=Elsewhere\nOnlyShowIn=Other;\n");
    EXPECT_EQ(list().applications(),
              (platform::Dictionary{
                  {"org.any", "Any"}, {"org.notelsewhere", "Not elsewhere"}, {"org.only", "Only"}}));
}

TEST_F(AppListDesktop, LeavesOutEntriesWhoseProgramIsNotInstalled) {
    writeEntry("org.there.desktop", "Name=There\nTryExec=true\n");
    writeEntry("org.gone.desktop", "Name=Gone\nTryExec=/no/such/program\n");
    writeEntry("org.lost.desktop", "Name=Lost\nTryExec=wardlock-no-such-program\n");
    EXPECT_EQ(list().applications(), (platform::Dictionary{{"org.there", "There"}}));
}

TEST_F(AppListDesktop, LeavesOutEntriesWithoutANameOrACommand) {
    writeEntry("org.nameless.desktop", "X-GNOME-FullName=Nameless\nGenericName=Generic\n");
    writeEntry("org.empty.desktop", "Name=\n");
    writeDesktop("applications/org.idle.desktop", "[Desktop Entry]\nType=Application\nName=Idle\n");
    writeDesktop("applications/org.blank.desktop", "[Desktop Entry]\nType=Application\nName=Blank\nExec=\n");
    writeDesktop("applications/org.bus.desktop",
                 "[Desktop Entry]\nType=Application\nName=Bus\nDBusActivatable=true\n");
    EXPECT_EQ(list().applications(), (platform::Dictionary{{"org.bus", "Bus"}}));
}

TEST_F(AppListDesktop, NamesApplicationsByTheirNameAndNoOtherKey) {
    writeEntry("org.files.desktop",
               "Name=Files\nX-GNOME-FullName=File Manager of the Desktop\nGenericName=Manager\n");
    EXPECT_EQ(nameOf("org.files"), "Files");
}

TEST_F(AppListDesktop, FallsBackFromACountrysLanguageToTheLanguageAndToTheNameItself) {
    environment.set("LC_ALL", "de_AT.UTF-8");
    environment.set("LANGUAGE", "de_AT:fr");
    writeEntry("org.country.desktop", "Name=Tomato\nName[de]=Tomate\nName[de_AT]=Paradeiser\n");
    writeEntry("org.language.desktop", "Name=Files\nName[de]=Dateien\nName[fr]=Fichiers\n");
    writeEntry("org.second.desktop", "Name=Clock\nName[fr]=Horloge\nName[it]=Orologio\n");
    writeEntry("org.none.desktop", "Name=Notes\nName[it]=Appunti\n");
    writeEntry("org.blank.desktop", "Name=Maps\nName[de]=\n");
    EXPECT_EQ(list().applications(), (platform::Dictionary{{"org.country", "Paradeiser"},
                                                           {"org.language", "Dateien"},
                                                           {"org.second", "Horloge"},
                                                           {"org.none", "Notes"},
                                                           {"org.blank", "Maps"}}));
}

/// The user's own folder of entries comes before the first of the system's, and that before the next.
class AppListDesktopFolders : public AppListDesktop {
protected:
    AppListDesktopFolders() { environment.set("XDG_DATA_DIRS", first() + ':' + second()); }

    std::string user() const { return std::getenv("XDG_DATA_HOME"); }
    std::string first() const { return folder() / "first"; }
    std::string second() const { return folder() / "second"; }
    static void writeEntryIn(const std::string& folder, const std::string& lines) {
        fs::create_directories(folder + "/applications");
        std::ofstream(folder + "/applications/org.a.desktop")
            << "[Desktop Entry]\nType=Application\nExec=true\n" + lines;
    }
};

TEST_F(AppListDesktopFolders, KeepTheOrderInWhichTheyAreNamed) {
    writeEntryIn(second(), "Name=Second\n");
    writeEntryIn(first(), "Name=First\n");
    EXPECT_EQ(list().applications(), (platform::Dictionary{{"org.a", "First"}}));
}

TEST_F(AppListDesktopFolders, FollowTheUsersOwn) {
    writeEntryIn(first(), "Name=First\n");
    writeEntryIn(user(), "Name=User\n");
    EXPECT_EQ(list().applications(), (platform::Dictionary{{"org.a", "User"}}));
}

TEST_F(AppListDesktopFolders, AreMaskedByAnEntryOfTheUserThatIsHidden) {
    writeEntryIn(first(), "Name=First\n");
    writeEntryIn(user(), "Name=User\nHidden=true\n");
    EXPECT_EQ(list().applications(), platform::Dictionary());
}

TEST_F(AppListDesktopFolders, AreMaskedByAnEntryOfTheUserThatMenusDoNotShow) {
    writeEntryIn(first(), "Name=First\n");
    writeEntryIn(user(), "Name=User\nNoDisplay=true\n");
    EXPECT_EQ(list().applications(), platform::Dictionary());
}

TEST_F(AppListDesktop, CountsWhenTheEnvironmentNamesTheUsersDeviceRoot) {
    writeEntry("org.a.desktop", "Name=Entry\n");
    environment.set("WARDLOCK_DEVICE_ROOT", fs::path(std::getenv("XDG_DATA_HOME")) / "wardlock/device");
    EXPECT_EQ(nameOf("org.a"), "Entry");
    environment.set("WARDLOCK_DEVICE_ROOT", root());
    EXPECT_EQ(nameOf("org.a"), std::nullopt);
}

TEST_F(AppListDesktop, SkipsBrokenEntriesAndKeepsTheOthers) {
    writeEntry("org.good.desktop", "Name=Good\n");
    writeDesktop("applications/garbage.desktop", "garbage");
    writeDesktop("applications/empty.desktop", "");
    writeDesktop("applications/link.desktop", "[Desktop Entry]\nType=Link\nURL=http://x\nName=Link\n");
    writeDesktop("applications/noexec.desktop",
                 "[Desktop Entry]\nType=Application\nName=No\nExec=/no/such/program\n");
    fs::create_symlink("nowhere.desktop", dataFolder() + "/applications/dangling.desktop");
    EXPECT_EQ(list().applications(), (platform::Dictionary{{"org.good", "Good"}}));
}

TEST_F(AppListDesktop, SkipsEntriesWithTooLongNames) {
    const std::string longest(1024, 'x');
    writeEntry("org.long.desktop", "Name=" + longest + "\n");
    writeEntry("org.longer.desktop", "Name=" + longest + "x\n");
    // Folders are part of the identifier.
    std::string folders;
    for (int i = 0; i < 5; ++i)
        folders += std::string(200, 'f') + '/';
    writeEntry(folders + std::string(19, 'i') + ".desktop", "Name=Fits\n");
    writeEntry(folders + std::string(20, 'i') + ".desktop", "Name=Does not\n");
    const platform::Dictionary found = list().applications();
    EXPECT_EQ(found.size(), 2U);
    EXPECT_EQ(nameOf("org.long"), longest);
    for (const auto& [identifier, name] : found)
        EXPECT_LE(identifier.size(), longest.size());
}

TEST_F(AppListDesktop, SearchesALimitedNumberOfFoldersOfATheme) {
    constexpr int most = 4096;
    std::string names = "Directories=";
    std::string groups;
    for (int i = 1; i <= most + 1; ++i) {
        names += std::to_string(i) + ',';
        groups += '[' + std::to_string(i) + "]\nSize=64\nType=Fixed\n";
    }
    writeTheme("hicolor", "", names + '\n' + groups);
    writeEntry("last.desktop", "Name=x\nIcon=last\n");
    writeEntry("beyond.desktop", "Name=x\nIcon=beyond\n");
    writeDesktop("icons/hicolor/" + std::to_string(most) + "/last.png", png(64));
    writeDesktop("icons/hicolor/" + std::to_string(most + 1) + "/beyond.png", png(64));
    EXPECT_EQ(iconPath("last"), "icons/hicolor/" + std::to_string(most) + "/last.png");
    EXPECT_EQ(iconPath("beyond"), "");
}

TEST_F(AppListDesktop, YieldsToAFolderOfTheSameIdentifier) {
    writeEntry("org.a.desktop", "Name=Entry\n");
    writeFile("/unused", "");
    const fs::path app = fs::path(std::getenv("XDG_DATA_HOME")) / "wardlock/device/Applications/A.app";
    fs::create_directories(app);
    std::ofstream(app / "Info.plist") << "<plist><dict><key>CFBundleIdentifier</key><string>org.a</string>"
                                         "<key>CFBundleName</key><string>Folder</string></dict></plist>";
    EXPECT_EQ(nameOf("org.a"), "Folder");
}

TEST_F(AppListDesktop, FindsIconsInTheThemeThenInInheritedThemesThenInTheLast) {
    chooseTheme("Mine");
    writeTheme("Mine", "Base", twoSizes);
    writeTheme("Base", "", twoSizes);
    writeTheme("hicolor", "", twoSizes);
    for (const char* name : {"one", "two", "three"})
        writeEntry(std::string(name) + ".desktop", "Name=x\nIcon=" + std::string(name) + "\n");
    writeDesktop("icons/Mine/64x64/apps/one.png", png(64));
    writeDesktop("icons/Base/64x64/apps/one.png", png(64));
    writeDesktop("icons/Base/64x64/apps/two.png", png(64));
    writeDesktop("icons/hicolor/64x64/apps/two.png", png(64));
    writeDesktop("icons/hicolor/64x64/apps/three.png", png(64));
    EXPECT_EQ(iconPath("one"), "icons/Mine/64x64/apps/one.png");
    EXPECT_EQ(iconPath("two"), "icons/Base/64x64/apps/two.png");
    EXPECT_EQ(iconPath("three"), "icons/hicolor/64x64/apps/three.png");
}

TEST_F(AppListDesktop, PrefersTheIconThatFitsThenAScalableThenALargerThenASmallerOne) {
    writeTheme("hicolor", "",
               "Directories=16x16/apps,32x32/apps,256x256/apps,scalable/apps\n"
               "[16x16/apps]\nSize=16\nType=Fixed\n[32x32/apps]\nSize=32\nType=Threshold\nThreshold=4\n"
               "[256x256/apps]\nSize=256\nType=Fixed\n"
               "[scalable/apps]\nSize=48\nMinSize=128\nMaxSize=512\nType=Scalable\n");
    platform::setScreenScale(1);
    writeEntry("a.desktop", "Name=x\nIcon=a\n");
    writeEntry("b.desktop", "Name=x\nIcon=b\n");
    writeEntry("c.desktop", "Name=x\nIcon=c\n");
    for (const char* folder : {"16x16", "32x32", "256x256"})
        writeDesktop("icons/hicolor/" + std::string(folder) + "/apps/a.png", png(8));
    writeDesktop("icons/hicolor/256x256/apps/b.png", png(8));
    writeDesktop("icons/hicolor/scalable/apps/b.svg", "<svg/>");
    writeDesktop("icons/hicolor/16x16/apps/c.png", png(8));
    writeDesktop("icons/hicolor/256x256/apps/c.png", png(8));
    EXPECT_EQ(iconPath("a"), "icons/hicolor/32x32/apps/a.png");
    EXPECT_EQ(iconPath("b"), "icons/hicolor/scalable/apps/b.svg");
    EXPECT_EQ(iconPath("c"), "icons/hicolor/256x256/apps/c.png");
}

TEST_F(AppListDesktop, TakesTheIconOfAScaledFolderForAScreenOfItsScale) {
    writeTheme("hicolor", "",
               "Directories=32x32/apps\nScaledDirectories=32x32@2/apps,32x32@3/apps\n"
               "[32x32/apps]\nSize=32\nType=Fixed\n"
               "[32x32@2/apps]\nSize=32\nScale=2\nType=Fixed\n"
               "[32x32@3/apps]\nSize=32\nScale=3\nType=Fixed\n");
    for (const char* name : {"all", "single"})
        writeEntry(std::string(name) + ".desktop", "Name=x\nIcon=" + std::string(name) + "\n");
    for (const char* folder : {"32x32", "32x32@2", "32x32@3"})
        writeDesktop("icons/hicolor/" + std::string(folder) + "/apps/all.png", png(8));
    writeDesktop("icons/hicolor/32x32@2/apps/single.png", png(8));
    for (const auto& [scale, expected] :
         {std::pair(1, "32x32"), std::pair(2, "32x32@2"), std::pair(3, "32x32@3")}) {
        platform::setScreenScale(scale);
        EXPECT_EQ(iconPath("all", 32), "icons/hicolor/" + std::string(expected) + "/apps/all.png");
    }
    EXPECT_EQ(iconPath("single", 32), "icons/hicolor/32x32@2/apps/single.png");
}

TEST_F(AppListDesktop, TakesIconsByPathAndFromFoldersWithoutATheme) {
    writeEntry("path.desktop", "Name=x\nIcon=" + dataFolder() + "/own.png\n");
    writeDesktop("own.png", png(58));
    writeEntry("plain.desktop", "Name=x\nIcon=plain\n");
    writeDesktop("pixmaps/plain.png", png(58));
    writeEntry("none.desktop", "Name=x\nIcon=nowhere\n");
    writeEntry("without.desktop", "Name=x\n");
    writeEntry("climber.desktop", "Name=x\nIcon=../own\n");
    EXPECT_EQ(iconPath("path"), "own.png");
    EXPECT_EQ(iconPath("plain"), "pixmaps/plain.png");
    EXPECT_EQ(iconPath("none"), "");
    EXPECT_EQ(iconPath("without"), "");
    EXPECT_EQ(iconPath("climber"), "");
}

TEST_F(AppListDesktop, SurvivesThemesThatInheritEachOtherOrAreBroken) {
    chooseTheme("Ring");
    writeTheme("Ring", "Gnir,Ring,Missing,../../etc", twoSizes);
    writeTheme("Gnir", "Ring", "Directories=64x64/apps,none\n[64x64/apps]\nSize=-5\nScale=99999999999\n");
    writeEntry("a.desktop", "Name=x\nIcon=a\n");
    writeDesktop("icons/Gnir/64x64/apps/a.png", png(64));
    EXPECT_EQ(iconPath("a"), "icons/Gnir/64x64/apps/a.png");
}

} // namespace
} // namespace wardlock::test
