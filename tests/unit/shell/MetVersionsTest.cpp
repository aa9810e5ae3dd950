// Settings keeps the documents that other programs wrote, when it meets them.

#include "platform/files/DeviceRoot.h"
#include "platform/plist/PropertyList.h"
#include "settings/Keys.h"
#include "settings/history/History.h"
#include "tests/support/SettingsApplicationFixture.h"

namespace wardlock::test {
namespace {

class MetVersions : public SettingsApplicationFixture {
protected:
    /// As a program without this library does that replaces the file.
    void replaceElsewhere(const platform::Dictionary& document) {
        removeFile(documentPath);
        writeFile(documentPath, platform::dataWithPropertyList(document));
    }
    static std::vector<platform::Dictionary> kept() {
        const platform::VersionFolder folder(platform::FileSystem::current(),
                                             platform::pathOnDevice(documentPath));
        std::vector<platform::Version> versions;
        folder.list(versions);
        std::vector<platform::Dictionary> documents;
        for (const auto& version : versions) {
            const auto bytes = folder.read(version, 100'000);
            documents.push_back(platform::propertyListWithData(bytes.value())->dictionary());
        }
        return documents;
    }
};

TEST_F(MetVersions, IncludeTheDocumentThatIsThereAtTheStart) {
    replaceElsewhere(documentOf({"Tom"}));
    start();
    replaceElsewhere(documentOf({"Ann"}));
    EXPECT_EQ(kept(), std::vector<platform::Dictionary>{documentOf({"Tom"})});
}

TEST_F(MetVersions, IncludeEachDocumentThatIsAnnounced) {
    start();
    const std::size_t before = History().versions().size();
    const platform::Dictionary userInfo{{"key", "kAccounts"}, {"object", platform::Array()}};
    for (const char* name : {"Tom", "Ann"}) {
        replaceElsewhere(documentOf({name}));
        center.deliver("com.tavix.wardlock/update", &userInfo);
    }
    const auto documents = kept();
    ASSERT_EQ(documents.size(), before + 2);
    EXPECT_EQ(documents[before], documentOf({"Tom"}));
    EXPECT_EQ(documents[before + 1], documentOf({"Ann"}));
}

TEST_F(MetVersions, AreMadeBySettingsWhereAPageWritesThem) {
    start();
    tap("Wardlock");
    tap("Enabled");
    const History history;
    EXPECT_EQ(history.versions().back().origin.place, SettingsPlace);
    EXPECT_EQ(history.changes(history.versions().back())->at(0).key, kEnabled);
}

} // namespace
} // namespace wardlock::test
