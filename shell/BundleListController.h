#pragma once

#include "platform/preferences/PSListController.h"
#include "shell/device/BundleList.h"

namespace wardlock::shell {

/// The application's own first page: a row for each settings bundle of the device. A tap loads the bundle and
/// shows its first page; when that fails, an alert shows the reason.
class BundleListController : public platform::PSListController {
public:
    ~BundleListController() override;

    const Specifiers& specifiers() override;
    std::string navigationTitle() const override { return "Settings"; }
    /// Reads again which bundles exist.
    void viewWillAppear(bool animated) override;
    void tableViewDidSelectRowAtIndexPath(platform::NSIndexPath path) override;
    /// Loads the bundle of the row; null when that fails.
    std::shared_ptr<platform::UIViewController>
    detailPageForRowAtIndexPath(platform::NSIndexPath path) override;

private:
    void open(const BundleEntry& entry);
    void showFailure(const BundleEntry& entry, const std::string& reason);

    BundleList bundles_;
};

} // namespace wardlock::shell
