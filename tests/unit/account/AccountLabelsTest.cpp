#include "account/AppsController.h"
#include "settings/SettingLabels.h"
#include "tests/support/PageFixture.h"

namespace wardlock::test {
namespace {

using platform::PSCellType;

class AccountLabels : public PageFixture {};

TEST_F(AccountLabels, AreThoseOfTheRowsInTheirOrder) {
    const auto page = std::make_shared<AppsController>();
    std::vector<std::pair<std::string, std::string>> rows;
    for (const auto& row : page->specifiers())
        if (row->cellType() == PSCellType::Switch)
            rows.emplace_back(row->identifier(), row->name());
    std::vector<std::pair<std::string, std::string>> labels;
    for (const SettingLabel& label : accountLabels())
        if (label.key != "kAccountName" && label.key != "kAppsRestricted")
            labels.emplace_back(label.key, label.label);
    EXPECT_EQ(labels, rows);
}

TEST_F(AccountLabels, AreTheKeysOfSettingsWithoutARow) {
    EXPECT_EQ(accountLabel("kRestrictSiri"), "Siri");
    EXPECT_EQ(accountLabel("kRestrictResponders"), "kRestrictResponders");
}

} // namespace
} // namespace wardlock::test
