#include "shell/screen/ShownAccount.h"

#include "platform/base/Translation.h"
#include "settings/Keys.h"
#include "shell/screen/OneLine.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace wardlock::shell {

namespace {

/// Positions of pages on the stack; below them is the list of bundles.
constexpr std::size_t listPlace = 1;
constexpr std::size_t openedPlace = 2;

bool isSameValue(const platform::Dictionary* before, const platform::Dictionary* now, std::string_view key) {
    const platform::Value* was = before ? before->find(key) : nullptr;
    const platform::Value* is = now ? now->find(key) : nullptr;
    return was && is ? *was == *is : was == is;
}

std::vector<std::string> labels(const platform::PSListSections::Section& section) {
    std::vector<std::string> labels;
    for (const auto& row : section.rows)
        labels.push_back(row->name());
    return labels;
}

std::string sentence(AccountFate fate, const std::string& name) {
    using platform::translated;
    const bool moved = fate == AccountFate::Moved;
    if (name.empty())
        return moved ? translated("Notice", "Another program moved the account in the list of accounts.")
                     : translated("Notice", "Another program removed the account.");
    return platform::filledIn(
        moved ? translated("Notice", "Another program moved the account “%1” in the list of accounts.")
              : translated("Notice", "Another program removed the account “%1”."),
        {oneLine(name)});
}

} // namespace

void ShownAccount::follow() {
    const auto& pages = screen_.pages();
    const auto list = pages.size() > listPlace ? pages[listPlace] : nullptr;
    const auto opened = pages.size() > openedPlace ? pages[openedPlace] : nullptr;
    if (list && !opened && (list_.lock() != list || build_ != list->builds())) {
        known_ = Accounts::onDisk();
        build_ = list->builds();
    }
    list_ = list;
    // The page that was opened may be gone already; then both are null.
    if (!opened)
        position_.reset();
    else if (opened_.lock() != opened)
        position_ = positionShownBy(*opened, *list);
    opened_ = opened;
}

std::optional<std::size_t> ShownAccount::positionShownBy(Page& opened, Page& list) const {
    const auto row = opened.listController() ? opened.listController()->specifier() : nullptr;
    const auto path = row ? list.find(*row) : std::nullopt;
    if (!path)
        return std::nullopt;
    const auto sections = list.listController()->sections().sections();
    return labels(sections[path->section]) == known_.names() ? std::optional(path->row) : std::nullopt;
}

std::optional<platform::NSIndexPath> ShownAccount::rowOf(std::size_t position) const {
    const auto list = list_.lock();
    if (!list || !list->isList() || position >= known_.size())
        return std::nullopt;
    const auto sections = list->listController()->sections().sections();
    for (std::size_t section = 0; section < sections.size(); ++section)
        if (labels(sections[section]) == known_.names())
            return platform::NSIndexPath{section, position};
    return std::nullopt;
}

void ShownAccount::acceptOwnChange() {
    if (!position_)
        return;
    auto now = Accounts::onDiskIfReadable();
    if (!now)
        return;
    // The page may have deleted its account.
    const bool same = known_.fate(*position_, *now) == AccountFate::Same;
    known_ = *std::move(now);
    if (same)
        followName();
}

bool ShownAccount::leaveIfGone() {
    if (!position_)
        return false;
    auto now = Accounts::onDiskIfReadable();
    if (!now)
        return false;
    const AccountFate fate = known_.fate(*position_, *now);
    if (fate != AccountFate::Same) {
        leave(sentence(fate, known_.name(*position_)));
        return true;
    }
    const bool sameApplications =
        isSameValue(known_.record(*position_), now->record(*position_), kAppsRestricted);
    known_ = *std::move(now);
    followName();
    if (!sameApplications)
        screen_.page()->renewTable();
    return false;
}

/// The page's title is the label of the row that opened it. That row is created again with the list only.
void ShownAccount::followName() {
    const auto opened = opened_.lock();
    const auto row = opened ? opened->listController()->specifier() : nullptr;
    const std::string name = known_.name(*position_);
    if (!row || row->name() == name)
        return;
    row->setName(name);
    changes_.page(opened);
    const auto list = list_.lock();
    if (const auto path = list ? list->find(*row) : std::nullopt)
        changes_.row(list, *path);
}

void ShownAccount::leave(const std::string& reason) {
    const bool typed = popToList();
    screen_.addNotice(reason);
    if (typed)
        screen_.addNotice(platform::translated("Notice", "What was being typed is not stored."));
    changes_.notice();
}

void ShownAccount::leaveForList() {
    if (position_)
        popToList();
}

bool ShownAccount::popToList() {
    position_.reset();
    const auto pages = screen_.pages();
    bool typed = false;
    for (std::size_t i = openedPlace; i < pages.size(); ++i) {
        if (const auto edit = pages[i]->takeEdit()) {
            typed = typed || edit->typed;
            changes_.editing();
        }
        if (pages[i]->controller().presentedViewController())
            pages[i]->controller().dismissViewControllerAnimated(false);
    }
    screen_.navigation().popToViewController(pages[listPlace]->controller(), true);
    return typed;
}

} // namespace wardlock::shell
