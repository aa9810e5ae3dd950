#include "platform/plist/PropertyList.h"
#include "platform/values/KeySet.h"
#include "platform/values/NSException.h"
#include "platform/values/Value.h"
#include "tests/support/ValueText.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

using wardlock::test::text;

/// Keys that a cheap hash cannot distinguish: same length, same middle and last letters.
std::string alike(int number) {
    return std::to_string(10'000 + number) + std::string(40, 'x');
}

TEST(Dictionary, KeepsTheOrderOfInsertion) {
    EXPECT_EQ(text(Dictionary{{"z", 1}, {"a", 2}, {"m", 3}}), "{\"z\": 1, \"a\": 2, \"m\": 3}");
}

TEST(Dictionary, FindsItsKeysAndNothingElse) {
    const Dictionary dictionary{{"kEnabled", true}, {"", "empty"}, {"kPasscode", "0000"}};
    ASSERT_NE(dictionary.find("kPasscode"), nullptr);
    EXPECT_EQ(*dictionary.find("kPasscode"), Value("0000"));
    EXPECT_EQ(*dictionary.find(""), Value("empty"));
    EXPECT_EQ(dictionary.find("kenabled"), nullptr);
    EXPECT_EQ(dictionary.find("kEnable"), nullptr);
    EXPECT_EQ(Dictionary().find("kEnabled"), nullptr);
}

TEST(Dictionary, KeepsTheLastOfEqualKeysAtThePlaceOfTheFirst) {
    EXPECT_EQ(text(Dictionary{{"a", 1}, {"b", 2}, {"a", 3}}), "{\"a\": 3, \"b\": 2}");
}

TEST(Dictionary, EqualsWhateverTheOrder) {
    EXPECT_EQ((Dictionary{{"a", 1}, {"b", 2}}), (Dictionary{{"b", 2}, {"a", 1}}));
    EXPECT_NE((Dictionary{{"a", 1}, {"b", 2}}), (Dictionary{{"a", 1}, {"c", 2}}));
    EXPECT_NE((Dictionary{{"a", 1}}), (Dictionary{{"a", 2}}));
    EXPECT_NE((Dictionary{{"a", 1}}), (Dictionary{{"a", 1}, {"b", 2}}));
}

TEST(Dictionary, DistinguishesTheSameObjectFromAnEqualOne) {
    const Dictionary dictionary{{"a", 1}};
    const Dictionary copy = dictionary;
    EXPECT_TRUE(dictionary.isSameObject(copy));
    EXPECT_FALSE(dictionary.isSameObject(Dictionary{{"a", 1}}));
}

TEST(Dictionary, SharesItsKeysWithOtherRecordsOfTheDocument) {
    const auto document =
        propertyListWithData("<array><dict><key>a</key><true/><key>b</key><true/></dict>"
                             "<dict><key>a</key><false/><key>b</key><true/></dict>"
                             "<dict><key>b</key><false/><key>a</key><true/></dict></array>");
    ASSERT_TRUE(document);
    const Array& records = document->array();
    EXPECT_EQ(records[0].dictionary().keys(), records[1].dictionary().keys());
    EXPECT_NE(records[0].dictionary().keys(), records[2].dictionary().keys());
}

TEST(MutableDictionary, LeavesItsSourceAlone) {
    const Dictionary dictionary{{"a", 1}, {"b", 2}};
    MutableDictionary copy(dictionary);
    copy.set("a", "one");
    copy.set("c", 3);
    copy.remove("b");
    EXPECT_EQ(text(dictionary), "{\"a\": 1, \"b\": 2}");
    EXPECT_EQ(text(copy.copy()), "{\"a\": \"one\", \"c\": 3}");
}

TEST(MutableDictionary, ReplacesAValueInItsPlace) {
    MutableDictionary dictionary(Dictionary{{"a", 1}, {"b", 2}});
    dictionary.set("a", 3);
    EXPECT_EQ(text(dictionary.copy()), "{\"a\": 3, \"b\": 2}");
}

TEST(MutableDictionary, ChangesNoReturnedCopy) {
    MutableDictionary dictionary;
    dictionary.set("a", 1);
    const Dictionary before = dictionary.copy();
    dictionary.set("b", 2);
    dictionary.set("a", 3);
    EXPECT_EQ(text(before), "{\"a\": 1}");
}

TEST(MutableDictionary, IsIndependentOfItsCopies) {
    MutableDictionary first;
    first.set("a", 1);
    MutableDictionary second = first;
    second.set("b", 2);
    first.set("c", 3);
    EXPECT_EQ(text(first.copy()), "{\"a\": 1, \"c\": 3}");
    EXPECT_EQ(text(second.copy()), "{\"a\": 1, \"b\": 2}");
}

TEST(MutableDictionary, ThrowsAndChangesNothingForNil) {
    MutableDictionary dictionary(Dictionary{{"a", 1}});
    const Value* nil = nullptr;
    try {
        dictionary.set("a", nil);
        FAIL() << "nothing thrown";
    } catch (const NSException& exception) {
        EXPECT_EQ(exception.name(), NSInvalidArgumentException);
    }
    EXPECT_EQ(text(dictionary.copy()), "{\"a\": 1}");
}

TEST(MutableDictionary, RemovesExistingKeys) {
    MutableDictionary dictionary(Dictionary{{"a", 1}, {"b", 2}, {"c", 3}});
    dictionary.remove("b");
    dictionary.remove("missing");
    EXPECT_EQ(text(dictionary.copy()), "{\"a\": 1, \"c\": 3}");
    EXPECT_EQ(*dictionary.find("c"), Value(3));
    EXPECT_EQ(dictionary.find("b"), nullptr);
}

TEST(MutableDictionary, FindsEachOfManyKeysThatLookAlike) {
    constexpr int count = 500;
    MutableDictionary dictionary;
    for (int i = 0; i < count; ++i) {
        dictionary.set(alike(i), i);
        dictionary.set(alike(i), -i);
    }
    ASSERT_EQ(dictionary.size(), std::size_t(count));
    const Dictionary copy = dictionary.copy();
    for (int i = 0; i < count; ++i) {
        ASSERT_NE(copy.find(alike(i)), nullptr) << i;
        ASSERT_EQ(*copy.find(alike(i)), Value(-i));
    }
    EXPECT_EQ(copy.find(alike(count)), nullptr);
}

TEST(MutableDictionary, FindsEachOfVeryManyKeysAndNoneThatWasRemoved) {
    constexpr int count = 10000;
    MutableDictionary dictionary;
    for (int i = 0; i < count; ++i)
        dictionary.set(std::string(static_cast<std::size_t>(i % 20), 'k') + std::to_string(i), i);
    for (const int gone : {0, 77, count - 1})
        dictionary.remove(std::string(static_cast<std::size_t>(gone % 20), 'k') + std::to_string(gone));
    ASSERT_EQ(dictionary.size(), std::size_t(count - 3));
    const Dictionary copy = dictionary.copy();
    for (int i = 0; i < count; ++i) {
        const Value* found =
            copy.find(std::string(static_cast<std::size_t>(i % 20), 'k') + std::to_string(i));
        if (i == 0 || i == 77 || i == count - 1)
            ASSERT_EQ(found, nullptr) << i;
        else
            ASSERT_TRUE(found && *found == Value(i)) << i;
    }
    EXPECT_EQ(copy.find(std::string_view()), nullptr);
}

TEST(MutableDictionary, AcceptsAPartOfItsOwnKeyAsANewOne) {
    MutableDictionary dictionary;
    dictionary.set("first key", 1);
    dictionary.set((*dictionary.begin()).key.substr(0, 5), 2);
    EXPECT_EQ(text(dictionary.copy()), "{\"first key\": 1, \"first\": 2}");
}

TEST(MutableDictionary, KeepsItsOwnKeyWhenItIsSetAgain) {
    MutableDictionary dictionary(Dictionary{{"first", 1}, {"second", 2}});
    const auto key = (*dictionary.begin()).key;
    dictionary.set(key, 3);
    EXPECT_EQ(text(dictionary.copy()), "{\"first\": 3, \"second\": 2}");
}

} // namespace
} // namespace platform
