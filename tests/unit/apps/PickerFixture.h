#pragma once

#include "apps/AppsListView.h"
#include "platform/ui/UISwitch.h"
#include "specifiers/SelectedIndex.h"
#include "tests/support/PageFixture.h"
#include "tests/unit/apps/FakeApplicationList.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wardlock::test {

using Identifiers = std::vector<std::string>;

/// A test of the picker's view over made-up applications.
class PickerFixture : public PageFixture {
protected:
    static constexpr platform::CGRect frame{{1, 2}, {320, 480}};

    PickerFixture() {
        SelectedIndex = 0;
        device.bounds = frame;
    }

    /// Applications whose identifiers and names are these.
    void install(platform::Dictionary applications) { list->setApplications(std::move(applications)); }
    /// A document of one account with this list.
    void restrict(const platform::Array& identifiers) {
        writeAccounts({platform::Value(accountWith(identifiers))});
    }
    static platform::Dictionary accountWith(const platform::Array& identifiers) {
        platform::MutableDictionary record(accountNamed("Child"));
        record.set("kAppsRestricted", platform::Value(identifiers));
        return record.copy();
    }
    static platform::Dictionary accountWithoutList() {
        platform::MutableDictionary record(accountNamed("Child"));
        record.remove("kAppsRestricted");
        return record.copy();
    }
    platform::Array restricted(std::size_t account = 0) const {
        return this->account(account).find("kAppsRestricted")->array();
    }

    std::shared_ptr<AppsListView> open() { return AppsListView::initWithFrame(frame); }

    static Identifiers rows(const AppsListView& view) {
        Identifiers identifiers;
        for (const platform::Value& identifier : view.allApps())
            identifiers.emplace_back(identifier.string());
        return identifiers;
    }
    static std::shared_ptr<platform::UITableViewCell> cell(AppsListView& view, std::size_t row) {
        return view.tableView()->takeCell({0, row});
    }
    static platform::UISwitch& switchOf(platform::UITableViewCell& cell) {
        return dynamic_cast<platform::UISwitch&>(*cell.accessoryView());
    }
    static bool isOn(AppsListView& view, std::size_t row) { return switchOf(*cell(view, row)).isOn(); }
    /// What a tap on the row's switch does.
    static void tap(AppsListView& view, std::size_t row) { switchOf(*cell(view, row)).toggle(); }

    std::optional<FakeApplicationList> list{std::in_place};
};

} // namespace wardlock::test
