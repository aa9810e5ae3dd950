#include "platform/plist/PropertyList.h"
#include "settings/DefaultSettings.h"
#include "tests/unit/cli/CommandFixture.h"

#include <filesystem>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;

/// `wardlock device init`, in a folder beside the test's own device root.
class DeviceCommand : public DeviceRootFixture {
protected:
    ProcessResult init(std::vector<std::string> words) {
        words.insert(words.begin(), {"device", "init"});
        return wardlockCommand(words);
    }
    std::string made(std::string_view path) const { return device + std::string(path); }
    std::size_t applications() const {
        const fs::directory_iterator folder(made("/Applications"));
        return static_cast<std::size_t>(std::distance(begin(folder), end(folder)));
    }

    const std::string device = folder() / "new/device";
};

TEST_F(DeviceCommand, CreatesADeviceRootAndPrintsIt) {
    const ProcessResult result = init({device});
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    EXPECT_EQ(result.output, device + "\n");
    EXPECT_EQ(result.errors, "");
    EXPECT_TRUE(fs::exists(made("/Library/PreferenceBundles/WardlockSettings.bundle/Info.plist")));
    EXPECT_TRUE(fs::exists(made("/Library/MobileSubstrate/DynamicLibraries/AppList.dylib")));
    EXPECT_EQ(applications(), 0u);
    EXPECT_FALSE(exists(documentPath)) << "the root that the environment names is another";
}

TEST_F(DeviceCommand, WritesTheDocumentOfAFirstStart) {
    init({device});
    fs::copy_file(made(documentPath), onDisk("/tmp/document"));
    const auto document = platform::propertyListWithData(readFile("/tmp/document"));
    ASSERT_TRUE(document);
    EXPECT_EQ(document->dictionary(), DefaultSettings());
}

TEST_F(DeviceCommand, LeavesADocumentThatExistsUntouched) {
    writeFile(documentPath, "mine");
    for (const bool demo : {false, true}) {
        EXPECT_EQ(init(demo ? std::vector<std::string>{"--demo", root()} : std::vector<std::string>{root()})
                      .exitCode,
                  0);
        EXPECT_EQ(readFile(documentPath), "mine");
    }
}

TEST_F(DeviceCommand, AddsTheDemonstrationOnRequest) {
    EXPECT_EQ(init({device, "--demo"}).exitCode, 0);
    EXPECT_GE(applications(), 40u);
    EXPECT_EQ(init({device, "--demo"}).exitCode, 0) << "once more";
}

TEST_F(DeviceCommand, AcceptsARelativeFolder) {
    const std::string relative = fs::relative(device);
    const ProcessResult result = init({relative});
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    EXPECT_EQ(fs::weakly_canonical(result.output.substr(0, result.output.size() - 1)),
              fs::weakly_canonical(device));
}

TEST_F(DeviceCommand, FollowsALinkBeforeDots) {
    fs::create_directories(folder() / "elsewhere/below");
    fs::create_directory_symlink(folder() / "elsewhere/below", folder() / "link");
    const ProcessResult result = init({folder() / "link/../made"});
    EXPECT_EQ(result.output, (folder() / "elsewhere/made") + "\n") << result.errors;
    EXPECT_TRUE(fs::exists(folder() / "elsewhere/made/var/mobile"));
}

TEST_F(DeviceCommand, RefusesTheMachinesRootAndAMissingName) {
    for (const char* name : {"/", "", "/..", "/tmp/.."}) {
        const ProcessResult result = init({name});
        EXPECT_EQ(result.exitCode, 2) << name;
        EXPECT_EQ(result.output, "");
    }
}

TEST_F(DeviceCommand, ReportsAFolderThatCannotBeCreated) {
    writeFile("/file", "");
    const ProcessResult result = init({onDisk("/file")});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.errors.find("cannot create folder "), std::string::npos);
    EXPECT_EQ(result.output, "");
}

} // namespace
} // namespace wardlock::test
