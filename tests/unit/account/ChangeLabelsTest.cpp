// The history calls a key of an account as its page does.

#include "account/AppsController.h"
#include "settings/Accounts.h"
#include "settings/Keys.h"
#include "settings/history/ChangeText.h"
#include "tests/support/PageFixture.h"

namespace wardlock::test {
namespace {

using ChangeLabels = PageFixture;

TEST_F(ChangeLabels, AreTheLabelsOfTheAccountPagesRows) {
    writeAccounts(platform::Array{accountNamed("Tom")});
    const auto page = std::make_shared<AppsController>();
    std::size_t compared = 0;
    const Accounts defaults = Accounts::defaults();
    for (const auto& [key, value] : *defaults.record(0)) {
        // The name's row has a placeholder, the apps have a link, and one restriction has no row.
        if (key == kAccountName || key == kAppsRestricted || key == kRestrictResponders)
            continue;
        EXPECT_EQ(accountKeyLabel(key), rowOfKey(*page, key)->name()) << key;
        ++compared;
    }
    EXPECT_EQ(compared, 17u);
    EXPECT_EQ(accountKeyLabel(kRestrictResponders), kRestrictResponders);
}

} // namespace
} // namespace wardlock::test
