#include "settings/RequiredPasscode.h"

#include "settings/Accounts.h"
#include "settings/EnabledAccount.h"
#include "settings/Keys.h"
#include "settings/Settings.h"
#include "tests/support/SettingsFixture.h"
#include "tests/support/doubles/FaultyFileSystem.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace wardlock::test {
namespace {

using platform::Dictionary;
using platform::MutableDictionary;
using platform::Value;

class RequiredPasscode : public SettingsFixture {
protected:
    /// Switched on, with an enabled account, and with this value of a top-level key.
    void writeWith(std::string_view key, const Value& value) const {
        MutableDictionary document(documentWithAccounts({false, true}));
        document.set(key, value);
        writeDocument(document.copy());
    }
    static bool isRequired() { return wardlock::RequiredPasscode::onDisk().has_value(); }
    static bool matches(std::string_view digits) {
        const auto required = wardlock::RequiredPasscode::onDisk();
        return required && required->matches(digits);
    }
};

} // namespace

TEST_F(RequiredPasscode, IsTheStoredOneWhileAnAccountIsEnabled) {
    writeDocument(documentWithAccounts({false, true}));
    EXPECT_TRUE(matches("1234"));
    EXPECT_FALSE(matches("4321"));
    EXPECT_FALSE(matches(""));
}

TEST_F(RequiredPasscode, IsNoneWhileNoAccountIsEnabled) {
    writeDocument(documentWithAccounts({false, false}));
    EXPECT_FALSE(isRequired());
    writeWith(kAccounts, platform::Array());
    EXPECT_FALSE(isRequired());
    writeWith(kAccounts, "Tom");
    EXPECT_FALSE(isRequired());
}

TEST_F(RequiredPasscode, IsNoneWhileTheMasterSwitchIsOff) {
    writeWith(kEnabled, false);
    EXPECT_FALSE(isRequired());
}

TEST_F(RequiredPasscode, IsNoneWhileNoneIsSet) {
    writeWith(kPasscode, "");
    EXPECT_FALSE(isRequired());
}

TEST_F(RequiredPasscode, HasItsDefaultsWhereKeysAreMissing) {
    const Dictionary whole = documentWithAccounts({true});
    writeDocument({{kAccounts, *whole.find(kAccounts)}, {kPasscode, "1234"}});
    EXPECT_TRUE(matches("1234")) << "the master switch is on by default";
    writeDocument({{kAccounts, *whole.find(kAccounts)}, {kEnabled, true}});
    EXPECT_FALSE(isRequired()) << "no passcode is set by default";
    writeDocument({{kEnabled, true}, {kPasscode, "1234"}});
    EXPECT_FALSE(isRequired()) << "no account is enabled by default";
}

TEST_F(RequiredPasscode, MatchesNoEntryWhereItIsOfAWrongKind) {
    for (const Value& wrong :
         {Value(1234), Value(true), Value(0), Value::data("1234"), Value(Dictionary())}) {
        writeWith(kPasscode, wrong);
        EXPECT_TRUE(isRequired());
        for (const char* digits : {"1234", "0000", "0001", ""})
            EXPECT_FALSE(matches(digits)) << digits;
    }
}

TEST_F(RequiredPasscode, IsNoneForAMissingAndForADamagedDocumentAndWritesNeither) {
    EXPECT_FALSE(isRequired());
    EXPECT_FALSE(exists(documentPath));
    writeFile(documentPath, "damaged");
    EXPECT_FALSE(isRequired());
    EXPECT_EQ(readFile(documentPath), "damaged");
    writeFile(documentPath, "");
    EXPECT_FALSE(isRequired());
    EXPECT_EQ(readFile(documentPath), "");
}

TEST_F(RequiredPasscode, MatchesNoEntryWhereTheDocumentCannotBeRead) {
    // A folder in its place cannot be read by root either.
    std::filesystem::create_directory(onDisk(documentPath));
    EXPECT_TRUE(isRequired());
    EXPECT_FALSE(matches("1234"));
    EXPECT_FALSE(matches(""));
}

namespace {

/// The document cannot be read for a while, and then again.
class DiskThatRecovers : public FaultyFileSystem {
public:
    using FaultyFileSystem::FaultyFileSystem;
    std::error_code readFile(const std::string& path, std::size_t maximum, std::string& bytes) override {
        return failuresLeft-- > 0 ? std::make_error_code(std::errc::io_error)
                                  : FaultyFileSystem::readFile(path, maximum, bytes);
    }

    int failuresLeft = 0;
};

} // namespace

TEST_F(RequiredPasscode, IsJudgedByOneReadingOnADiskThatRecovers) {
    DiskThatRecovers disk(platform::FileSystem::current());
    platform::FileSystem::setCurrent(&disk);
    for (int failures = 1; failures <= 4; ++failures) {
        writeDocument(documentWithAccounts({false, true}));
        disk.failuresLeft = failures;
        EXPECT_TRUE(isRequired()) << failures;
        disk.failuresLeft = failures;
        const auto accounts = Accounts::onDiskIfReadable();
        EXPECT_TRUE(!accounts || accounts->size() == 2) << failures;
    }
    platform::FileSystem::setCurrent(nullptr);
}

TEST_F(RequiredPasscode, IsWhatTheEnforcingProcessFindsInForce) {
    for (const bool master : {true, false})
        for (const bool account : {true, false})
            for (const char* passcode : {"", "1234"}) {
                MutableDictionary document(documentWithAccounts({account}));
                document.set(kEnabled, master);
                document.set(kPasscode, passcode);
                writeDocument(document.copy());
                InitSettings();
                EXPECT_EQ(isRequired(), TweakEnabled() && *stringForKey(kPasscode) != Value(""));
            }
}

} // namespace wardlock::test
