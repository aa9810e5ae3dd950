// Account creation on the root page.

#include "account/AppsController.h"
#include "platform/ui/UIAlertController.h"
#include "root/DocumentSnapshot.h"
#include "root/SettingsListController.h"
#include "settings/Constants.h"
#include "settings/DocumentChange.h"
#include "settings/DocumentPath.h"
#include "settings/Log.h"
#include "specifiers/PreferenceHelper.h"

namespace wardlock {

using platform::NSNotificationCenter;
using platform::UIAlertAction;
using platform::UIAlertActionStyle;
using platform::UIAlertController;

void SettingsListController::addAccount() {
    const auto alert = UIAlertController::alertControllerWithTitle("New Account", "",
                                                                   platform::UIAlertControllerStyle::Alert);
    alert->addTextFieldWithConfigurationHandler([this](const std::shared_ptr<platform::UITextField>& field) {
        field->setPlaceholder("New Account Name");
        NSNotificationCenter::defaultCenter().addObserver(
            shared_from_this(),
            NSNotificationCenter::Action::of<&SettingsListController::alertTextFieldDidChange>(
                "alertTextFieldDidChange:"),
            platform::UITextFieldTextDidChangeNotification, field);
    });
    // Leaves the registration above in place: the dismissed field no longer posts notifications.
    alert->addAction(UIAlertAction::actionWithTitle("Cancel", UIAlertActionStyle::Cancel, {}));

    // The page owns the alert and the alert owns the handler, so the handler owns neither.
    const std::weak_ptr<UIAlertController> weakAlert = alert;
    const std::weak_ptr<SettingsListController> weakPage = self(this);
    const auto createTapped = [weakPage, weakAlert](UIAlertAction&) {
        const auto page = weakPage.lock();
        const auto shown = weakAlert.lock();
        if (!page || !shown)
            return;
        const auto field = shown->textFields().front();
        NSNotificationCenter::defaultCenter().removeObserver(*page,
                                                             platform::UITextFieldTextDidChangeNotification);
        page->createAccountWithName(field->text());
    };
    const auto create = UIAlertAction::actionWithTitle("Create", UIAlertActionStyle::Default, createTapped);
    create->setEnabled(false);
    alert->addAction(create);
    presentViewController(alert, true);
}

void SettingsListController::alertTextFieldDidChange(const platform::NSNotification& /*notification*/) {
    const auto alert = std::dynamic_pointer_cast<UIAlertController>(presentedViewController());
    if (!alert || alert->textFields().empty() || alert->actions().empty())
        return;
    alert->actions().back()->setEnabled(!alert->textFields().front()->text().empty());
}

void SettingsListController::createAccountWithName(const std::string& name) {
    const DocumentChange change = createAccount(documentPath(BundleIdentifier), name);
    if (!change.update.changed) {
        jLog("No account was created: the preferences document has no list of accounts.");
        return;
    }
    documentSnapshot.emplace(change.update.dictionary);
    announce(change);
    if (prefs_)
        addSpecifier(prefs_->link(name, &AppsController::theClass()), true);
    reloadSpecifiers();
}

} // namespace wardlock
