// The table that the bundle's module returns when it is loaded: its page classes by name.

#include "account/AppsController.h"
#include "apps/AppsListController.h"
#include "info/ChangeLogController.h"
#include "info/DeveloperController.h"
#include "platform/runtime/Class.h"
#include "root/SettingsListController.h"

extern "C" WARDLOCK_API platform::ClassTable wardlock_classes();

platform::ClassTable wardlock_classes() {
    static const platform::Class* const pages[] = {
        &wardlock::SettingsListController::theClass(), &wardlock::AppsController::theClass(),
        &wardlock::AppsListController::theClass(),     &wardlock::ChangeLogController::theClass(),
        &wardlock::DeveloperController::theClass(),
    };
    return pages;
}
