#include "shell/screen/ShownAccount.h"

#include "shell/screen/OneLine.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace wardlock::shell {

namespace {

/// Positions of pages on the stack; below them is the list of bundles.
constexpr std::size_t listPlace = 1;
constexpr std::size_t openedPlace = 2;

std::string sentence(AccountFate fate, const std::string& name) {
    const std::string account =
        name.empty() ? "the account" : "the account \u201c" + oneLine(name) + "\u201d";
    return fate == AccountFate::Moved ? "Another program moved " + account + " in the list of accounts."
                                      : "Another program removed " + account + '.';
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
    if (opened_.lock() != opened)
        position_ = opened ? positionShownBy(*opened, *list) : std::nullopt;
    opened_ = opened;
}

std::optional<std::size_t> ShownAccount::positionShownBy(Page& opened, Page& list) const {
    const auto row = opened.listController() ? opened.listController()->specifier() : nullptr;
    const auto path = row ? list.find(*row) : std::nullopt;
    if (!path)
        return std::nullopt;
    std::vector<std::string> names;
    for (const auto& listed : list.listController()->sections().sections()[path->section].rows)
        names.push_back(listed->name());
    return names == known_.names() ? std::optional(path->row) : std::nullopt;
}

void ShownAccount::acceptOwnChange() {
    if (!position_)
        return;
    if (auto now = Accounts::onDiskIfReadable())
        known_ = *std::move(now);
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
    known_ = *std::move(now);
    return false;
}

void ShownAccount::leave(const std::string& reason) {
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
    screen_.addNotice(reason + (typed ? " What was being typed is not stored." : ""));
    changes_.notice();
}

} // namespace wardlock::shell
