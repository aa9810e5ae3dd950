#include "settings/history/ChangeAnnouncement.h"

#include "settings/ChangeNotification.h"
#include "settings/Constants.h"
#include "settings/Keys.h"

#include <algorithm>

namespace wardlock {

namespace {

using platform::Value;

void postReload(std::string_view identifier) {
    platform::CFNotificationCenterPostNotification(platform::CFNotificationCenterGetDistributedCenter(),
                                                   changeNotificationName(identifier, PostName), nullptr,
                                                   nullptr, true);
}

bool isEnabling(const Change& change) {
    return change.kind == Change::Kind::AccountValue && change.key == kAccountEnabled && change.now &&
           platform::boolValue(&*change.now);
}

bool isDisabling(const Change& change) {
    return change.kind == Change::Kind::AccountValue && change.key == kAccountEnabled && !isEnabling(change);
}

} // namespace

void announceChanges(const std::vector<Change>& changes, const platform::Dictionary& now,
                     std::string_view identifier) {
    const bool enabling = std::ranges::any_of(changes, isEnabling);
    const Value* accounts = now.find(kAccounts);
    for (const Change& change : changes) {
        const bool whole =
            change.kind == Change::Kind::AccountAdded || change.kind == Change::Kind::AccountDeleted;
        const std::string_view key = whole ? kAccounts : std::string_view(change.key);
        if (enabling && isDisabling(change))
            continue;
        if (change.kind == Change::Kind::AccountDeleted && accounts)
            postChange(identifier, PostName, key, *accounts);
        else if (change.now)
            postChange(identifier, PostName, key, *change.now);
        else
            postReload(identifier);
    }
}

} // namespace wardlock
