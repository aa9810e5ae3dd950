#pragma once

#include "platform/base/Translation.h"
#include "platform/preferences/PSListController.h"
#include "shell/device/BundleList.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace wardlock::shell {

/// The application's own first page: a row for each settings bundle of the device. A tap asks for admission,
/// loads the bundle and shows its first page; when that fails, an alert shows the reason.
class BundleListController : public platform::PSListController {
public:
    /// Calls its argument when the user may see a bundle's pages.
    using Admission = std::function<void(std::function<void()> open)>;

    explicit BundleListController(Admission admit) : admit_(std::move(admit)) {}
    ~BundleListController() override;

    const Specifiers& specifiers() override;
    std::string navigationTitle() const override { return platform::translated("Window", "Settings"); }
    /// Reads again which bundles exist.
    void viewWillAppear(bool animated) override;
    void tableViewDidSelectRowAtIndexPath(platform::NSIndexPath path) override;
    /// Loads the bundle of the row; null when that fails.
    std::shared_ptr<platform::UIViewController>
    detailPageForRowAtIndexPath(platform::NSIndexPath path) override;

private:
    void open(const BundleEntry& entry);
    void showFailure(const BundleEntry& entry, const std::string& reason);

    Admission admit_;
    BundleList bundles_;
};

} // namespace wardlock::shell
