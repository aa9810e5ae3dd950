#include "settings/history/Difference.h"

#include "tests/unit/history/Documents.h"

#include <gtest/gtest.h>

namespace wardlock::test {
namespace {

using platform::Array;
using platform::Dictionary;
using platform::MutableDictionary;
using platform::Value;
using Texts = std::vector<std::string>;

Dictionary with(const Dictionary& document, std::string_view key, const Value& value) {
    MutableDictionary changed(document);
    changed.set(key, value);
    return changed.copy();
}

Dictionary without(const Dictionary& document, std::string_view key) {
    MutableDictionary changed(document);
    changed.remove(key);
    return changed.copy();
}

const Dictionary two = documentOf({account("Tom"), account("Ann")});

class Difference : public ::testing::Test {};

TEST_F(Difference, IsNothingBetweenEqualDocuments) {
    EXPECT_EQ(texts(two, two), Texts{});
    EXPECT_EQ(texts(two, Dictionary{{kAccounts, *two.find(kAccounts)}, {kPasscode, ""}, {kEnabled, true}}),
              Texts{});
}

TEST_F(Difference, NamesASwitchOfAnAccountByItsRow) {
    EXPECT_EQ(texts(two, documentOf({account("Tom", kRestrictSiri, true), account("Ann")})),
              Texts{"Tom: Siri on"});
    EXPECT_EQ(texts(two, documentOf({account("Tom"), account("Ann", kPasscodeDisabled, false)})),
              Texts{"Ann: Disable Lockscreen Passcode off"});
}

TEST_F(Difference, SaysWhichAccountWasEnabledAndWhichWasDisabled) {
    EXPECT_EQ(texts(documentOf({account("Tom", kAccountEnabled, true), account("Ann")}),
                    documentOf({account("Tom"), account("Ann", kAccountEnabled, true)})),
              (Texts{"Tom disabled", "Ann enabled"}));
}

TEST_F(Difference, NamesAccountsThatWereAddedDeletedAndRenamed) {
    EXPECT_EQ(texts(two, documentOf({account("Tom"), account("Ann"), account("Eve")})), Texts{"Eve added"});
    EXPECT_EQ(texts(two, documentOf({account("Ann")})), Texts{"Tom deleted"});
    EXPECT_EQ(texts(two, documentOf({account("Thomas"), account("Ann")})), Texts{"Tom renamed to Thomas"});
    EXPECT_EQ(texts(documentOf({account("")}), documentOf({account(""), account("")})),
              Texts{"account 2 added"});
}

TEST_F(Difference, IsTheDeletionOfTheLastAccountWhereTheDefaultOneReplacesIt) {
    EXPECT_EQ(texts(documentOf({account("Ann")}), documentOf({account("Default")})),
              (Texts{"Ann deleted", "Default added"}));
}

TEST_F(Difference, IsADeletionWhereTheLastAccountWasADefaultOneOfTheSameName) {
    platform::MutableDictionary changed(account("Default"));
    changed.set(kRestrictSiri, true);
    const Dictionary one = documentOf({changed.copy()});
    changed.set(kRestrictCamera, true);
    const Dictionary two = documentOf({changed.copy()});
    const Dictionary defaults = documentOf({account("Default")});
    EXPECT_EQ(texts(two, defaults), (Texts{"Default deleted", "Default added"}));
    EXPECT_EQ(texts(one, defaults), Texts{"Default: Siri off"}) << "or a deletion, with the same document";
}

TEST_F(Difference, NeverContainsTheDigitsOfThePasscode) {
    EXPECT_EQ(texts(two, with(two, kPasscode, "1234")), Texts{"passcode set"});
    EXPECT_EQ(texts(with(two, kPasscode, "1234"), with(two, kPasscode, "5678")), Texts{"passcode changed"});
    EXPECT_EQ(texts(with(two, kPasscode, "1234"), two), Texts{"passcode removed"});
    EXPECT_EQ(texts(with(two, kPasscode, "1234"), without(two, kPasscode)), Texts{"passcode removed"});
    EXPECT_EQ(texts(with(two, kPasscode, "1234"), with(two, kPasscode, 1234)), Texts{"passcode changed"});
    EXPECT_EQ(texts(without(two, kPasscode), two), Texts{"no passcode"});
}

TEST_F(Difference, DescribesTheMasterSwitchAndOtherKeys) {
    EXPECT_EQ(texts(two, with(two, kEnabled, false)), Texts{"Wardlock off"});
    EXPECT_EQ(texts(two, without(two, kEnabled)), Texts{"Wardlock removed"});
    EXPECT_EQ(texts(two, with(two, "kOther", 5)), Texts{"kOther set"});
    EXPECT_EQ(texts(with(two, "kOther", 5), with(two, "kOther", 6)), Texts{"kOther changed"});
    EXPECT_EQ(texts(two, with(two, kAccounts, "none")), Texts{"list of accounts changed"});
}

TEST_F(Difference, NamesRestrictedAppsWhileTheyAreFew) {
    const auto apps = [](const Array& list) { return documentOf({account("Tom", kAppsRestricted, list)}); };
    EXPECT_EQ(texts(apps({"a", "b"}), apps({"a", "b", "c"})), Texts{"Tom: c restricted"});
    EXPECT_EQ(texts(apps({"a", "b"}), apps({"b", "c", "d"})),
              Texts{"Tom: c, d restricted, a no longer restricted"});
    EXPECT_EQ(texts(apps({}), apps({"a", "b", "c", "d"})), Texts{"Tom: 4 apps restricted"});
    EXPECT_EQ(texts(apps({"a", "b"}), apps({"b", "a"})), Texts{"Tom: order of the restricted apps changed"});
}

TEST_F(Difference, MatchesAccountsThatMovedUp) {
    const Dictionary before = documentOf({account("Tom"), account("Ann"), account("Eve")});
    EXPECT_EQ(texts(before, documentOf({account("Ann", kRestrictSiri, true), account("Eve")})),
              (Texts{"Tom deleted", "Ann: Siri on"}));
}

TEST_F(Difference, TakesAnAccountOfTheSameNameForTheSame) {
    MutableDictionary other(account("Tom"));
    for (const auto& [key, value] : account("Tom"))
        if (value.is(Value::Kind::Boolean))
            other.set(key, !value.boolean());
    const auto changes = difference(documentOf({account("Tom")}), documentOf({other.copy(), account("Ann")}));
    ASSERT_GT(changes.size(), 10u);
    for (std::size_t i = 0; i + 1 < changes.size(); ++i)
        EXPECT_EQ(changes[i].kind, Change::Kind::AccountValue);
    EXPECT_EQ(changes.back().kind, Change::Kind::AccountAdded);
}

TEST_F(Difference, ComparesElementsThatAreNoRecordsAsAWhole) {
    EXPECT_EQ(texts(documentOf({"x", account("Tom")}), documentOf({account("Tom"), 5})),
              (Texts{"account 1 deleted", "account 2 added"}));
}

TEST_F(Difference, IsBoundedForVeryManyAccounts) {
    std::vector<Value> before;
    std::vector<Value> after;
    for (int i = 0; i < 20'000; ++i) {
        before.emplace_back(account("a" + std::to_string(i)));
        after.emplace_back(account("b" + std::to_string(i)));
    }
    const auto changes =
        difference(Dictionary{{kAccounts, Array(before)}}, Dictionary{{kAccounts, Array(after)}});
    EXPECT_EQ(changes.size(), 20'000u);
}

} // namespace
} // namespace wardlock::test
