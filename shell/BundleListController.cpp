#include "shell/BundleListController.h"

#include "platform/base/Translation.h"
#include "platform/ui/UIAlertController.h"
#include "platform/ui/UINavigationController.h"

namespace wardlock::shell {

using platform::PSCellType;
using platform::PSSpecifier;

namespace {

std::shared_ptr<PSSpecifier> specifierNamed(const std::string& name, PSCellType cell) {
    return PSSpecifier::preferenceSpecifierNamed(name, nullptr, {}, {}, nullptr, cell, nullptr);
}

/// Returns the bundle's first page; null with the reason when the bundle offers none.
std::shared_ptr<platform::UIViewController> firstPage(const BundleEntry& entry, std::string& reason) {
    const platform::Class* principal = entry.bundle->principalClass(reason);
    if (!principal)
        return nullptr;
    auto page = std::dynamic_pointer_cast<platform::UIViewController>(principal->create());
    if (!page)
        reason = std::string(principal->name()) + " is not a page";
    return page;
}

} // namespace

BundleListController::~BundleListController() = default;

const platform::PSListController::Specifiers& BundleListController::specifiers() {
    if (hasSpecifiers())
        return PSListController::specifiers();
    bundles_ = BundleList();
    Specifiers rows{specifierNamed("", PSCellType::Group)};
    std::string footer;
    for (const auto& sentence : bundles_.leftOut())
        footer += (footer.empty() ? "" : "\n") + sentence;
    if (bundles_.entries().empty())
        footer = platform::translated("Bundles", "There are no settings bundles on this device.") +
                 (footer.empty() ? "" : "\n" + footer);
    if (!footer.empty())
        rows.front()->setProperty(platform::Value(footer), platform::PSKey::footerText);
    for (const auto& entry : bundles_.entries()) {
        rows.push_back(specifierNamed(entry.name, PSCellType::Link));
        const auto& info = entry.bundle->infoDictionary();
        if (const auto identifier = platform::stringValue(info.find("CFBundleIdentifier")))
            rows.back()->setIdentifier(*identifier);
        if (entry.icon)
            rows.back()->setProperty(entry.icon, platform::PSKey::iconImage);
    }
    setSpecifiers(std::move(rows));
    return PSListController::specifiers();
}

void BundleListController::viewWillAppear(bool animated) {
    if (hasSpecifiers())
        reloadSpecifiers();
    PSListController::viewWillAppear(animated);
}

void BundleListController::tableViewDidSelectRowAtIndexPath(platform::NSIndexPath path) {
    if (path.section == 0 && path.row < bundles_.entries().size()) {
        const BundleEntry entry = bundles_.entries()[path.row];
        admit_([this, entry] { open(entry); });
    }
}

std::shared_ptr<platform::UIViewController>
BundleListController::detailPageForRowAtIndexPath(platform::NSIndexPath path) {
    std::string reason;
    return path.section == 0 && path.row < bundles_.entries().size()
               ? firstPage(bundles_.entries()[path.row], reason)
               : nullptr;
}

void BundleListController::open(const BundleEntry& entry) {
    std::string reason;
    const auto page = firstPage(entry, reason);
    if (!page)
        return showFailure(entry, reason);
    if (page->title().empty())
        page->setTitle(entry.name);
    if (page->title().empty())
        page->navigationItem().setTitle(entry.name);
    if (const auto navigation = navigationController())
        navigation->pushViewController(page, true);
}

void BundleListController::showFailure(const BundleEntry& entry, const std::string& reason) {
    const auto alert = platform::UIAlertController::alertControllerWithTitle(
        platform::filledIn(platform::translated("Bundles", "Cannot Open %1"), {entry.name}), reason,
        platform::UIAlertControllerStyle::Alert);
    alert->addAction(platform::UIAlertAction::actionWithTitle(platform::translated("Bundles", "OK"),
                                                              platform::UIAlertActionStyle::Cancel, {}));
    presentViewController(alert, true);
}

} // namespace wardlock::shell
