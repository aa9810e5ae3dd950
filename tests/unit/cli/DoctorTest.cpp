#include "cli/doctor/FontFolders.h"
#include "cli/doctor/WebEngineFolders.h"
#include "cli/io/Json.h"
#include "tests/support/BusFixture.h"
#include "tests/unit/cli/CommandFixture.h"
#include "tests/unit/cli/ProtectedDocument.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <sstream>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;
using cli::Json;

constexpr const char* bundlePath = "/Library/PreferenceBundles/WardlockSettings.bundle";
constexpr const char* modulePath = "/Library/MobileSubstrate/DynamicLibraries/AppList.dylib";

/// A device root as `wardlock device init` leaves it, on a bus that replies.
class Doctor : public BusFixture {
protected:
    Doctor() {
        for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY"})
            environment.unset(variable);
        EXPECT_EQ(wardlockCommand({"device", "init", root()}).exitCode, 0);
    }

    /// What it found, by the name of the check.
    static std::map<std::string, Json> findings(int exitCode, const ProcessSetup& setup = {}) {
        const ProcessResult result = wardlockCommand({"doctor", "--json"}, setup);
        EXPECT_EQ(result.exitCode, exitCode) << result.output << result.errors;
        EXPECT_EQ(result.errors, "");
        std::map<std::string, Json> found;
        std::istringstream lines(result.output);
        for (std::string line; std::getline(lines, line);)
            if (const auto json = cli::parseJson(line))
                found[(*json)["check"]] = *json;
            else
                ADD_FAILURE() << line;
        return found;
    }
    static Json finding(const std::string& check, int exitCode, const ProcessSetup& setup = {}) {
        return findings(exitCode, setup)[check];
    }
    /// The check fails, reports this, and advises what to do.
    static void expectBroken(const std::string& check, const std::string& text,
                             const ProcessSetup& setup = {}) {
        const Json found = finding(check, 1, setup);
        EXPECT_EQ(found["works"], false) << found;
        EXPECT_EQ(found["needed"], true) << found;
        EXPECT_NE(found["text"].get<std::string>().find(text), std::string::npos) << found;
        EXPECT_FALSE(found["advice"].empty()) << found;
    }
    static std::string advice(const Json& found) { return found["advice"].dump(); }
    /// Everything below the private folder, with its size.
    std::vector<std::string> everything() const {
        std::vector<std::string> entries;
        for (const auto& entry : fs::recursive_directory_iterator(folder().path()))
            entries.push_back(entry.path().string() +
                              (entry.is_regular_file() ? std::to_string(entry.file_size()) : ""));
        std::ranges::sort(entries);
        return entries;
    }
};

TEST_F(Doctor, ReportsThatEverythingWorks) {
    const ProcessResult result = wardlockCommand({"doctor"});
    EXPECT_EQ(result.exitCode, 0) << result.output;
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.output.find("BROKEN"), std::string::npos) << result.output;
    EXPECT_TRUE(result.output.ends_with("\nNo problems found.\n")) << result.output;
}

TEST_F(Doctor, CountsWhatDoesNotWork) {
    removeFile(documentPath);
    const ProcessResult one = wardlockCommand({"doctor"});
    EXPECT_EQ(one.exitCode, 1);
    EXPECT_TRUE(one.output.ends_with("\n1 problem found.\n")) << one.output;
    EXPECT_NE(one.output.find("\nBROKEN  Document: "), std::string::npos) << one.output;
    EXPECT_NE(one.output.find("\n        -> Open Settings, or run wardlock status: "), std::string::npos)
        << one.output;
}

TEST_F(Doctor, ChangesAndCreatesNothing) {
    const auto before = everything();
    wardlockCommand({"doctor"});
    EXPECT_EQ(everything(), before);
}

TEST_F(Doctor, CreatesNothingInAnEmptyDeviceRoot) {
    fs::remove_all(root());
    const auto before = everything();
    ProcessSetup setup;
    setup.environment["DBUS_SESSION_BUS_ADDRESS"] = std::nullopt;
    EXPECT_EQ(wardlockCommand({"doctor"}, setup).exitCode, 1);
    EXPECT_EQ(everything(), before);
}

TEST_F(Doctor, ReportsTheDeviceRootAndItsSource) {
    EXPECT_EQ(finding("deviceRoot", 0)["text"], root() + " (from WARDLOCK_DEVICE_ROOT)");
}

TEST_F(Doctor, ReportsTheOptionThatNamesTheDeviceRoot) {
    environment.set("WARDLOCK_DEVICE_ROOT", "/nowhere");
    const std::string expected = root() + " (from --device-root)";
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"doctor", "--device-root", root()}, {"--device-root=" + root(), "doctor"}})
        EXPECT_NE(wardlockCommand(words).output.find(expected), std::string::npos);
}

TEST_F(Doctor, ReportsAMissingDeviceRoot) {
    fs::remove_all(root());
    expectBroken("deviceRoot", "does not exist");
}

TEST_F(Doctor, ReportsADeviceRootThatIsNotAFolder) {
    fs::remove_all(root());
    std::ofstream(root()) << "a file";
    expectBroken("deviceRoot", "is not a folder");
}

TEST_F(Doctor, ReportsAMissingFolderOfTheDocument) {
    fs::remove_all(onDisk("/var/mobile/Library"));
    expectBroken("deviceRoot", "lacks the folder " + onDisk("/var/mobile/Library/Preferences"));
}

TEST_F(Doctor, ReportsAFolderOfTheDeviceThatOthersCanChange) {
    for (const char* folder : {"/var/mobile/Library/Preferences", "/var", "/tmp", ""}) {
        fs::permissions(onDisk(folder), fs::perms(0777));
        expectBroken("deviceRoot", onDisk(folder) + " can be changed by every user");
        EXPECT_NE(advice(finding("deviceRoot", 1)).find("chmod go-w " + onDisk(folder)), std::string::npos);
        fs::permissions(onDisk(folder), fs::perms(0700));
    }
    EXPECT_EQ(finding("deviceRoot", 0)["advice"], Json::array());
}

TEST_F(Doctor, QuotesItsAdvisedCommandsForAShell) {
    const std::string odd = folder() / "a b;$(touch c)'\x1B[31m";
    fs::rename(root(), odd);
    environment.set("WARDLOCK_DEVICE_ROOT", odd);
    const fs::path own = odd + documentPath;
    fs::permissions(own, fs::perms(0644));
    const std::string advice = finding("document", 0)["advice"][0];
    const std::string advised = advice.substr(advice.find("chmod 600"));
    EXPECT_EQ(advised.find('\x1B'), std::string::npos);
    EXPECT_EQ(runProcess("/bin/bash", {"-c", advised}).exitCode, 0) << advised;
    EXPECT_EQ(fs::status(own).permissions(), fs::perms(0600));
}

TEST_F(Doctor, ReportsTheDocument) {
    const Json found = finding("document", 0);
    EXPECT_EQ(found["path"], onDisk(documentPath));
    EXPECT_EQ(found["size"], fs::file_size(onDisk(documentPath)));
    EXPECT_EQ(found["mode"], "600");
    EXPECT_EQ(found["accounts"], 1);
    EXPECT_EQ(found["enabledAccount"], nullptr);
    EXPECT_EQ(found["advice"], Json::array());
}

TEST_F(Doctor, ReportsTheEnabledAccount) {
    writeFile(documentPath, xml("<dict><key>kAccounts</key><array><dict/><dict><key>kAccountEnabled</key>"
                                "<true/><key>kAccountName</key><string>Tom</string></dict></array></dict>"));
    const Json found = finding("document", 0);
    EXPECT_EQ(found["accounts"], 2);
    EXPECT_EQ(found["enabledAccount"], 1);
    EXPECT_NE(found["text"].get<std::string>().find("2 accounts, enabled: Tom"), std::string::npos) << found;
}

TEST_F(Doctor, ReportsAnUnusableDocument) {
    writeFile(documentPath, "no list");
    expectBroken("document", "is not a property list");
    writeFile(documentPath, xml("<array/>"));
    expectBroken("document", "not a dictionary");
    writeFile(documentPath, xml("<dict><key>kAccounts</key><string/></dict>"));
    expectBroken("document", "\"kAccounts\" that is not a list");
    removeFile(documentPath);
    makeFolder(documentPath);
    expectBroken("document", "cannot be read");
    fs::remove(onDisk(documentPath));
    writeFile(documentPath,
              xml("<dict><key>k</key><string>" + std::string(16u << 20, 'x') + "</string></dict>"));
    expectBroken("document", "is larger than 16 MiB, the limit for a document");
    std::string booleans;
    for (int i = 0; i < 1'900'000; ++i)
        booleans += "<true/>";
    writeFile(documentPath, xml("<dict><key>k</key><array>" + booleans + "</array></dict>"));
    expectBroken("document",
                 "no change can be stored: a property list of more than 16 MiB cannot be read again");
}

TEST_F(Doctor, ReportsAPasscodeThatNoEntryMatchesAndHowToRemoveIt) {
    for (const char* wrong :
         {"<integer>1234</integer>", "<true/>", "<string>12345</string>", "<string>abcd</string>"}) {
        writeFile(documentPath, protectedDocument(wrong));
        expectBroken("document", "\"kPasscode\" that is not four digits");
        EXPECT_NE(advice(finding("document", 1)).find("kPasscode string"), std::string::npos);
    }
    for (const char* right : {"<string>1234</string>", "<string></string>"}) {
        writeFile(documentPath, protectedDocument(right));
        EXPECT_EQ(finding("document", 0)["works"], true) << right;
    }
}

TEST_F(Doctor, NeverShowsThePasscode) {
    writeFile(documentPath, xml("<dict><key>kPasscode</key><string>7391</string></dict>"));
    EXPECT_EQ(wardlockCommand({"doctor"}).output.find("7391"), std::string::npos);
    EXPECT_EQ(wardlockCommand({"doctor", "--json"}).output.find("7391"), std::string::npos);
}

TEST_F(Doctor, WarnsOfADocumentThatOthersCanRead) {
    fs::permissions(onDisk(documentPath), fs::perms(0640));
    const Json found = finding("document", 0);
    EXPECT_EQ(found["mode"], "640");
    EXPECT_NE(advice(found).find("chmod 600"), std::string::npos) << found;
}

TEST_F(Doctor, PointsToADamagedDocumentThatWasKept) {
    writeFile(std::string(documentPath) + ".damaged", "x");
    EXPECT_NE(advice(finding("document", 0)).find(".damaged"), std::string::npos);
}

TEST_F(Doctor, WarnsOfALargeLog) {
    writeFile("/var/mobile/com.tavix.wardlock_log", "\nshort");
    EXPECT_EQ(finding("log", 0)["advice"], Json::array());
    writeFile("/var/mobile/com.tavix.wardlock_log", std::string(2'000'000, 'x'));
    const Json found = finding("log", 0);
    EXPECT_EQ(found["size"], 2'000'000);
    EXPECT_NE(advice(found).find("only grows"), std::string::npos) << found;
}

TEST_F(Doctor, ReportsTheBusThatReplies) {
    const Json found = finding("bus", 0);
    EXPECT_EQ(found["kind"], "named");
    EXPECT_EQ(found["address"], bus.address());
}

TEST_F(Doctor, ReportsABusThatCannotBeReached) {
    bus.kill();
    expectBroken("bus", "cannot be reached");
}

TEST_F(Doctor, WaitsBrieflyForABusThatDoesNothing) {
    bus.stop();
    expectBroken("bus", "cannot be reached");
    bus.resume();
}

class DoctorWithPrivateBus : public Doctor {
protected:
    DoctorWithPrivateBus() { environment.unset("DBUS_SESSION_BUS_ADDRESS"); }
};

TEST_F(DoctorWithPrivateBus, ReportsThatTheBusWillBeStarted) {
    const Json found = finding("bus", 0);
    EXPECT_EQ(found["kind"], "own");
    EXPECT_NE(found["text"].get<std::string>().find("starts with the first process"), std::string::npos)
        << found;
}

TEST_F(DoctorWithPrivateBus, ReportsAMissingProgramOfTheBus) {
    expectBroken("bus", "cannot be started", with("PATH", folder() / "nothing"));
}

TEST_F(DoctorWithPrivateBus, ReportsThatTheBusFolderIsOpenToOtherUsers) {
    const fs::path own = fs::path(std::getenv("XDG_RUNTIME_DIR")) / "wardlock-bus";
    fs::create_directory(own);
    fs::permissions(own, fs::perms(0755));
    expectBroken("bus", "other users have access");
}

TEST_F(Doctor, LoadsTheBundle) {
    EXPECT_EQ(finding("bundle", 0)["principalClass"], "SettingsListController");
}

TEST_F(Doctor, ReportsAnUnusableBundle) {
    removeFile(bundlePath);
    fs::create_symlink(folder() / "gone", onDisk(bundlePath));
    expectBroken("bundle", "link to a missing file");
    removeFile(bundlePath);
    expectBroken("bundle", "does not exist");
    makeFolder(bundlePath);
    expectBroken("bundle", "no readable Info.plist");
    writeFile(std::string(bundlePath) + "/Info.plist",
              xml("<dict><key>CFBundleExecutable</key><string>M</string><key>NSPrincipalClass</key>"
                  "<string>C</string></dict>"));
    writeFile(std::string(bundlePath) + "/M", "no module");
    expectBroken("bundle", "cannot be loaded: ");
}

TEST_F(Doctor, CountsTheApplications) {
    EXPECT_EQ(finding("appList", 0)["applications"], 0);
    EXPECT_NE(advice(finding("appList", 0)).find("stays empty"), std::string::npos);
    wardlockCommand({"device", "init", "--demo", root()});
    EXPECT_GT(finding("appList", 0)["applications"], 30);
    EXPECT_EQ(finding("appList", 0)["advice"], Json::array());
}

TEST_F(Doctor, ReportsAnUnusableAppList) {
    removeFile(modulePath);
    expectBroken("appList", "does not exist");
    writeFile("/module", "no module");
    fs::create_symlink(onDisk("/module"), onDisk(modulePath));
    expectBroken("appList", "cannot be loaded: ");
}

TEST_F(Doctor, ReportsAForeignFileInThePlaceOfTheAppList) {
    removeFile(modulePath);
    writeFile(modulePath, "another program's");
    expectBroken("appList", "is a file of another program");
    EXPECT_NE(advice(finding("appList", 1)).find("mv " + onDisk(modulePath)), std::string::npos);
}

TEST_F(Doctor, ReportsThatAChangeCanBeStored) {
    const Json found = finding("storage", 0);
    EXPECT_EQ(found["works"], true);
    EXPECT_EQ(found["path"], fs::path(onDisk(documentPath)).parent_path().string());
    EXPECT_EQ(found["reason"], nullptr);
}

TEST_F(Doctor, ReportsStorageThatIsMissing) {
    fs::remove_all(onDisk("/var/mobile/Library"));
    expectBroken("storage", "the folder does not exist");
}

TEST_F(Doctor, ReportsAPortalWithoutContrast) {
    for (const auto& [value, contrast] :
         {std::pair("contrast=1", true), std::pair("color-scheme=1", false),
          std::pair("org.gnome.desktop.a11y.interface/high-contrast=false", true)}) {
        Process portal(programFolder() + "/test-settings-portal", {value});
        ASSERT_EQ(portal.readLine(), "ready");
        const Json found = finding("portal", 0);
        EXPECT_EQ(found["works"], contrast);
        EXPECT_EQ(found["contrast"], contrast);
    }
}

TEST_F(Doctor, DoesNotNeedAPortal) {
    const Json found = finding("portal", 0);
    EXPECT_EQ(found["works"], false);
    EXPECT_EQ(found["needed"], false);
    EXPECT_EQ(found["contrast"], nullptr);
}

TEST_F(Doctor, DoesNotNeedADisplay) {
    const Json found = finding("window", 0);
    EXPECT_EQ(found["works"], false);
    EXPECT_EQ(found["needed"], false);
    EXPECT_EQ(found["display"], false);
    EXPECT_EQ(finding("window", 0, with("WAYLAND_DISPLAY", "wayland-0"))["display"], true);
}

TEST_F(Doctor, ReportsTheRouteOfAMail) {
    EXPECT_EQ(finding("mail", 0)["route"], nullptr);
    EXPECT_EQ(finding("mail", 0)["works"], false);
    makeFolder("/var/mobile/Library/Mail/Outbox");
    EXPECT_EQ(finding("mail", 0)["route"], "outbox");
    EXPECT_EQ(finding("mail", 0)["works"], true);
}

class DoctorSearch : public DeviceRootFixture {};

TEST_F(DoctorSearch, FindsTheWebEngineByItsModule) {
    makeFolder("/empty/QtWebEngine");
    EXPECT_EQ(cli::webEngineFolder({onDisk("/none"), onDisk("/empty")}), "");
    writeFile("/qml/QtWebEngine/qmldir", "module QtWebEngine\n");
    EXPECT_EQ(cli::webEngineFolder({onDisk("/empty"), onDisk("/qml")}), onDisk("/qml/QtWebEngine"));
}

TEST_F(DoctorSearch, SearchesForQmlModulesInTheFoldersOfTheEnvironment) {
    environment.set("QML_IMPORT_PATH", "/a:/b");
    environment.set("QML2_IMPORT_PATH", "/c");
    const auto folders = cli::qmlFolders();
    ASSERT_GE(folders.size(), 3U);
    EXPECT_EQ(std::vector(folders.begin(), folders.begin() + 3),
              (std::vector<std::string>{"/a", "/b", "/c"}));
}

TEST_F(DoctorSearch, RecognizesAFontByItsFile) {
    writeFile("/fonts/Interstate.otf", "");
    writeFile("/fonts/Inter.txt", "");
    EXPECT_EQ(cli::fontFile("Inter", {onDisk("/none"), onDisk("/fonts")}), "");
    writeFile("/fonts/deep/down/Inter-Bold.otf", "");
    EXPECT_EQ(cli::fontFile("Inter", {onDisk("/none"), onDisk("/fonts")}),
              onDisk("/fonts/deep/down/Inter-Bold.otf"));
}

TEST_F(DoctorSearch, SearchesForFontsOfTheUser) {
    environment.set("HOME", "/home/someone");
    const auto folders = cli::fontFolders();
    EXPECT_NE(std::ranges::find(folders, "/home/someone/.local/share/fonts"), folders.end());
}

TEST_F(Doctor, SearchesForTheFontOfTheWindow) {
    std::ifstream file(sourceFolder() + "/window/items/Theme.h");
    const std::string look{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    const std::string family = finding("fonts", 0)["family"];
    EXPECT_NE(look.find("family() { return QStringLiteral(\"" + family + '"'), std::string::npos) << family;
}

} // namespace
} // namespace wardlock::test
