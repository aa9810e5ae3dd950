#include "account/AppsController.h"
#include "specifiers/SelectedIndex.h"
#include "tests/support/PageFixture.h"
#include "tests/support/ThrownException.h"
#include "tests/support/doubles/RecordingDisplay.h"

#include <algorithm>

namespace wardlock::test {
namespace {

using platform::Array;
using platform::Dictionary;
using platform::Value;

class AccountValue : public PageFixture {
protected:
    ~AccountValue() override { SelectedIndex = 0; }

    std::optional<Value> read(std::string_view key) { return rowOfKey(*page, key)->performGetter(); }
    void store(std::string_view key, const Value& value) { rowOfKey(*page, key)->performSetter(&value); }
    std::vector<bool> enabled() const {
        std::vector<bool> enabled;
        for (const auto& account : accounts())
            enabled.push_back(platform::boolValue(account.dictionary().find("kAccountEnabled")));
        return enabled;
    }
    void expectUntouched(const std::string& bytes) {
        EXPECT_EQ(readFile(documentPath), bytes);
        expectNoChange();
    }

    std::shared_ptr<AppsController> page = std::make_shared<AppsController>();
};

TEST_F(AccountValue, IsReadFromTheRecordEachTime) {
    writeAccounts({accountNamed("Ann")});
    EXPECT_EQ(read("kAccountName"), Value("Ann"));
    writeAccounts({accountNamed("Ben")});
    EXPECT_EQ(read("kAccountName"), Value("Ben"));
}

TEST_F(AccountValue, IsReadWhateverItsKind) {
    const Value odd(Array{Value(1)});
    writeAccounts({Dictionary{{"kRestrictSiri", odd}, {"kRestrictCC", false}}});
    EXPECT_EQ(read("kRestrictSiri"), odd);
    EXPECT_EQ(read("kRestrictCC"), Value(false));
}

TEST_F(AccountValue, IsAbsentWhenTheRecordLacksItEvenWithADefault) {
    writeAccounts({Dictionary{{"kAccountName", "Ann"}}});
    rowOfKey(*page, "kRestrictSiri")->setProperty(Value(true), "default");
    EXPECT_FALSE(read("kRestrictSiri"));
}

TEST_F(AccountValue, IsTheRowsDefaultWithoutAccounts) {
    const auto expectDefault = [this] {
        EXPECT_FALSE(read("kRestrictCC"));
        rowOfKey(*page, "kRestrictSiri")->setProperty(Value(true), "default");
        EXPECT_EQ(read("kRestrictSiri"), Value(true));
    };
    expectDefault();
    writeDocument({{"kEnabled", true}});
    expectDefault();
    writeAccounts({});
    expectDefault();
    writeDocument({{"kAccounts", "wrong kind"}});
    expectDefault();
}

TEST_F(AccountValue, ThrowsWhenReadBeyondTheAccounts) {
    writeAccounts({accountNamed("Ann")});
    SelectedIndex = 1;
    EXPECT_EQ(thrown([this] { read("kRestrictSiri"); }), "NSRangeException");
    SelectedIndex = -1;
    EXPECT_EQ(thrown([this] { read("kRestrictSiri"); }), "NSRangeException");
}

TEST_F(AccountValue, IsStoredInTheSelectedRecordOnly) {
    writeDocument({{"kEnabled", true},
                   {"unknown", 5},
                   {"kAccounts", Array{accountNamed("Ann"), accountNamed("Ben"), accountNamed("Cleo")}}});
    SelectedIndex = 1;
    store("kRestrictSiri", Value(true));
    platform::MutableDictionary ben(accountNamed("Ben"));
    ben.set("kRestrictSiri", Value(true));
    EXPECT_EQ(document(),
              Dictionary({{"kEnabled", true},
                          {"unknown", 5},
                          {"kAccounts", Array{accountNamed("Ann"), ben.copy(), accountNamed("Cleo")}}}));
    expectOneChange("kRestrictSiri", Value(true));
}

TEST_F(AccountValue, IsStoredUnderTheKeyOfItsRow) {
    writeAccounts({accountNamed("Ann")});
    for (const auto& row : page->specifiers()) {
        const auto key = row->identifier();
        if (key.empty())
            continue;
        SCOPED_TRACE(key);
        const Value value =
            key == "kAccountName" ? Value("Ben") : Value(!platform::boolValue(account(0).find(key)));
        store(key, value);
        EXPECT_EQ(*account(0).find(key), value);
        EXPECT_EQ(read(key), value);
        expectOneChange(key, value);
    }
}

TEST_F(AccountValue, AddsAKeyThatTheRecordLacks) {
    writeAccounts({Dictionary{{"kAccountName", "Ann"}}});
    store("kRestrictSiri", Value(true));
    EXPECT_EQ(account(0), Dictionary({{"kAccountName", "Ann"}, {"kRestrictSiri", true}}));
}

TEST_F(AccountValue, IsStoredInTheDocumentAsItIsNow) {
    writeAccounts({accountNamed("Ann")});
    page->specifiers();
    writeDocument({{"kPasscode", "1234"}, {"kAccounts", Array{accountNamed("Ben"), accountNamed("Cleo")}}});
    store("kAccountName", Value("Dan"));
    EXPECT_EQ(document(), Dictionary({{"kPasscode", "1234"},
                                      {"kAccounts", Array{accountNamed("Dan"), accountNamed("Cleo")}}}));
}

TEST_F(AccountValue, IsWrittenAndAnnouncedAgainWhenItEqualsTheStoredOne) {
    writeAccounts({accountNamed("Ann", true)});
    const std::string written = markDocument();
    for (const auto& row : page->specifiers()) {
        const auto key = row->identifier();
        if (key.empty())
            continue;
        SCOPED_TRACE(key);
        markDocument();
        store(key, *account(0).find(key));
        EXPECT_EQ(readFile(documentPath), written);
        expectOneChange(key, *account(0).find(key));
    }
}

TEST_F(AccountValue, LeavesThePagesListAsItIs) {
    writeAccounts({accountNamed("Ann", true), accountNamed("Ben")});
    SelectedIndex = 1;
    const auto before = page->specifiers();
    doubles::RecordingDisplay display;
    store("kAccountEnabled", Value(true));
    store("kAccountName", Value("Cleo"));
    store("kRestrictSiri", Value(true));
    EXPECT_EQ(display.events, std::vector<std::string>{});
    EXPECT_EQ(page->specifiers(), before);
}

TEST_F(AccountValue, IsStoredInTheRecordAtTheSelectedIndexOfThatMoment) {
    writeAccounts({accountNamed("Ann"), accountNamed("Ben")});
    SelectedIndex = 1;
    page->specifiers();
    SelectedIndex = 0;
    store("kAccountName", Value("Cleo"));
    EXPECT_EQ(accounts(), (Array{accountNamed("Cleo"), accountNamed("Ben")}));
}

TEST_F(AccountValue, IsNotStoredWithoutAccounts) {
    for (const Dictionary& document : {Dictionary{{"kEnabled", true}}, Dictionary{{"kAccounts", Array{}}},
                                       Dictionary{{"kAccounts", "wrong kind"}}}) {
        writeDocument(document);
        const auto before = readFile(documentPath);
        store("kRestrictSiri", Value(true));
        expectUntouched(before);
    }
}

TEST_F(AccountValue, IsNotStoredWithoutADocumentAndCreatesNone) {
    store("kRestrictSiri", Value(true));
    EXPECT_FALSE(exists(documentPath));
    expectNoChange();
}

TEST_F(AccountValue, ThrowsAndWritesNothingWhenStoredBeyondTheAccounts) {
    writeAccounts({accountNamed("Ann", true)});
    const auto before = readFile(documentPath);
    for (const std::intptr_t index : {1, -1}) {
        SelectedIndex = index;
        EXPECT_EQ(thrown([this] { store("kAccountEnabled", Value(true)); }), "NSRangeException");
        EXPECT_EQ(thrown([this] { store("kRestrictSiri", Value(true)); }), "NSRangeException");
        expectUntouched(before);
    }
}

TEST_F(AccountValue, ThrowsAndWritesNothingWhenItIsNil) {
    writeAccounts({accountNamed("Ann")});
    const auto before = readFile(documentPath);
    EXPECT_EQ(thrown([this] { rowOfKey(*page, "kRestrictSiri")->performSetter(nullptr); }),
              "NSInvalidArgumentException");
    expectUntouched(before);
}

TEST_F(AccountValue, DoesNotThrowWithoutAccountsWhenItIsNil) {
    rowOfKey(*page, "kRestrictSiri")->performSetter(nullptr);
    EXPECT_FALSE(exists(documentPath));
    expectNoChange();
}

TEST_F(AccountValue, IsNeitherReadNorStoredInARecordThatIsNotADictionary) {
    writeAccounts({"no record", accountNamed("Ben", true)});
    const auto before = readFile(documentPath);
    EXPECT_FALSE(read("kRestrictSiri"));
    store("kAccountEnabled", Value(true));
    expectUntouched(before);
}

TEST_F(AccountValue, IsAnnouncedEvenWhenItCannotBeWritten) {
    writeAccounts({accountNamed("Ann")});
    const auto before = readFile(documentPath);
    refuseWrites();
    store("kRestrictSiri", Value(true));
    EXPECT_EQ(readFile(documentPath), before);
    ASSERT_EQ(changes.posts.size(), 1u);
    EXPECT_EQ(*changes.posts[0].userInfo, Dictionary({{"key", "kRestrictSiri"}, {"object", true}}));
}

TEST_F(AccountValue, BecomesBlankWhenTheNameIsEmpty) {
    writeAccounts({accountNamed("Ann")});
    store("kAccountName", Value(""));
    EXPECT_EQ(account(0), accountNamed("Blank"));
    expectOneChange("kAccountName", Value("Blank"));
}

TEST_F(AccountValue, BecomesBlankWhenTheNameIsNil) {
    writeAccounts({accountNamed("Ann")});
    rowOfKey(*page, "kAccountName")->performSetter(nullptr);
    EXPECT_EQ(account(0), accountNamed("Blank"));
    expectOneChange("kAccountName", Value("Blank"));
}

TEST_F(AccountValue, KeepsANameOfOneSpace) {
    writeAccounts({accountNamed("Ann")});
    store("kAccountName", Value(" "));
    EXPECT_EQ(account(0), accountNamed(" "));
    expectOneChange("kAccountName", Value(" "));
}

TEST_F(AccountValue, KeepsTheBlanksAroundAName) {
    writeAccounts({accountNamed("Ann")});
    for (const char* name : {"Ben  ", "  Ben", "\tBen\n", "   "}) {
        store("kAccountName", Value(name));
        EXPECT_EQ(account(0), accountNamed(name));
        expectOneChange("kAccountName", Value(name));
        EXPECT_EQ(read("kAccountName"), Value(name));
    }
}

TEST_F(AccountValue, NeedsNoUniqueName) {
    writeAccounts({accountNamed("Ann"), accountNamed("Ben")});
    SelectedIndex = 1;
    store("kAccountName", Value("Ann"));
    EXPECT_EQ(accounts(), (Array{accountNamed("Ann"), accountNamed("Ann")}));
}

TEST_F(AccountValue, StaysAnEmptyStringUnderAnotherKey) {
    writeAccounts({accountNamed("Ann")});
    store("kRestrictSiri", Value(""));
    EXPECT_EQ(*account(0).find("kRestrictSiri"), Value(""));
}

class AccountEnabling : public AccountValue {
protected:
    void writeEnabled(std::initializer_list<bool> enabled) {
        platform::MutableArray accounts;
        for (const bool on : enabled)
            accounts.append(Value(accountNamed("Account", on)));
        writeAccounts(accounts.copy());
    }
    void enable(std::intptr_t index, bool on = true) {
        SelectedIndex = index;
        store("kAccountEnabled", Value(on));
    }
};

TEST_F(AccountEnabling, SwitchesTheEnabledOneOffInTheSameWriteAndNotification) {
    writeEnabled({true, false, false});
    enable(2);
    EXPECT_EQ(enabled(), (std::vector<bool>{false, false, true}));
    expectOneChange("kAccountEnabled", Value(true));
}

TEST_F(AccountEnabling, RenamesOneFileIntoTheDocumentsPlace) {
    writeEnabled({true, false});
    FaultyFileSystem files(platform::FileSystem::current());
    platform::FileSystem::setCurrent(&files);
    enable(1);
    platform::FileSystem::setCurrent(nullptr);
    EXPECT_EQ(std::ranges::count(files.functions(), "rename"), 1);
    EXPECT_EQ(enabled(), (std::vector<bool>{false, true}));
}

TEST_F(AccountEnabling, SwitchesOffTheFirstOfTwoEnabledOnesOnly) {
    writeEnabled({false, true, true, false});
    enable(3);
    EXPECT_EQ(enabled(), (std::vector<bool>{false, false, true, true}));
}

TEST_F(AccountEnabling, LeavesTwoEnabledAccountsOnWhenTheFirstIsEnabledAgain) {
    writeEnabled({true, true});
    enable(0);
    EXPECT_EQ(enabled(), (std::vector<bool>{true, true}));
    expectOneChange("kAccountEnabled", Value(true));
}

TEST_F(AccountEnabling, SwitchesTheFirstOffWhenTheSecondIsEnabledAgain) {
    writeEnabled({true, true});
    enable(1);
    EXPECT_EQ(enabled(), (std::vector<bool>{false, true}));
}

TEST_F(AccountEnabling, TouchesNoOtherWhenNoneIsEnabled) {
    writeEnabled({false, false});
    enable(1);
    EXPECT_EQ(enabled(), (std::vector<bool>{false, true}));
}

TEST_F(AccountEnabling, ChangesNothingElseInTheOther) {
    writeAccounts({accountNamed("Ann", true), accountNamed("Ben")});
    enable(1);
    EXPECT_EQ(accounts(), (Array{accountNamed("Ann", false), accountNamed("Ben", true)}));
}

TEST_F(AccountEnabling, SkipsEntriesThatAreNotRecordsOrLackTheKey) {
    writeAccounts(
        {"no record", Dictionary{{"kAccountName", "Ann"}}, accountNamed("Ben", true), accountNamed("Cleo")});
    enable(3);
    EXPECT_EQ(accounts(), (Array{Value("no record"), Dictionary{{"kAccountName", "Ann"}},
                                 accountNamed("Ben", false), accountNamed("Cleo", true)}));
}

TEST_F(AccountEnabling, TouchesNoOtherWhenAnAccountIsSwitchedOff) {
    writeEnabled({true, true, false});
    enable(1, false);
    EXPECT_EQ(enabled(), (std::vector<bool>{true, false, false}));
    expectOneChange("kAccountEnabled", Value(false));
}

TEST_F(AccountEnabling, IsNotDoneByOtherKeys) {
    writeEnabled({true, false});
    SelectedIndex = 1;
    store("kRestrictSiri", Value(true));
    EXPECT_EQ(enabled(), (std::vector<bool>{true, false}));
}

} // namespace
} // namespace wardlock::test
