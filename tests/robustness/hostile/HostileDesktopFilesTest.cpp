// Desktop entries, icon themes and icons that are made to delay, exhaust or mislead the process that lists
// the applications.

#include "tests/support/AppListFixture.h"

#include <filesystem>
#include <fstream>
#include <functional>
#include <sys/stat.h>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;

struct Bomb {
    const char* name;
    std::function<void(const std::string& path)> plant;
};

/// In the place of a file.
const std::vector<Bomb>& bombs() {
    static const std::vector<Bomb> all{
        {"pipe", [](const std::string& path) { ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0); }},
        {"zeros", [](const std::string& path) { fs::create_symlink("/dev/zero", path); }},
        {"terminal", [](const std::string& path) { fs::create_symlink("/dev/tty", path); }},
        {"folder", [](const std::string& path) { fs::create_directory(path); }},
        {"circle", [](const std::string& path) { fs::create_symlink(path, path); }},
        {"terabyte",
         [](const std::string& path) {
             std::ofstream(path) << "[Desktop Entry]\nType=Application\nExec=true\nName=Large\n";
             fs::resize_file(path, std::uintmax_t{1} << 40);
         }},
    };
    return all;
}

class HostileDesktopFiles : public AppListFixture {
protected:
    HostileDesktopFiles() {
        useOwnRoot();
        writeEntry("org.good.desktop", "Name=Good\nIcon=good\n");
    }

    std::string entries() const { return dataFolder() + "/applications/"; }
    void expectOnlyTheGoodOne() {
        EXPECT_EQ(list().applications(), (platform::Dictionary{{"org.good", "Good"}}));
    }
    void writeTheme(const std::string& folders) const {
        writeDesktop("icons/hicolor/index.theme", "[Icon Theme]\nName=hicolor\nDirectories=" + folders);
    }
    static constexpr const char* oneFolder = "64x64/apps\n[64x64/apps]\nSize=64\nType=Fixed\n";
};

TEST_F(HostileDesktopFiles, ReplaceEntriesAndAreLeftOut) {
    for (const Bomb& bomb : bombs())
        bomb.plant(entries() + bomb.name + ".desktop");
    expectOnlyTheGoodOne();
}

TEST_F(HostileDesktopFiles, DoNotTrapTheSearchInACircleOfFolders) {
    fs::create_directory_symlink(".", entries() + "again");
    fs::create_directory_symlink("..", entries() + "above");
    fs::create_directory_symlink("/", entries() + "everything");
    const platform::Dictionary found = list().applications();
    EXPECT_NE(found.find("org.good"), nullptr);
    EXPECT_LE(found.size(), 4000U);
}

TEST_F(HostileDesktopFiles, AreCutAtTheLimitOfEntries) {
    for (int i = 0; i < 4001; ++i)
        fs::create_symlink("org.good.desktop", entries() + "z" + std::to_string(i) + ".desktop");
    EXPECT_EQ(list().applications().size(), 4000U);
}

TEST_F(HostileDesktopFiles, ReplaceAThemesIndexAndLeaveTheOtherFolders) {
    writeDesktop("pixmaps/good.png", png(58));
    fs::create_directories(dataFolder() + "/icons/hicolor");
    // Themes are read once in a process.
    for (const Bomb& bomb : bombs()) {
        const std::string name = std::string("theme-") + bomb.name;
        fs::create_directories(dataFolder() + "/icons/" + name);
        bomb.plant(dataFolder() + "/icons/" + name + "/index.theme");
    }
    writeDesktop("icons/hicolor/index.theme",
                 std::string("[Icon Theme]\nName=hicolor\nInherits=theme-pipe,theme-zeros,"
                             "theme-terminal,theme-folder,theme-circle,theme-terabyte\n"
                             "Directories=") +
                     oneFolder);
    EXPECT_EQ(iconOf("org.good"), "good.png");
}

TEST_F(HostileDesktopFiles, ReplaceIconsAndAreNotShown) {
    writeTheme(oneFolder);
    fs::create_directories(dataFolder() + "/icons/hicolor/64x64/apps");
    for (const Bomb& bomb : bombs()) {
        bomb.plant(dataFolder() + "/icons/hicolor/64x64/apps/" + bomb.name + ".png");
        const std::string path = dataFolder() + "/" + bomb.name;
        bomb.plant(path);
        writeEntry(std::string("themed-") + bomb.name + ".desktop",
                   std::string("Name=x\nIcon=") + bomb.name + "\n");
        writeEntry(std::string("path-") + bomb.name + ".desktop", "Name=x\nIcon=" + path + "\n");
    }
    for (const Bomb& bomb : bombs())
        for (const char* kind : {"themed-", "path-"})
            EXPECT_EQ(iconOf(std::string(kind) + bomb.name), "") << kind << bomb.name;
}

TEST_F(HostileDesktopFiles, NameFoldersOutsideAThemeAndAreNotFollowed) {
    writeDesktop("private/good.png", png(58));
    writeTheme("../../private," + dataFolder() + "/private\n[../../private]\nSize=58\nType=Fixed\n[" +
               dataFolder() + "/private]\nSize=58\nType=Fixed\n");
    EXPECT_EQ(iconOf("org.good"), "");
}

} // namespace
} // namespace wardlock::test
