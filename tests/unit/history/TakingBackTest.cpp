#include "settings/history/TakingBack.h"

#include "platform/plist/PropertyList.h"
#include "tests/unit/history/Documents.h"

#include <gtest/gtest.h>

namespace wardlock::test {
namespace {

using platform::Array;
using platform::Dictionary;
using platform::MutableDictionary;
using platform::Value;
using Texts = std::vector<std::string>;

class TakingBackChanges : public ::testing::Test {
protected:
    static Texts conflicts(const Dictionary& before, const Dictionary& after, const Dictionary& now) {
        const TakingBack taken = takeBack(before, after, {}, now, LaterChanges::Keep);
        EXPECT_EQ(taken.document.has_value(), taken.conflicts.empty());
        return taken.conflicts;
    }
    static void expectTaken(const Dictionary& before, const Dictionary& after, const Dictionary& now,
                            const Dictionary& expected, LaterChanges later = LaterChanges::Keep) {
        const TakingBack taken = takeBack(before, after, {}, now, later);
        ASSERT_TRUE(taken.document) << taken.conflicts.at(0);
        EXPECT_EQ(platform::dataWithPropertyList(*taken.document), platform::dataWithPropertyList(expected));
    }
};

const Dictionary tom = documentOf({account("Tom")});
const Dictionary tomSiri = documentOf({account("Tom", kRestrictSiri, true)});

TEST_F(TakingBackChanges, GivesTheDocumentBeforeWhereNothingElseChanged) {
    const Dictionary before{{"b", 1}, {"a", 2}};
    const Dictionary after{{"a", 3}};
    const Dictionary now{{"a", 3}};
    expectTaken(before, after, now, before);
}

TEST_F(TakingBackChanges, KeepsEveryLaterChangeOfOtherKeys) {
    MutableDictionary record(account("Thomas", kRestrictSiri, true));
    record.set(kRestrictCamera, true);
    const Dictionary now{{kEnabled, false}, {kAccounts, Array{record.copy(), account("Ann")}}, {"kOther", 1}};
    record.set(kRestrictSiri, false);
    const Dictionary expected{
        {kEnabled, false}, {kAccounts, Array{record.copy(), account("Ann")}}, {"kOther", 1}};
    expectTaken(tom, tomSiri, now, expected);
}

TEST_F(TakingBackChanges, IsRefusedForAKeyThatWasChangedAgain) {
    const Dictionary one{{"a", 1}, {kPasscode, "1111"}};
    const Dictionary two{{"a", 2}, {kPasscode, "2222"}};
    const Dictionary three{{"a", 3}, {kPasscode, "3333"}};
    EXPECT_EQ(conflicts(one, two, three), (Texts{"a was changed again", "the passcode was changed again"}));
    expectTaken(one, two, three, one, LaterChanges::Overwrite);
}

TEST_F(TakingBackChanges, IsRefusedForAnAccountsKeyThatWasChangedAgain) {
    const Dictionary now = documentOf({account("Tom", kRestrictSiri, "by another program")});
    EXPECT_EQ(conflicts(tom, tomSiri, now), Texts{"Tom: Siri was changed again"});
    expectTaken(tom, tomSiri, now, tom, LaterChanges::Overwrite);
}

TEST_F(TakingBackChanges, NeedsNothingForAKeyThatHasItsOldValueAgain) {
    const Dictionary now{{kEnabled, true}, {kPasscode, "1111"}, {kAccounts, *tom.find(kAccounts)}};
    expectTaken(tom, tomSiri, now, now);
}

TEST_F(TakingBackChanges, IsRefusedInAnAccountThatIsGoneEvenToOverwrite) {
    const Dictionary before = documentOf({account("Tom"), account("Ann")});
    const Dictionary after = documentOf({account("Tom", kRestrictSiri, true), account("Ann")});
    const Dictionary now = documentOf({account("Ann")});
    EXPECT_EQ(conflicts(before, after, now), Texts{"Tom was deleted since"});
    EXPECT_FALSE(takeBack(before, after, {}, now, LaterChanges::Overwrite).document);
}

TEST_F(TakingBackChanges, RemovesAKeyThatWasNew) {
    expectTaken({{"a", 1}}, {{"a", 1}, {"b", 2}}, {{"a", 5}, {"b", 2}}, {{"a", 5}});
}

TEST_F(TakingBackChanges, BringsADeletedAccountBackBehindTheOneThatWasBeforeIt) {
    const Dictionary before = documentOf({account("Tom"), account("Ann"), account("Eve")});
    const Dictionary after = documentOf({account("Tom"), account("Eve")});
    const Dictionary now =
        documentOf({account("Zoe"), account("Tom", kRestrictSiri, true), account("Eve"), account("Max")});
    expectTaken(before, after, now,
                documentOf({account("Zoe"), account("Tom", kRestrictSiri, true), account("Ann"),
                            account("Eve"), account("Max")}));
}

TEST_F(TakingBackChanges, BringsSeveralDeletedAccountsBackInTheirOrder) {
    const Dictionary before = documentOf({account("Ann"), account("Bob"), account("Eve"), account("Tom")});
    const Dictionary after = documentOf({account("Eve")});
    const Dictionary now = documentOf({account("Eve"), account("Max")});
    expectTaken(before, after, now,
                documentOf({account("Ann"), account("Bob"), account("Eve"), account("Tom"), account("Max")}));
}

TEST_F(TakingBackChanges, BringsTheLastAccountBackInThePlaceOfTheDefaultOne) {
    MutableDictionary now(documentOf({account("Default")}));
    now.set(kEnabled, false);
    MutableDictionary expected(tom);
    expected.set(kEnabled, false);
    expectTaken(tom, documentOf({account("Default")}), now.copy(), expected.copy());
}

TEST_F(TakingBackChanges, RemovesAnAddedAccountAndLeavesTheListNeverEmpty) {
    const Dictionary both = documentOf({account("Tom"), account("Ann")});
    expectTaken(tom, both, documentOf({account("Ann")}), documentOf({account("Default")}));
    expectTaken(tom, both, documentOf({account("Tom"), account("Ann"), account("Eve")}),
                documentOf({account("Tom"), account("Eve")}));
}

TEST_F(TakingBackChanges, IsRefusedForAnAddedAccountThatWasChanged) {
    const Dictionary both = documentOf({account("Tom"), account("Ann")});
    const Dictionary now = documentOf({account("Tom"), account("Ann", kRestrictSiri, true)});
    EXPECT_EQ(conflicts(tom, both, now), Texts{"Ann was changed since it was added"});
    expectTaken(tom, both, now, tom, LaterChanges::Overwrite);
}

TEST_F(TakingBackChanges, TakesTheEnablingOfOneAccountInsteadOfAnotherBackAsAWhole) {
    const Dictionary before = documentOf({account("Tom", kAccountEnabled, true), account("Ann")});
    const Dictionary after = documentOf({account("Tom"), account("Ann", kAccountEnabled, true)});
    MutableDictionary now(after);
    now.set("kOther", 1);
    MutableDictionary expected(before);
    expected.set("kOther", 1);
    expectTaken(before, after, now.copy(), expected.copy());
}

TEST_F(TakingBackChanges, TakesNoLaterAccountForOneThatWasDeleted) {
    const Dictionary before = documentOf({account("Tom"), account("Max")});
    const Dictionary after = documentOf({account("Tom", kRestrictSiri, true), account("Max")});
    const Dictionary gone = documentOf({account("Max")});
    const Dictionary now = documentOf({account("Eve", kRestrictSiri, true), account("Max")});
    const TakingBack taken = takeBack(before, after, {gone}, now, LaterChanges::Overwrite);
    EXPECT_FALSE(taken.document);
    EXPECT_EQ(taken.conflicts, Texts{"Tom was deleted since"});
}

TEST_F(TakingBackChanges, SetsTheListOfAccountsWhereItWasNone) {
    const Dictionary none{{kEnabled, true}};
    expectTaken(none, tom, Dictionary{{kEnabled, true}, {kPasscode, ""}, {kAccounts, *tom.find(kAccounts)}},
                none);
    expectTaken(tom, none, Dictionary{{kEnabled, false}},
                Dictionary{{kEnabled, false}, {kPasscode, ""}, {kAccounts, *tom.find(kAccounts)}});
}

} // namespace
} // namespace wardlock::test
