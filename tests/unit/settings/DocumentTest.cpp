#include "settings/Document.h"

#include "settings/Constants.h"
#include "settings/DocumentPath.h"
#include "tests/support/SettingsFixture.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace wardlock;
using platform::Dictionary;
using platform::MutableDictionary;

namespace {

class SettingsDocument : public test::SettingsFixture {};

} // namespace

TEST(DocumentPath, IsFormattedWithTheIdentifier) {
    EXPECT_EQ(documentPath(BundleIdentifier), "/var/mobile/Library/Preferences/com.tavix.wardlock.plist");
    EXPECT_EQ(documentPath("com.example"), "/var/mobile/Library/Preferences/com.example.plist");
}

TEST_F(SettingsDocument, IsNeitherReadNorCreatedWithoutAFile) {
    EXPECT_FALSE(document(BundleIdentifier));
    EXPECT_FALSE(exists(documentPath));
}

TEST_F(SettingsDocument, IsReadFromTheDiskEachTime) {
    writeDocument({{"kEnabled", false}});
    EXPECT_EQ(document(BundleIdentifier), (Dictionary{{"kEnabled", false}}));
    writeDocument({{"kEnabled", true}});
    EXPECT_EQ(document(BundleIdentifier), (Dictionary{{"kEnabled", true}}));
}

TEST_F(SettingsDocument, KeepsTheOtherEntriesOnAnUpdate) {
    writeDocument({{"kEnabled", false}, {"other", 1}});
    const auto update = updateDocument(BundleIdentifier, [](MutableDictionary& document) {
        document.set("kEnabled", true);
        return true;
    });
    EXPECT_TRUE(update.written);
    EXPECT_EQ(update.dictionary, (Dictionary{{"kEnabled", true}, {"other", 1}}));
    EXPECT_EQ(readDocument(), update.dictionary);
}

TEST_F(SettingsDocument, WritesNothingWhenTheChangeThrows) {
    writeDocument({{"kEnabled", false}});
    const auto change = [](MutableDictionary& document) -> bool {
        document.set("kEnabled", true);
        throw std::runtime_error("changed my mind");
    };
    EXPECT_THROW(updateDocument(BundleIdentifier, change), std::runtime_error);
    EXPECT_EQ(readDocument(), (Dictionary{{"kEnabled", false}}));
}
