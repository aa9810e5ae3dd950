// Files that are made to exhaust their reader: a terabyte of nothing, a million levels, a million million
// elements, a pipe without a writer. Their reader has little memory.

#include "platform/files/DeviceRoot.h"
#include "tests/robustness/hostile/HostileFixture.h"
#include "tests/robustness/hostile/Sanitizers.h"
#include "tests/support/BuildPaths.h"
#include "tests/support/Process.h"

#include <filesystem>
#include <fstream>
#include <functional>
#include <sys/stat.h>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t terabyte = std::uintmax_t{1} << 40;

constexpr bool sanitized = hasAddressSanitizer || hasThreadSanitizer;

std::string repeated(std::size_t times, std::string_view text) {
    std::string all;
    all.reserve(times * text.size());
    for (std::size_t i = 0; i < times; ++i)
        all += text;
    return all;
}

std::string bigEndian(std::uint64_t number, int length) {
    std::string bytes;
    for (int i = length - 1; i >= 0; --i)
        bytes += static_cast<char>(number >> (8 * i));
    return bytes;
}

std::string trailer(int offsetSize, std::uint64_t objects, std::uint64_t table) {
    return std::string(6, '\0') + static_cast<char>(offsetSize) + '\1' + bigEndian(objects, 8) +
           bigEndian(0, 8) + bigEndian(table, 8);
}

/// Each of these levels is an array that names the next one 200 times.
std::string binaryOfAMillionMillionElements() {
    constexpr int levels = 6;
    std::string bytes = "bplist00";
    std::string offsets;
    for (int level = 1; level <= levels; ++level) {
        offsets += bigEndian(bytes.size(), 2);
        bytes += std::string("\xaf\x10\xc8") + std::string(200, static_cast<char>(level));
    }
    offsets += bigEndian(bytes.size(), 2);
    bytes += '\x09';
    return bytes + offsets + trailer(2, levels + 1, bytes.size());
}

/// A table of objects that are all the same few bytes.
std::string binaryOfManyObjects() {
    constexpr std::size_t objects = 15u << 20;
    const std::string bytes = std::string("bplist00") + "\xd0";
    return bytes + std::string(objects, '\x08') + trailer(1, objects, bytes.size());
}

/// What an Info.plist may be instead of one.
struct Bomb {
    const char* name;
    std::function<void(const std::string& path)> plant;
};

void write(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

const std::vector<Bomb>& bombs() {
    static const std::vector<Bomb> all{
        {"Terabyte",
         [](const std::string& path) {
             write(path, "<plist>");
             fs::resize_file(path, terabyte);
         }},
        {"Deep", [](const std::string& path) { write(path, repeated(1u << 20, "<array>")); }},
        {"Billion", [](const std::string& path) { write(path, binaryOfAMillionMillionElements()); }},
        {"Objects", [](const std::string& path) { write(path, binaryOfManyObjects()); }},
        {"Arrays",
         [](const std::string& path) { write(path, "<array>" + repeated(150000, "<array/>") + "</array>"); }},
        {"Entities",
         [](const std::string& path) {
             write(path, "<!DOCTYPE plist [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b "
                         "\"&a;&a;&a;&a;\">]><plist><dict><key>&b;</key><true/></dict></plist>");
         }},
        {"Pipe", [](const std::string& path) { ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0); }},
        {"Folder", [](const std::string& path) { fs::create_directory(path); }},
        {"Zeros", [](const std::string& path) { fs::create_symlink("/dev/zero", path); }},
    };
    return all;
}

class HostileFiles : public HostileFixture {
protected:
    /// The command with little memory.
    ProcessResult run(const std::vector<std::string>& words, const std::string& input = {}) const {
        // A sanitizer's own memory has no end.
        const std::string limit = sanitized ? "" : "ulimit -v 1000000; ";
        std::vector<std::string> all{"-c", limit + R"(exec "$0" "$@")", programFolder() + "/wardlock"};
        all.insert(all.end(), words.begin(), words.end());
        ProcessSetup setup;
        setup.input = input;
        ProcessResult result = runProcess("/bin/sh", all, setup);
        EXPECT_EQ(result.signal, 0) << result.errors;
        return result;
    }
    std::string settings(const std::string& commands) const {
        const ProcessResult result = run({"settings", "--script", "-"}, commands);
        EXPECT_EQ(result.exitCode, 0) << result.errors;
        EXPECT_EQ(result.output.find("\"error\""), std::string::npos) << result.output;
        return result.output;
    }
    void putFolder(const std::string& devicePath) const {
        makeFolder(devicePath);
        fs::permissions(onDisk(devicePath), fs::perms::owner_all);
    }
    void putApplication(const std::string& folder, const std::string& identifier,
                        const std::string& name) const {
        writeFile("/Applications/" + folder + "/Info.plist",
                  "<plist><dict><key>CFBundleIdentifier</key><string>" + identifier +
                      "</string><key>CFBundleDisplayName</key><string>" + name + "</string></dict></plist>");
    }
    static bool contains(const std::string& text, const std::string& part) {
        return text.find(part) != std::string::npos;
    }
};

constexpr const char* openPicker = R"({"do":"tap","row":"Wardlock"}
{"do":"tap","row":"Default"}
{"do":"tap","row":"Apps"}
{"do":"see"}
)";

TEST_F(HostileFiles, ReplaceABundlesInfoAndAreLeftOutWithANotice) {
    for (const Bomb& bomb : bombs()) {
        const std::string folder = std::string("/Library/PreferenceBundles/") + bomb.name + ".bundle";
        putFolder(folder);
        bomb.plant(onDisk(folder) + "/Info.plist");
    }
    const std::string seen = settings("{\"do\":\"see\"}\n{\"do\":\"tap\",\"row\":\"Wardlock\"}\n");
    for (const Bomb& bomb : bombs())
        EXPECT_TRUE(contains(seen, std::string("“") + bomb.name + ".bundle” is not shown: ")) << bomb.name;
}

TEST_F(HostileFiles, ReplaceAnApplicationsInfoAndAreLeftOutWithALogEntry) {
    for (const Bomb& bomb : bombs()) {
        const std::string folder = std::string("/Applications/") + bomb.name + ".app";
        putFolder(folder);
        bomb.plant(onDisk(folder) + "/Info.plist");
    }
    putApplication("Whole.app", "org.example.whole", "Whole");
    EXPECT_TRUE(contains(settings(openPicker), "org.example.whole"));
    const std::string log = readFile(logPath);
    for (const Bomb& bomb : bombs())
        EXPECT_TRUE(
            contains(log, std::string("/Applications/") + bomb.name + ".app/Info.plist is left out: "))
            << bomb.name;
}

TEST_F(HostileFiles, AreReportedByTheCommandThatReadsThem) {
    for (const Bomb& bomb : bombs()) {
        const std::string path = folder() / bomb.name;
        bomb.plant(path);
        const ProcessResult result = run({"plist", "lint", path});
        // One of them is a property list: a large one, that fits.
        const bool fits = std::string_view(bomb.name) == "Arrays";
        EXPECT_TRUE(result.exitCode == (fits ? 0 : 3) || (!fits && result.exitCode == 1))
            << bomb.name << result.exitCode;
        EXPECT_TRUE(contains(result.output + result.errors, path + ": ")) << bomb.name << result.errors;
    }
}

TEST_F(HostileFiles, ReplaceTheDocumentAndLeaveTheCommandWorking) {
    for (const Bomb& bomb : bombs()) {
        bomb.plant(onDisk(documentPath));
        const ProcessResult result = run({"status"});
        EXPECT_EQ(result.exitCode, 1) << bomb.name << result.output;
        EXPECT_TRUE(contains(result.errors, "cannot read ") ||
                    contains(result.errors, "the settings are damaged: "))
            << bomb.name << result.errors;
        for (const auto& entry : fs::directory_iterator(onDisk(documentFolder)))
            fs::remove_all(entry.path());
    }
}

TEST_F(HostileFiles, CountAsUnnamedWithHugeNames) {
    putApplication("Short.app", "org.example.long", std::string(900000, 'x'));
    putApplication("Unnamed.app", std::string(900000, 'y'), "Unnamed");
    const std::string seen = settings(openPicker);
    EXPECT_TRUE(contains(seen, "\"label\":\"Short\"")) << seen.substr(0, 2000);
    EXPECT_FALSE(contains(seen, "Unnamed")) << seen.substr(0, 2000);
    EXPECT_LT(seen.size(), 100000u);
}

TEST_F(HostileFiles, AreCutAtTheLimitOfApplicationsWithALogEntry) {
    putApplication("0.app", "org.example.first", "First");
    putApplication("zzz.app", "org.example.last", "Last");
    for (int i = 0; i < 10000; ++i)
        fs::create_directory_symlink("0.app", onDisk("/Applications/" + std::to_string(i + 1) + ".app"));
    const std::string seen = settings(openPicker);
    EXPECT_TRUE(contains(seen, "org.example.first"));
    EXPECT_FALSE(contains(seen, "org.example.last"));
    EXPECT_TRUE(contains(readFile(logPath), "than a list can show: the others are left out."));
}

TEST_F(HostileFiles, AreCutAtTheLimitOfFoldersWithoutAnApplication) {
    for (int i = 0; i < 10000; ++i)
        fs::create_directory_symlink("nowhere", onDisk("/Applications/" + std::to_string(i) + ".app"));
    putApplication("zzz.app", "org.example.last", "Last");
    EXPECT_FALSE(contains(settings(openPicker), "org.example.last"));
    EXPECT_TRUE(contains(readFile(logPath), "than a list can show: the others are left out."));
}

TEST_F(HostileFiles, AreCutAtTheLimitOfBundlesWithANotice) {
    for (int i = 0; i < 520; ++i)
        makeFolder("/Library/PreferenceBundles/" + std::to_string(i) + ".bundle");
    const std::string seen = settings("{\"do\":\"see\"}\n");
    EXPECT_TRUE(contains(seen, "“0.bundle” is not shown: its Info.plist cannot be read."));
    EXPECT_TRUE(contains(seen, " more are not shown.")) << seen.substr(0, 4000);
    EXPECT_LT(seen.size(), 10000u);
}

TEST_F(HostileFiles, NameNoModuleWithHugeNamesOfABundle) {
    const std::string folder = "/Library/PreferenceBundles/Long.bundle";
    putFolder(folder);
    const std::string name(1 << 20, 'x');
    writeFile(folder + "/Info.plist", "<plist><dict><key>CFBundleDisplayName</key><string>" + name +
                                          "</string><key>CFBundleExecutable</key><string>" + name +
                                          "</string><key>NSPrincipalClass</key><string>" + name +
                                          "</string></dict></plist>");
    const std::string seen = settings("{\"do\":\"see\"}\n");
    EXPECT_TRUE(contains(seen, "“Long.bundle” is not shown: its Info.plist names no module."));
    EXPECT_LT(seen.size(), 10000u);
}

TEST_F(HostileFiles, LeaveTheOtherRowsShownWithAHugeAccountName) {
    ASSERT_EQ(run({"status"}).exitCode, 0);
    std::string document = readFile(documentPath);
    const std::string name = "<string>Default</string>";
    document.replace(document.find(name), name.size(),
                     "<string>&#27;]0;title&#7;" + std::string(1 << 20, 'x') + "</string>");
    writeFile(documentPath, document);
    const ProcessResult result = run({"settings", "--terminal"}, "1\nq\n");
    EXPECT_TRUE(contains(result.output, "Change Log"));
    EXPECT_FALSE(contains(result.output, "\x1b]0;title"));
    EXPECT_LT(result.output.size(), 100000u);
}

TEST_F(HostileFiles, ReplaceTheLogAndAreAppendedToButNotAttached) {
    writeFile(logPath, "the log");
    fs::resize_file(onDisk(logPath), terabyte);
    makeFolder("/var/mobile/Library/Mail/Outbox");
    // An application that is refused, so that there is something to log.
    putFolder("/Applications/A.app/Info.plist");
    EXPECT_TRUE(contains(settings(openPicker), "\"ok\":true"));
    EXPECT_GT(fs::file_size(onDisk(logPath)), terabyte);
    const std::string mail =
        settings("{\"do\":\"tap\",\"row\":\"Wardlock\"}\n"
                 "{\"do\":\"tap\",\"row\":\"support@tavix.example\"}\n{\"do\":\"see\"}\n");
    EXPECT_TRUE(contains(mail, "\"mail\":")) << mail.substr(0, 3000);
    EXPECT_FALSE(contains(mail, "\"name\":\"log\"")) << mail.substr(0, 3000);
}

} // namespace
} // namespace wardlock::test
