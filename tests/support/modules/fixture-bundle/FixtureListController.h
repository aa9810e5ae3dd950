#pragma once

#include "platform/preferences/PSListController.h"

#include <string>
#include <string_view>

namespace wardlock::test {

/// A page with a row of every kind. Values are kept in the property list
/// "/var/mobile/Library/Preferences/test.fixture.plist" under the rows' keys; what else happens is counted
/// there: "pressed", "dragged", "appeared".
class FixtureListController : public platform::PSListController {
public:
    static const platform::Class& theClass();

    ~FixtureListController() override;

    const Specifiers& specifiers() override;
    void viewDidAppear(bool animated) override;
    void scrollViewWillBeginDragging() override;

    void setValue(const platform::Value* value, platform::PSSpecifier& specifier);
    std::optional<platform::Value> getValue(platform::PSSpecifier& specifier);
    void press();
    void ask();
    void fail();
    void grow();
    void add();

private:
    std::shared_ptr<platform::PSSpecifier> row(std::string name, platform::PSCellType cell,
                                               std::string_view key);
    std::shared_ptr<platform::PSSpecifier> field(std::string placeholder, platform::PSCellType cell,
                                                 std::string_view key);
    std::shared_ptr<platform::PSSpecifier> button(std::string name,
                                                  platform::PSSpecifier::ButtonAction action);
    void count(std::string_view key);
};

} // namespace wardlock::test
