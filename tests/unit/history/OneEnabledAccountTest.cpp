// Taking a change back enables no second account.

#include "settings/history/TakingBack.h"
#include "tests/unit/history/Documents.h"

#include <gtest/gtest.h>

namespace wardlock::test {
namespace {

using platform::Dictionary;
using platform::MutableDictionary;
using Texts = std::vector<std::string>;

class OneEnabledAccount : public ::testing::Test {
protected:
    static Dictionary enabled(std::string_view name) { return account(name, kAccountEnabled, true); }
    static void expectTaken(const TakingBack& taken, const Dictionary& expected) {
        ASSERT_TRUE(taken.document) << taken.conflicts.at(0);
        EXPECT_EQ(*taken.document, expected);
    }
    /// Expects that the change can be taken back, and a later one of another key stays.
    static void expectTakenBesideAnotherChange(const Dictionary& before, const Dictionary& after) {
        MutableDictionary now(after);
        now.set("kOther", 1);
        MutableDictionary expected(before);
        expected.set("kOther", 1);
        expectTaken(takeBack(before, after, {}, now.copy(), LaterChanges::Keep), expected.copy());
    }
};

TEST_F(OneEnabledAccount, IsReplacedByNoneThatIsEnabledAgain) {
    const Dictionary before = documentOf({enabled("Ann"), account("Tom")});
    const Dictionary after = documentOf({account("Ann"), account("Tom")});
    const Dictionary now = documentOf({account("Ann"), enabled("Tom")});
    EXPECT_EQ(takeBack(before, after, {}, now, LaterChanges::Keep).conflicts, Texts{"Tom was enabled since"});
    expectTaken(takeBack(before, after, {}, now, LaterChanges::Overwrite), before);
}

TEST_F(OneEnabledAccount, IsReplacedByNoneWhoseDeletionIsTakenBack) {
    const Dictionary before = documentOf({enabled("Ann"), account("Tom")});
    const Dictionary after = documentOf({account("Tom")});
    const Dictionary now = documentOf({enabled("Tom")});
    EXPECT_EQ(takeBack(before, after, {}, now, LaterChanges::Keep).conflicts, Texts{"Tom was enabled since"});
    expectTaken(takeBack(before, after, {}, now, LaterChanges::Overwrite), before);
}

TEST_F(OneEnabledAccount, MayBeALaterAddition) {
    const Dictionary before = documentOf({enabled("Ann")});
    const Dictionary after = documentOf({account("Ann")});
    const Dictionary now = documentOf({account("Ann"), enabled("Eve")});
    EXPECT_EQ(takeBack(before, after, {}, now, LaterChanges::Keep).conflicts, Texts{"Eve was enabled since"});
    expectTaken(takeBack(before, after, {}, now, LaterChanges::Overwrite),
                documentOf({enabled("Ann"), account("Eve")}));
}

TEST_F(OneEnabledAccount, IsDisabledWhereItWasEnabledByTheChangeItself) {
    const Dictionary before = documentOf({enabled("Ann"), account("Tom")});
    const Dictionary after = documentOf({account("Ann"), enabled("Tom")});
    expectTakenBesideAnotherChange(before, after);
}

TEST_F(OneEnabledAccount, IsRemovedWithItsAddition) {
    const Dictionary before = documentOf({enabled("Ann"), account("Tom")});
    const Dictionary after = documentOf({enabled("Eve"), account("Ann"), account("Tom")});
    expectTakenBesideAnotherChange(before, after);
}

TEST_F(OneEnabledAccount, IsNotAskedForWhereTwoWereEnabledAtOnce) {
    const Dictionary before = documentOf({enabled("Ann"), enabled("Tom")});
    const Dictionary after = documentOf({account("Ann"), enabled("Tom")});
    expectTakenBesideAnotherChange(before, after);
}

TEST_F(OneEnabledAccount, StaysWhereTheChangeEnablesNone) {
    const Dictionary before = documentOf({account("Ann"), account("Tom")});
    const Dictionary after = documentOf({account("Ann", kRestrictSiri, true), account("Tom")});
    const Dictionary now = documentOf({account("Ann", kRestrictSiri, true), enabled("Tom")});
    expectTaken(takeBack(before, after, {}, now, LaterChanges::Keep),
                documentOf({account("Ann"), enabled("Tom")}));
}

} // namespace
} // namespace wardlock::test
