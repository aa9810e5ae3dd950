#include "settings/DocumentChange.h"

#include "platform/values/NSException.h"
#include "settings/DocumentPath.h"
#include "settings/Keys.h"
#include "tests/support/SettingsFixture.h"

namespace wardlock::test {
namespace {

using platform::Array;
using platform::Dictionary;
using platform::Value;

std::size_t second(const Accounts&) {
    return 1;
}

class DocumentChanges : public SettingsFixture {
protected:
    DocumentChanges() { writeDocument(documentWithAccounts({true, false})); }

    void storeApps(const Value& apps) {
        announce(setAccountValue(path, second, kAppsRestricted, &apps));
        center.posts.clear();
    }
    DocumentChange change(std::vector<std::string> applications, Restriction restriction) {
        DocumentChange made = setRestricted(path, second, applications, restriction);
        announce(made);
        return made;
    }
    Value storedApps() const {
        const auto accounts = Accounts::onDisk();
        return *accounts.record(1)->find(kAppsRestricted);
    }
    void expectAnnounced(std::string_view key, const Value& object) {
        ASSERT_EQ(center.posts.size(), 1U);
        EXPECT_EQ(*center.posts[0].userInfo, (Dictionary{{"key", key}, {"object", object}}));
    }

    const std::string path = wardlock::documentPath(BundleIdentifier);
};

TEST_F(DocumentChanges, RestrictEachApplicationOnceAtTheEndOfTheList) {
    storeApps(Array{"b", 7, "a"});
    change({"c", "a", "d", "c"}, Restriction::On);
    EXPECT_EQ(storedApps(), Value(Array{"b", 7, "a", "c", "d"}));
    expectAnnounced(kAppsRestricted, Array{"b", 7, "a", "c", "d"});
}

TEST_F(DocumentChanges, AllowByRemovingEveryOccurrence) {
    storeApps(Array{"a", "b", "a", "c"});
    change({"a", "c", "z"}, Restriction::Off);
    EXPECT_EQ(storedApps(), Value(Array{"b"}));
    expectAnnounced(kAppsRestricted, Array{"b"});
}

TEST_F(DocumentChanges, RefuseToRestrictWhereAnAccountHasNoList) {
    writeDocument({{kAccounts, Array{Dictionary{}, Dictionary{{kAccountName, "B"}}}}});
    const std::string before = readFile(documentPath);
    EXPECT_THROW(change({"a"}, Restriction::On), platform::NSException);
    EXPECT_EQ(readFile(documentPath), before);
    EXPECT_TRUE(center.posts.empty());
}

TEST_F(DocumentChanges, ChooseNoAccountWhereThereIsNone) {
    writeDocument({{kAccounts, Array{}}});
    const auto never = [](const Accounts&) -> std::size_t {
        ADD_FAILURE() << "an account was chosen";
        return 0;
    };
    const Value on(true);
    const std::vector<std::string> apps{"a"};
    for (const DocumentChange& made :
         {setAccountValue(path, never, kRestrictSiri, &on), deleteAccount(path, never),
          setRestricted(path, never, apps, Restriction::On)}) {
        EXPECT_FALSE(made.update.changed);
        announce(made);
    }
    EXPECT_TRUE(center.posts.empty());
}

TEST_F(DocumentChanges, ChooseTheAccountAmongThoseOnDisk) {
    std::vector<std::string> names;
    const Value on(true);
    setAccountValue(
        path,
        [&names](const Accounts& accounts) {
            names = accounts.names();
            return 0;
        },
        kRestrictSiri, &on);
    EXPECT_EQ(names, (std::vector<std::string>{"A", "B"}));
}

TEST_F(DocumentChanges, AreNotAnnouncedBeforeTheCallerDoes) {
    const Value on(true);
    const DocumentChange made = setTopLevelValue(BundleIdentifier, kEnabled, &on);
    EXPECT_TRUE(made.update.written);
    EXPECT_TRUE(center.posts.empty());
    announce(made);
    expectAnnounced(kEnabled, true);
}

} // namespace
} // namespace wardlock::test
