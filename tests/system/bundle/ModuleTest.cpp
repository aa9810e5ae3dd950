#include "platform/runtime/Class.h"
#include "platform/services/Workspace.h"
#include "specifiers/PreferenceHelper.h"
#include "specifiers/PreferenceHelperAdditions.h"
#include "tests/support/BuildPaths.h"
#include "tests/support/Process.h"
#include "tests/system/bundle/BundleFixture.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;
using platform::Value;

class Module : public BundleFixture {
protected:
    std::string path() const { return bundle->bundlePath() + "/WardlockSettings"; }
    std::string fileOfIcon(const platform::PSSpecifier& row) const {
        const auto image = row.imageForKey("iconImage");
        return image ? fs::relative(image->path(), bundle->bundlePath()).string() : "";
    }
    /// Width and height of a PNG, from its header.
    static std::pair<int, int> sizeOfPng(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        std::string header(24, '\0');
        file.read(header.data(), static_cast<std::streamsize>(header.size()));
        EXPECT_EQ(header.substr(1, 3), "PNG") << path;
        const auto number = [&header](std::size_t at) {
            int value = 0;
            for (std::size_t byte = at; byte < at + 4; ++byte)
                value = value * 256 + static_cast<unsigned char>(header[byte]);
            return value;
        };
        return {number(16), number(20)};
    }
};

TEST_F(Module, IsNamedByTheBundlesInfo) {
    ASSERT_NE(bundle, nullptr);
    const auto& info = bundle->infoDictionary();
    EXPECT_EQ(*info.find("CFBundleIdentifier"), Value("com.tavix.wardlock"));
    EXPECT_EQ(*info.find("CFBundleDisplayName"), Value("Wardlock"));
    EXPECT_EQ(*info.find("CFBundleName"), Value("WardlockSettings"));
    EXPECT_EQ(*info.find("CFBundleExecutable"), Value("WardlockSettings"));
    EXPECT_EQ(*info.find("NSPrincipalClass"), Value("SettingsListController"));
    EXPECT_FALSE(platform::stringValue(info.find("CFBundleVersion")).value_or("").empty());
    EXPECT_TRUE(fs::exists(bundle->bundlePath() + "/" +
                           std::string(platform::stringValue(info.find("CFBundleIconFile")).value_or("-"))));
}

TEST_F(Module, OffersThePrincipalClass) {
    std::string reason;
    const auto* principal = bundle->principalClass(reason);
    ASSERT_NE(principal, nullptr) << reason;
    EXPECT_EQ(principal->name(), "SettingsListController");
    const auto page = makePage();
    ASSERT_NE(page, nullptr);
    EXPECT_EQ(page->specifiers().size(), 9u);
}

TEST_F(Module, FormatsTheDocumentPathForItsTwoReadersWhenItIsLoadedAndNeverAgain) {
    writeAccounts({accountNamed("Ann")});
    const auto result = runProcess(programFolder() + "/test-document-paths", {bundlePath});
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    EXPECT_EQ(result.output, "loaded 2\npage 2\npicker 2\n1 change announced\nsaved 2\n");
}

TEST_F(Module, OffersItsPagesByName) {
    ASSERT_NE(makePage(), nullptr);
    for (const char* name : {"SettingsListController", "AppsController", "AppsListController",
                             "ChangeLogController", "DeveloperController"}) {
        const auto* found = platform::objc_getClass(name);
        ASSERT_NE(found, nullptr) << name;
        EXPECT_NE(std::dynamic_pointer_cast<platform::PSListController>(found->create()), nullptr) << name;
    }
}

TEST_F(Module, ExportsItsThreeNamesAndNoMore) {
    const auto result = runProcess(WARDLOCK_NM, {"-D", "--defined-only", "--format=posix", path()});
    ASSERT_EQ(result.exitCode, 0) << result.errors;
    std::vector<std::string> names;
    std::istringstream lines(result.output);
    for (std::string line; std::getline(lines, line);)
        names.push_back(line.substr(0, line.find(' ')));
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (std::vector<std::string>{"SelectedIndex", "wardlock_classes", "workspace"}));
}

TEST_F(Module, FindsItsLibrariesFromItsOwnFolder) {
    const auto result = runProcess("/usr/bin/ldd", {path()});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output.find("not found"), std::string::npos) << result.output;
    EXPECT_NE(result.output.find("libwardlock-platform.so"), std::string::npos) << result.output;
    EXPECT_NE(result.output.find("libwardlock-settings.so"), std::string::npos) << result.output;
}

TEST_F(Module, ExportsTheSelectedIndexOfItsPages) {
    writeAccounts({accountNamed("Ann"), accountNamed("Ben")});
    const auto page = makePage();
    auto* index = static_cast<std::intptr_t*>(exported("SelectedIndex"));
    ASSERT_NE(index, nullptr);
    EXPECT_EQ(*index, 0);
    page->tableViewDidSelectRowAtIndexPath({1, 1});
    EXPECT_EQ(*index, 1);
    page->viewDidAppear(false);
    EXPECT_EQ(*index, 0);
}

TEST_F(Module, ExportsAWorkspaceThatItNeverSets) {
    const auto page = makePage();
    auto* workspace = static_cast<platform::FBWorkspace**>(exported("workspace"));
    ASSERT_NE(workspace, nullptr);
    EXPECT_EQ(*workspace, nullptr);
    tap(*page, "Passcode");
    EXPECT_EQ(*workspace, nullptr);
}

TEST_F(Module, ContainsTheIconsOfItsContactRows) {
    const auto page = makePage();
    EXPECT_EQ(fileOfIcon(*rowNamed(*page, "@TavixCo")), "twitter.png");
    EXPECT_EQ(fileOfIcon(*rowNamed(*page, "support@tavix.example")), "mail.png");
    EXPECT_EQ(fileOfIcon(*rowNamed(*page, "Change Log")), "");
}

TEST_F(Module, ContainsEachIconOfTwentyNinePointsInThreeDensities) {
    for (const std::string name : {"icon", "mail", "twitter"}) {
        EXPECT_EQ(sizeOfPng(bundle->bundlePath() + "/" + name + ".png"), std::pair(29, 29));
        EXPECT_EQ(sizeOfPng(bundle->bundlePath() + "/" + name + "@2x.png"), std::pair(58, 58));
        EXPECT_EQ(sizeOfPng(bundle->bundlePath() + "/" + name + "@3x.png"), std::pair(87, 87));
    }
}

TEST_F(Module, IsSearchedForTheIconsOfItsObjects) {
    const auto row = platform::PSSpecifier::preferenceSpecifierNamed("Row", nullptr, {}, {}, nullptr,
                                                                     platform::PSCellType::Button, nullptr);
    // The helper is this program's; the target is the module's.
    const auto page = makePage();
    EXPECT_EQ(PreferenceHelper::initWithTarget(page, {}, {})->withIcon(row, "mail.png"), row);
    EXPECT_EQ(fileOfIcon(*row), "mail.png");
    addIcon(row, "mail");
    EXPECT_EQ(row->imageForKey("iconImage"), nullptr);
}

} // namespace
} // namespace wardlock::test
