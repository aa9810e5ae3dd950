#pragma once

#include "platform/preferences/PSListController.h"

#include <memory>
#include <string>

namespace wardlock {

/// A list page that shows a view of its own in place of rows: a new one each time it is about to appear. Main
/// thread only.
class ViewListController : public platform::PSListController {
public:
    std::string navigationTitle() const override { return title_; }
    void viewWillAppear(bool animated) override;

protected:
    explicit ViewListController(const char* title) : title_(title) {}

    virtual std::shared_ptr<platform::UIView> makeView(const platform::CGRect& frame) = 0;

private:
    const char* title_;
};

} // namespace wardlock
