#include "shell/device/DemonstrationDevice.h"

#include "platform/plist/PropertyList.h"
#include "platform/services/MailService.h"
#include "settings/DefaultSettings.h"
#include "settings/Keys.h"
#include "shell/device/DemonstrationApplications.h"
#include "shell/device/Provision.h"
#include "tests/support/AppListFixture.h"

#include <algorithm>
#include <filesystem>
#include <map>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;
using shell::furnishDemonstration;
using Problems = std::vector<std::string>;

/// The demonstration device as this build's AppList library finds it.
class DemonstrationDevice : public AppListFixture {
protected:
    std::map<std::string, std::string> applications() {
        std::map<std::string, std::string> all;
        for (const auto& [identifier, name] : list().applications())
            all.emplace(identifier, name.string());
        return all;
    }
    platform::Dictionary info(const std::string& folder) const {
        const auto value =
            platform::propertyListWithData(readFile("/Applications/" + folder + ".app/Info.plist"));
        return value ? value->dictionary() : platform::Dictionary();
    }
};

TEST_F(DemonstrationDevice, HasSomeFortyApplications) {
    EXPECT_EQ(furnishDemonstration(), Problems());
    const auto all = applications();
    EXPECT_EQ(all.size(), shell::demonstrationApplications().size());
    EXPECT_GE(all.size(), 40u);
    for (const auto& application : shell::demonstrationApplications())
        EXPECT_EQ(all.at(std::string(application.identifier)), application.name);
}

TEST_F(DemonstrationDevice, HasAllApplicationsThatAccountsRestrictFromTheStart) {
    furnishDemonstration();
    const auto all = applications();
    const platform::Dictionary defaults = DefaultSettings();
    for (const auto& identifier :
         defaults.find(kAccounts)->array()[0].dictionary().find(kAppsRestricted)->array())
        EXPECT_TRUE(all.contains(std::string(identifier.string()))) << identifier.string();
}

TEST_F(DemonstrationDevice, HasAnIconForEachApplicationAtEverySize) {
    furnishDemonstration();
    for (const auto& [identifier, name] : applications()) {
        EXPECT_EQ(iconOf(identifier, 29), "Icon.svg") << name;
        EXPECT_EQ(iconOf(identifier, 60), "Icon.svg") << name;
    }
}

TEST_F(DemonstrationDevice, HasListsInBothForms) {
    furnishDemonstration();
    std::size_t binary = 0;
    for (const auto& application : shell::demonstrationApplications()) {
        const std::string folder(application.folder);
        const bool isBinary = readFile("/Applications/" + folder + ".app/Info.plist").starts_with("bplist00");
        EXPECT_EQ(isBinary, application.form == shell::InfoForm::Binary) << folder;
        EXPECT_EQ(info(folder).size(), 6u);
        binary += isBinary ? 1 : 0;
    }
    EXPECT_EQ(binary, 2u);
}

TEST_F(DemonstrationDevice, LeavesExistingApplicationsAsTheyAre) {
    install("/Applications/Atlas.app", "org.mine", "Mine");
    furnishDemonstration();
    EXPECT_EQ(applications().at("org.mine"), "Mine");
    removeFile("/Applications/Fjord.app/Info.plist");
    furnishDemonstration();
    EXPECT_EQ(applications().at("org.mine"), "Mine");
    EXPECT_EQ(applications().at("org.example.fjord"), "Fjord");
}

TEST_F(DemonstrationDevice, HasAnOutboxForTheUserAlone) {
    furnishDemonstration();
    EXPECT_EQ(fs::status(onDisk(platform::mailOutboxPath)).permissions(), fs::perms::owner_all);
}

TEST_F(DemonstrationDevice, HasTheDefaultDocumentOfTheFirstStart) {
    Problems problems;
    const shell::Provision provision([&problems] { problems = furnishDemonstration(); });
    EXPECT_EQ(problems, Problems());
    const auto document =
        platform::propertyListWithData(readFile("/var/mobile/Library/Preferences/com.tavix.wardlock.plist"));
    ASSERT_TRUE(document);
    EXPECT_EQ(document->dictionary(), DefaultSettings());
}

TEST_F(DemonstrationDevice, NeverTouchesADocumentThatExists) {
    for (const std::string_view bytes :
         {"<plist><dict><key>kEnabled</key><false/></dict></plist>", "garbage", ""}) {
        writeFile("/var/mobile/Library/Preferences/com.tavix.wardlock.plist", bytes);
        const shell::Provision provision([] { furnishDemonstration(); });
        EXPECT_EQ(readFile("/var/mobile/Library/Preferences/com.tavix.wardlock.plist"), bytes);
    }
}

TEST_F(DemonstrationDevice, ReportsWhatItCannotCreate) {
    fs::remove_all(onDisk("/Applications"));
    writeFile("/Applications", "a file");
    EXPECT_EQ(furnishDemonstration().size(), shell::demonstrationApplications().size());
}

} // namespace
} // namespace wardlock::test
