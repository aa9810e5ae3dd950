#include "specifiers/PreferenceHelper.h"
#include "tests/support/PageFixture.h"
#include "tests/support/ThrownException.h"

namespace wardlock::test {
namespace {

using platform::Dictionary;
using platform::PSSpecifier;
using platform::Value;

class ValueBinding : public PageFixture {
protected:
    void store(const Value& value) { row->performSetter(&value); }

    std::shared_ptr<PreferenceHelper> helper =
        PreferenceHelper::initWithBundleIdentifier("com.tavix.wardlock", "update");
    std::shared_ptr<PSSpecifier> row = helper->toggle("Enabled", "kEnabled");
};

TEST_F(ValueBinding, ReadsTheRowsKeyOfTheDocument) {
    writeDocument({{"kEnabled", true}, {"kOther", false}});
    EXPECT_EQ(row->performGetter(), Value(true));
}

TEST_F(ValueBinding, ReadsTheDocumentAgainEachTime) {
    writeDocument({{"kEnabled", true}});
    EXPECT_EQ(row->performGetter(), Value(true));
    writeDocument({{"kEnabled", false}});
    EXPECT_EQ(row->performGetter(), Value(false));
}

TEST_F(ValueBinding, ReadsAnyKindOfValueAsItIs) {
    const Value list(platform::Array{Value(1), Value("two")});
    writeDocument({{"kEnabled", list}});
    EXPECT_EQ(row->performGetter(), list);
}

TEST_F(ValueBinding, ReadsTheRowsDefaultWithoutADocument) {
    row->setProperty(Value(true), "default");
    EXPECT_EQ(row->performGetter(), Value(true));
    EXPECT_FALSE(exists(documentPath));
}

TEST_F(ValueBinding, ReadsTheRowsDefaultWhereTheKeyIsMissing) {
    writeDocument({{"kOther", false}});
    row->setProperty(Value(true), "default");
    EXPECT_EQ(row->performGetter(), Value(true));
}

TEST_F(ValueBinding, ReadsNothingWithoutADefault) {
    EXPECT_FALSE(row->performGetter());
}

TEST_F(ValueBinding, ReadsTheRowsDefaultFromAnUnreadableDocument) {
    writeFile(documentPath, "no property list");
    row->setProperty(Value("default"), "default");
    EXPECT_EQ(row->performGetter(), Value("default"));
}

TEST_F(ValueBinding, ReadsAStoredFalseAsFalseAndNotAsTheDefault) {
    writeDocument({{"kEnabled", false}});
    row->setProperty(Value(true), "default");
    EXPECT_EQ(row->performGetter(), Value(false));
}

TEST_F(ValueBinding, ReadsTheDocumentOfTheHelpersIdentifier) {
    writeFile("/var/mobile/Library/Preferences/com.example.plist", "<dict><key>kEnabled</key><true/></dict>");
    helper->setIdentifier("com.example");
    EXPECT_EQ(row->performGetter(), Value(true));
}

TEST_F(ValueBinding, CreatesADocumentWithOnlyTheKey) {
    store(Value(false));
    EXPECT_EQ(document(), Dictionary({{"kEnabled", false}}));
    expectOneChange("kEnabled", Value(false));
}

TEST_F(ValueBinding, KeepsTheOtherEntriesOfTheDocumentAsItIsNow) {
    writeDocument({{"kEnabled", true}});
    EXPECT_EQ(row->performGetter(), Value(true));
    const Dictionary now{{"kPasscode", "1234"}, {"kEnabled", true}, {"unknown", Value(1.5)}};
    writeDocument(now);
    store(Value(false));
    EXPECT_EQ(document(), Dictionary({{"kPasscode", "1234"}, {"kEnabled", false}, {"unknown", Value(1.5)}}));
}

TEST_F(ValueBinding, AnnouncesEachChangeOnceAndAfterTheWrite) {
    writeDocument({{"kEnabled", true}});
    store(Value(false));
    ASSERT_EQ(changes.posts.size(), 1u);
    EXPECT_EQ(documentThen.at(0), Dictionary({{"kEnabled", false}}));
    expectOneChange("kEnabled", Value(false));
    store(Value(true));
    expectOneChange("kEnabled", Value(true));
}

TEST_F(ValueBinding, WritesAndAnnouncesAnEqualValueToo) {
    writeDocument({{"kEnabled", true}});
    const std::string written = markDocument();
    store(Value(true));
    EXPECT_EQ(readFile(documentPath), written);
    expectOneChange("kEnabled", Value(true));
}

TEST_F(ValueBinding, AnnouncesUnderTheHelpersNames) {
    helper->setIdentifier("com.example");
    helper->setPost("changed");
    store(Value(true));
    EXPECT_TRUE(exists("/var/mobile/Library/Preferences/com.example.plist"));
    EXPECT_FALSE(exists(documentPath));
    ASSERT_EQ(changes.posts.size(), 1u);
    EXPECT_EQ(changes.posts[0].name, "com.example/changed");
}

TEST_F(ValueBinding, WritesWithoutAnnouncingWhenThereIsNoPostName) {
    helper->setPost("");
    store(Value(true));
    EXPECT_EQ(document(), Dictionary({{"kEnabled", true}}));
    expectNoChange();
}

TEST_F(ValueBinding, ThrowsForNilBeforeAnythingIsWritten) {
    writeDocument({{"kEnabled", true}});
    const auto before = readFile(documentPath);
    EXPECT_EQ(thrown([this] { row->performSetter(nullptr); }), "NSInvalidArgumentException");
    EXPECT_EQ(readFile(documentPath), before);
    expectNoChange();
}

TEST_F(ValueBinding, CreatesNoDocumentForNil) {
    EXPECT_THROW(row->performSetter(nullptr), platform::NSException);
    EXPECT_FALSE(exists(documentPath));
    expectNoChange();
}

TEST_F(ValueBinding, ReplacesADocumentThatIsNotADictionaryByTheOneKey) {
    writeFile(documentPath, "<array><string>x</string></array>");
    store(Value(true));
    EXPECT_EQ(document(), Dictionary({{"kEnabled", true}}));
    expectOneChange("kEnabled", Value(true));
}

TEST_F(ValueBinding, AnnouncesEvenAFailedWrite) {
    refuseWrites();
    store(Value(true));
    ASSERT_EQ(changes.posts.size(), 1u);
    EXPECT_EQ(*changes.posts[0].userInfo, Dictionary({{"key", "kEnabled"}, {"object", true}}));
    EXPECT_FALSE(documentThen.at(0));
}

TEST_F(ValueBinding, BindsSlidersListsAndFieldsByTheirIdentifiers) {
    const Value half(0.5), second(2), text("Ann");
    helper->slider("opacity", 0, 1)->performSetter(&half);
    helper->link("Position", "position", {"Top", "Bottom"}, {Value(1), Value(2)})->performSetter(&second);
    helper->field("Name", "name")->performSetter(&text);
    EXPECT_EQ(document(), Dictionary({{"opacity", half}, {"position", second}, {"name", text}}));
}

TEST_F(ValueBinding, EndsWithTheHelper) {
    writeDocument({{"kEnabled", true}});
    helper.reset();
    store(Value(false));
    EXPECT_FALSE(row->performGetter());
    EXPECT_EQ(document(), Dictionary({{"kEnabled", true}}));
    expectNoChange();
}

} // namespace
} // namespace wardlock::test
