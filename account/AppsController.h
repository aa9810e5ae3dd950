#pragma once

#include "platform/preferences/PSListController.h"
#include "platform/runtime/Class.h"
#include "platform/values/Value.h"

#include <memory>
#include <optional>

namespace wardlock {

class PreferenceHelper;

/// The page of one account: its name, its restrictions, its deletion. It keeps no copy of the account: each
/// read and write goes to the document on disk, to the record that is at SelectedIndex then. An index beyond
/// the accounts throws NSRangeException and writes nothing. Failed writes are not reported. Main thread only.
class AppsController : public platform::PSListController {
public:
    static const platform::Class& theClass();

    AppsController();
    ~AppsController() override;

    const std::shared_ptr<PreferenceHelper>& prefs() const { return prefs_; }
    void setPrefs(std::shared_ptr<PreferenceHelper> prefs) { prefs_ = std::move(prefs); }

    const Specifiers& specifiers() override;
    void scrollViewWillBeginDragging() override;

    /// Returns the row's key in the account's record, none when the record lacks it. Returns the row's
    /// "default" only where there are no accounts.
    std::optional<platform::Value> getValue(platform::PSSpecifier& specifier);
    /// Stores the row's value in the account's record and announces the change. Enabling an account switches
    /// the first enabled one off in the same write. Without accounts nothing is written.
    void setValue(const platform::Value* value, platform::PSSpecifier& specifier);
    /// Asks for confirmation, then deletes the account and leaves the page. Deleting the last account brings
    /// the default accounts back.
    void deleteAccount();

private:
    Specifiers buildSpecifiers();
    void deleteSelectedAccount();

    std::shared_ptr<PreferenceHelper> prefs_;
};

} // namespace wardlock
