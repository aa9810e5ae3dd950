#include "platform/preferences/PSListItemsController.h"

#include "platform/ui/DisplayObserver.h"
#include "platform/ui/UINavigationController.h"

#include <algorithm>

namespace platform {

const Class& PSListItemsController::theClass() {
    static const Class listItems("PSListItemsController", makeInstance<PSListItemsController>);
    return listItems;
}

PSListItemsController::~PSListItemsController() = default;

const PSListController::Specifiers& PSListItemsController::specifiers() {
    if (!hasSpecifiers() && specifier()) {
        Specifiers rows;
        const std::size_t choices = std::min(specifier()->titles().size(), specifier()->values().size());
        for (std::size_t i = 0; i < choices; ++i)
            rows.push_back(PSSpecifier::preferenceSpecifierNamed(specifier()->titles()[i], nullptr, {}, {},
                                                                 nullptr, PSCellType::StaticText, nullptr));
        setSpecifiers(std::move(rows));
    }
    return PSListController::specifiers();
}

void PSListItemsController::tableViewDidSelectRowAtIndexPath(NSIndexPath path) {
    if (!sections().at(path))
        return;
    const Value chosen = specifier()->values()[path.row];
    specifier()->performSetter(&chosen);
    DisplayObserver::current().listReloaded(*this);
    const auto stack = navigationController();
    if (!stack || stack->viewControllers().size() < 2)
        return;
    const auto& pages = stack->viewControllers();
    if (auto* opener = dynamic_cast<PSListController*>(pages[pages.size() - 2].get()))
        opener->reloadSpecifier(*specifier());
}

bool PSListItemsController::isChosen(NSIndexPath path) {
    if (!sections().at(path))
        return false;
    const auto current = specifier()->performGetter();
    return current && *current == specifier()->values()[path.row];
}

} // namespace platform
