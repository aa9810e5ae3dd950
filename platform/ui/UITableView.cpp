#include "platform/ui/UITableView.h"

namespace platform {

UITableViewDataSource::~UITableViewDataSource() = default;
UITableViewDelegate::~UITableViewDelegate() = default;
UITableView::~UITableView() = default;

std::shared_ptr<UITableViewCell> UITableView::dequeueReusableCellWithIdentifier(std::string_view identifier) {
    const auto found = reusable_.find(identifier);
    if (found == reusable_.end() || found->second.empty())
        return nullptr;
    auto cell = std::move(found->second.back());
    found->second.pop_back();
    return cell;
}

std::size_t UITableView::numberOfSections() {
    const auto source = dataSource_.lock();
    return source ? source->numberOfSectionsInTableView(*this) : 0;
}

std::size_t UITableView::numberOfRowsInSection(std::size_t section) {
    const auto source = dataSource_.lock();
    return source ? source->tableViewNumberOfRowsInSection(*this, section) : 0;
}

double UITableView::heightForRow(NSIndexPath path) {
    constexpr double defaultHeight = 44;
    const auto delegate = delegate_.lock();
    return delegate ? delegate->tableViewHeightForRowAtIndexPath(*this, path) : defaultHeight;
}

std::shared_ptr<UITableViewCell> UITableView::takeCell(NSIndexPath path) {
    const auto source = dataSource_.lock();
    return source ? source->tableViewCellForRowAtIndexPath(*this, path) : nullptr;
}

void UITableView::giveBack(std::shared_ptr<UITableViewCell> cell) {
    if (cell)
        reusable_[cell->reuseIdentifier()].push_back(std::move(cell));
}

} // namespace platform
