#include "platform/preferences/PSListController.h"

#include "platform/ui/DisplayObserver.h"
#include "platform/ui/UINavigationController.h"

#include <utility>

namespace platform {

PSListController::PSListController() = default;
PSListController::~PSListController() = default;

const PSListController::Specifiers& PSListController::specifiers() {
    if (!specifiers_)
        specifiers_.emplace();
    return *specifiers_;
}

void PSListController::setSpecifiers(Specifiers specifiers) {
    specifiers_ = std::move(specifiers);
    sections_.reset();
}

void PSListController::reloadSpecifiers() {
    specifiers_.reset();
    sections_.reset();
    specifiers();
    DisplayObserver::current().listReloaded(*this);
}

void PSListController::reloadSpecifier(const PSSpecifier& specifier) {
    if (const auto path = sections().find(specifier))
        DisplayObserver::current().rowReloaded(*this, *path);
}

void PSListController::addSpecifier(const std::shared_ptr<PSSpecifier>& specifier, bool animated) {
    Specifiers longer = specifiers();
    longer.push_back(specifier);
    setSpecifiers(std::move(longer));
    if (const auto path = sections().find(*specifier))
        DisplayObserver::current().rowInserted(*this, *path, animated);
}

void PSListController::setSpecifier(std::shared_ptr<PSSpecifier> specifier) {
    specifier_ = std::move(specifier);
    changed();
}

std::string PSListController::navigationTitle() const {
    return specifier_ ? specifier_->name() : UIViewController::title();
}

void PSListController::viewWillAppear(bool animated) {
    UIViewController::viewWillAppear(animated);
    specifiers();
}

void PSListController::tableViewDidSelectRowAtIndexPath(NSIndexPath path) {
    const auto row = sections().at(path);
    if (!row)
        return;
    // The action may change the rows: another row may then be at this path.
    if (row->cellType() == PSCellType::Button)
        return row->performButtonAction();
    const auto stack = navigationController();
    if (!stack)
        return;
    if (const auto page = PSListController::detailPageForRowAtIndexPath(path))
        stack->pushViewController(page, true);
}

std::shared_ptr<UIViewController> PSListController::detailPageForRowAtIndexPath(NSIndexPath path) {
    const auto row = sections().at(path);
    const bool leadsOn =
        row && (row->cellType() == PSCellType::Link || row->cellType() == PSCellType::LinkList);
    if (!leadsOn || !row->detailControllerClass())
        return nullptr;
    auto page = std::dynamic_pointer_cast<UIViewController>(row->detailControllerClass()->create());
    if (auto* list = dynamic_cast<PSListController*>(page.get()))
        list->setSpecifier(row);
    return page;
}

const PSListSections& PSListController::sections() {
    const Specifiers& current = specifiers();
    if (!sections_)
        sections_.emplace(current);
    return *sections_;
}

bool PSListController::showsList() {
    return view() && view() == listView_.lock();
}

std::shared_ptr<UIView> PSListController::loadView() {
    auto list = UIViewController::loadView();
    listView_ = list;
    return list;
}

} // namespace platform
