#include "settings/Settings.h"

#include "platform/files/FileSystem.h"
#include "platform/plist/PropertyList.h"
#include "platform/plist/PropertyListFile.h"
#include "settings/DefaultSettings.h"
#include "settings/EnabledAccount.h"
#include "tests/support/SettingsFixture.h"
#include "tests/support/doubles/MemoryFileSystem.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <limits>
#include <string>
#include <vector>

using namespace wardlock;
using platform::Array;
using platform::Dictionary;
using platform::Value;

namespace {

class LoadedSettings : public test::SettingsFixture {
protected:
    void expectDefaultsWritten() {
        EXPECT_EQ(SettingsNew(), DefaultSettings());
        EXPECT_EQ(readFile(documentPath), platform::dataWithPropertyList(DefaultSettings()));
    }
};

class SettingsCache : public test::SettingsFixture {};

const Dictionary wholeDocument{{"kEnabled", false}, {"kPasscode", "1234"}, {"kAccounts", Array{}}};

} // namespace

TEST_F(LoadedSettings, CreateAMissingDocumentFromTheDefaults) {
    expectDefaultsWritten();
}

TEST_F(LoadedSettings, WriteTheDefaultsInTheirOrder) {
    SettingsNew();
    std::vector<std::string> keys;
    const Dictionary document = readDocument();
    for (const auto& [key, value] : document)
        keys.emplace_back(key);
    EXPECT_EQ(keys, (std::vector<std::string>{"kEnabled", "kPasscode", "kAccounts"}));
    EXPECT_EQ(document.find("kAccounts")->array().at(0).dictionary().find("kAccountName")->string(),
              "Default");
}

TEST_F(LoadedSettings, LeaveTheCacheAlone) {
    SettingsNew();
    EXPECT_FALSE(TweakSettings);
    EXPECT_FALSE(EnabledAccount);
}

TEST_F(LoadedSettings, TreatAnEmptyDictionaryAsMissing) {
    writeDocument(Dictionary());
    expectDefaultsWritten();
}

TEST_F(LoadedSettings, TreatAnEmptyFileAsMissing) {
    writeFile(documentPath, "");
    expectDefaultsWritten();
}

TEST_F(LoadedSettings, TreatAFileThatIsNotAPropertyListAsMissing) {
    writeFile(documentPath, "\x01\x02 not a property list");
    expectDefaultsWritten();
}

TEST_F(LoadedSettings, TreatARootThatIsNotADictionaryAsMissing) {
    writeFile(documentPath, platform::dataWithPropertyList(Value(Array{"kEnabled"})));
    expectDefaultsWritten();
}

TEST_F(LoadedSettings, AreTheDefaultsWhenAFolderReplacesTheDocument) {
    makeFolder(documentPath);
    EXPECT_EQ(SettingsNew(), DefaultSettings());
    EXPECT_TRUE(std::filesystem::is_directory(onDisk(documentPath)));
}

TEST_F(LoadedSettings, AreTheDefaultsWhenTheDocumentCannotBeWritten) {
    std::filesystem::remove_all(onDisk("/var/mobile"));
    writeFile("/var/mobile", "a file where the folder should be");
    EXPECT_EQ(SettingsNew(), DefaultSettings());
    EXPECT_FALSE(exists(documentPath));
}

TEST_F(LoadedSettings, CreateTheFoldersOfANewDeviceRootForItsUserAlone) {
    namespace fs = std::filesystem;
    fs::remove_all(root());
    expectDefaultsWritten();
    for (fs::path path = fs::path(onDisk(documentPath)).parent_path(); path != fs::path(root()).parent_path();
         path = path.parent_path())
        EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_all) << path;
}

TEST_F(LoadedSettings, CreateNoFolderOnTheDeviceItself) {
    test::MemoryFileSystem files;
    files.addFolder("/var/mobile");
    environment.set("WARDLOCK_DEVICE_ROOT", "/");
    platform::FileSystem::setCurrent(&files);
    EXPECT_EQ(SettingsNew(), DefaultSettings());
    platform::FileSystem::setCurrent(nullptr);
    EXPECT_EQ(files.names("/var/mobile"), std::vector<std::string>());
}

TEST_F(LoadedSettings, AddTheMissingKeysToADocumentWithOnlyAPasscode) {
    writeDocument({{"kPasscode", "4711"}});
    const Dictionary loaded = SettingsNew();
    EXPECT_EQ(loaded.size(), 3U);
    EXPECT_EQ(*loaded.find("kPasscode"), Value("4711"));
    EXPECT_EQ(*loaded.find("kEnabled"), Value(true));
    EXPECT_EQ(*loaded.find("kAccounts"), *DefaultSettings().find("kAccounts"));
    EXPECT_EQ(readDocument(), loaded);
}

TEST_F(LoadedSettings, DoNotRewriteADocumentWithAllTopLevelKeys) {
    // A comment, which a rewritten document would have lost.
    std::string bytes = platform::dataWithPropertyList(wholeDocument);
    bytes.insert(bytes.find("<dict>"), "<!-- untouched -->");
    writeFile(documentPath, bytes);
    EXPECT_EQ(SettingsNew(), wholeDocument);
    EXPECT_EQ(readFile(documentPath), bytes);
}

TEST_F(LoadedSettings, KeepAnEmptyListOfAccountsEmpty) {
    writeDocument({{"kEnabled", true}, {"kPasscode", ""}, {"kAccounts", Array{}}});
    EXPECT_TRUE(SettingsNew().find("kAccounts")->array().empty());
}

TEST_F(LoadedSettings, LeaveARecordThatLacksKeysAsItIs) {
    const Dictionary document{
        {"kEnabled", true}, {"kPasscode", ""}, {"kAccounts", Array{Dictionary{{"kAccountName", "Old"}}}}};
    writeDocument(document);
    EXPECT_EQ(SettingsNew(), document);
    EXPECT_EQ(readDocument(), document);
}

TEST_F(LoadedSettings, DoNotRepairValuesOfAWrongKind) {
    const Dictionary document{{"kEnabled", "YES"}, {"kPasscode", 1234}, {"kAccounts", "none"}};
    writeDocument(document);
    EXPECT_EQ(SettingsNew(), document);
    EXPECT_EQ(readDocument(), document);
}

TEST_F(LoadedSettings, KeepForeignKeysWhenMissingOnesAreAdded) {
    const Dictionary foreign{
        {"integer", std::numeric_limits<std::int64_t>::max()},         {"real", 0.1},
        {"data", Value::data(std::string_view("\x00\xff", 2))},        {"date", Value::date(86400)},
        {"nested", Dictionary{{"list", Array{1, "two", 3.5, false}}}},
    };
    writeDocument(foreign);
    SettingsNew();
    const Dictionary written = readDocument();
    EXPECT_EQ(written.size(), foreign.size() + 3);
    for (const auto& [key, value] : foreign) {
        ASSERT_TRUE(written.find(key)) << key;
        EXPECT_EQ(*written.find(key), value) << key;
    }
}

TEST_F(SettingsCache, IsEmptyBeforeAnyCall) {
    EXPECT_FALSE(TweakSettings);
    EXPECT_FALSE(EnabledAccount);
    EXPECT_FALSE(UpdateCallback);
}

TEST_F(SettingsCache, CreatesTheDocumentOnTheFirstLookUp) {
    EXPECT_TRUE(boolForKey("kEnabled"));
    EXPECT_EQ(readDocument(), DefaultSettings());
    EXPECT_TRUE(TweakSettings);
}

TEST_F(SettingsCache, IsFilledByEveryLookUp) {
    const std::vector<void (*)()> lookUps{
        [] { objectForKey("kEnabled"); },
        [] { boolForKey("kEnabled"); },
        [] { floatForKey("kEnabled"); },
        [] { stringForKey("kEnabled"); },
    };
    for (const auto lookUp : lookUps) {
        TweakSettings.reset();
        lookUp();
        EXPECT_TRUE(TweakSettings);
    }
}

TEST_F(SettingsCache, SparesLookUpsTheDisk) {
    writeDocument(wholeDocument);
    EXPECT_FALSE(boolForKey("kEnabled"));
    writeDocument({{"kEnabled", true}, {"kPasscode", "1234"}, {"kAccounts", Array{}}});
    EXPECT_FALSE(boolForKey("kEnabled"));
    removeFile(documentPath);
    EXPECT_FALSE(boolForKey("kEnabled"));
    EXPECT_FALSE(exists(documentPath));
}

TEST_F(SettingsCache, IsReturnedItself) {
    platform::MutableDictionary& cache = SettingsCreateIfNecessary();
    EXPECT_EQ(&cache, &*TweakSettings);
    cache.set("added", 1);
    EXPECT_EQ(&SettingsCreateIfNecessary(), &cache);
    ASSERT_TRUE(objectForKey("added"));
    EXPECT_EQ(*objectForKey("added"), Value(1));
}

TEST_F(SettingsCache, ContainsTheResultOfObjectForKey) {
    EXPECT_EQ(objectForKey("kEnabled"), SettingsCreateIfNecessary().find("kEnabled"));
}

TEST_F(SettingsCache, ReadsMissingKeysAsNothing) {
    writeDocument(wholeDocument);
    EXPECT_EQ(objectForKey("absent"), nullptr);
    EXPECT_FALSE(boolForKey("absent"));
    EXPECT_EQ(floatForKey("absent"), 0.0F);
    EXPECT_EQ(stringForKey("absent"), nullptr);
}

TEST_F(SettingsCache, ReadsNumbersAndStringsAsBooleansAndFloats) {
    writeDocument(
        {{"kEnabled", "YES"}, {"kPasscode", "12.5"}, {"kAccounts", "x"}, {"real", 0.25}, {"one", 1}});
    EXPECT_TRUE(boolForKey("kEnabled"));
    EXPECT_EQ(floatForKey("kPasscode"), 12.5F);
    EXPECT_EQ(floatForKey("real"), 0.25F);
    EXPECT_TRUE(boolForKey("one"));
}

TEST_F(SettingsCache, ReadsCollectionsAsFalseAndZero) {
    writeDocument(documentWithAccounts({true}));
    EXPECT_FALSE(boolForKey("kAccounts"));
    EXPECT_EQ(floatForKey("kAccounts"), 0.0F);
}

TEST_F(SettingsCache, ReturnsValuesThatAreNotStringsFromStringForKey) {
    const Value* value = stringForKey("kEnabled");
    ASSERT_TRUE(value);
    EXPECT_EQ(value, objectForKey("kEnabled"));
    EXPECT_EQ(*value, Value(true));
}

TEST_F(SettingsCache, LosesChangesInMemoryAtTheNextReload) {
    writeDocument(wholeDocument);
    SettingsCreateIfNecessary().set("kEnabled", true);
    EXPECT_TRUE(boolForKey("kEnabled"));
    InitSettings();
    EXPECT_FALSE(boolForKey("kEnabled"));
    EXPECT_EQ(readDocument(), wholeDocument);
}

TEST_F(SettingsCache, IsNotWrittenByWriteSettingsWhileEmpty) {
    writeSettings();
    EXPECT_FALSE(exists(siblingFile));
    EXPECT_FALSE(exists(documentPath));
    EXPECT_FALSE(TweakSettings);
}

TEST_F(SettingsCache, IsWrittenToTheSiblingsPreferencesByWriteSettings) {
    writeDocument(wholeDocument);
    SettingsCreateIfNecessary().set("added", "in memory");
    writeSettings();
    EXPECT_EQ(*readDocument(siblingFile).find("added"), Value("in memory"));
    EXPECT_EQ(readDocument(siblingFile).size(), 4U);
    EXPECT_EQ(readDocument(), wholeDocument);
}

TEST_F(SettingsCache, ReplacesTheSiblingsPreferencesByWriteSettings) {
    writeFile(siblingFile, platform::dataWithPropertyList(Dictionary{{"theirs", 1}}));
    InitSettings();
    writeSettings();
    EXPECT_EQ(readDocument(siblingFile), DefaultSettings());
}

TEST_F(SettingsCache, SurvivesAFailedWriteOfWriteSettings) {
    InitSettings();
    makeFolder(siblingFile);
    writeSettings();
    EXPECT_TRUE(std::filesystem::is_directory(onDisk(siblingFile)));
}

TEST_F(SettingsCache, IsReplacedByInitSettings) {
    writeDocument(wholeDocument);
    InitSettings();
    EXPECT_FALSE(boolForKey("kEnabled"));
    writeDocument(documentWithAccounts({false}));
    InitSettings();
    EXPECT_TRUE(boolForKey("kEnabled"));
}

TEST_F(SettingsCache, SetsTheEnabledAccountOnInitSettings) {
    writeDocument(documentWithAccounts({true, false}));
    InitSettings();
    writeDocument(documentWithAccounts({false, true}));
    InitSettings();
    ASSERT_TRUE(EnabledAccount);
    EXPECT_TRUE(EnabledAccount->isSameObject(TweakSettings->find("kAccounts")->array().at(1).dictionary()));
}

TEST_F(SettingsCache, ForgetsAFormerlyEnabledAccountOnInitSettings) {
    writeDocument(documentWithAccounts({true}));
    InitSettings();
    writeDocument(documentWithAccounts({false}));
    InitSettings();
    EXPECT_FALSE(EnabledAccount);
}
