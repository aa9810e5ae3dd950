#include "shell/screen/Page.h"

#include "platform/ui/UIActivityIndicatorView.h"
#include "platform/ui/UITextView.h"
#include "platform/ui/UIWebView.h"

namespace wardlock::shell {

using platform::NSIndexPath;
using platform::PSSpecifier;
using platform::UIView;

namespace {

bool isContent(const UIView& view) {
    return dynamic_cast<const platform::UITableView*>(&view) ||
           dynamic_cast<const platform::UITextView*>(&view) ||
           dynamic_cast<const platform::UIWebView*>(&view) ||
           dynamic_cast<const platform::UIActivityIndicatorView*>(&view);
}

/// A view of content is shown as one unit: the views inside it are its own.
void collectContent(const std::shared_ptr<UIView>& view, std::vector<std::shared_ptr<UIView>>& found) {
    if (!view || view->isHidden())
        return;
    if (isContent(*view)) {
        found.push_back(view);
        return;
    }
    for (const auto& subview : view->subviews())
        collectContent(subview, found);
}

} // namespace

Page::Page(std::shared_ptr<platform::UIViewController> controller, PageBoundary& boundary)
    : controller_(std::move(controller)), list_(dynamic_cast<platform::PSListController*>(controller_.get())),
      items_(dynamic_cast<platform::PSListItemsController*>(controller_.get())), boundary_(boundary) {}

Page::~Page() = default;

std::string Page::title() {
    return boundary_.enter([&] {
        const std::string& barTitle = controller_->navigationItem().title();
        return barTitle.empty() ? controller_->title() : barTitle;
    });
}

std::shared_ptr<platform::UIBarButtonItem> Page::barButton() {
    return controller_->navigationItem().rightBarButtonItem();
}

bool Page::isList() {
    return list_ && boundary_.enter([&] { return list_->showsList(); });
}

std::size_t Page::sectionCount() {
    return list_ ? boundary_.enter([&] { return list_->sections().sections().size(); }) : 0;
}

Page::Section Page::section(std::size_t index) {
    return boundary_.enter([&] {
        const auto& section = list_->sections().sections().at(index);
        return Section{section.header(), section.footer(), section.rows.size()};
    });
}

std::shared_ptr<PSSpecifier> Page::specifier(NSIndexPath path) {
    return list_ ? boundary_.enter([&] { return list_->sections().at(path); }) : nullptr;
}

std::optional<NSIndexPath> Page::find(const PSSpecifier& specifier) {
    return list_ ? boundary_.enter([&] { return list_->sections().find(specifier); }) : std::nullopt;
}

bool Page::has(NSIndexPath path) {
    return specifier(path) != nullptr;
}

Row Page::row(NSIndexPath path) {
    return boundary_.enter([&] {
        const auto specifier = list_->sections().at(path);
        const Shown& now = shown(specifier, path);
        Row row = rowFor(*specifier, now.value);
        row.marked = now.marked;
        if (edit_ && edit_->specifier == specifier) {
            row.editing = true;
            row.text = shownText(row.kind, edit_->text);
        }
        return row;
    });
}

Page::Shown Page::read(const std::shared_ptr<PSSpecifier>& specifier, NSIndexPath path) {
    Shown shown;
    if (specifier->getAction())
        shown.value = specifier->performGetter();
    if (items_)
        shown.marked = items_->isChosen(path);
    return shown;
}

const Page::Shown& Page::shown(const std::shared_ptr<PSSpecifier>& specifier, NSIndexPath path) {
    // What most rows of a long list show.
    static const Shown nothing;
    const auto known = shown_.find(specifier);
    if (known != shown_.end())
        return known->second;
    if (!items_ && !specifier->getAction())
        return nothing;
    return shown_.emplace(specifier, read(specifier, path)).first->second;
}

std::vector<std::shared_ptr<UIView>> Page::content() {
    if (isList())
        return {};
    std::vector<std::shared_ptr<UIView>> found;
    collectContent(boundary_.enter([&] { return controller_->view(); }), found);
    return found;
}

std::shared_ptr<Table> Page::table() {
    const auto view = contentView<platform::UITableView>();
    if (!view)
        table_.reset();
    else if (!table_ || table_->view() != view)
        table_ = std::make_shared<Table>(view, boundary_);
    return table_;
}

void Page::renewTable() {
    if (list_ && !isList() && table())
        boundary_.tryEnter([&] { controller_->viewWillAppear(false); });
}

bool Page::holds(const UIView& view) const {
    if (!controller_->isViewLoaded())
        return false;
    const auto& mine = controller_->view();
    if (mine.get() == &view)
        return true;
    for (auto above = view.superview(); above; above = above->superview())
        if (above == mine)
            return true;
    return false;
}

void Page::beginEdit(std::shared_ptr<PSSpecifier> specifier) {
    const auto path = find(*specifier);
    std::string text;
    if (path && row(*path).value)
        text = fieldText(*row(*path).value);
    edit_ = TextEdit{std::move(specifier), std::move(text), false};
}

void Page::changeEdit(std::string text) {
    edit_->text = std::move(text);
    edit_->typed = true;
}

std::optional<TextEdit> Page::takeEdit() {
    return std::exchange(edit_, std::nullopt);
}

void Page::show(const std::shared_ptr<PSSpecifier>& specifier, std::optional<platform::Value> value) {
    shown_[specifier].value = std::move(value);
}

void Page::readRows() {
    boundary_.enter([&] {
        // A get action may rebuild the list; the new rows are then read when they are asked for.
        std::vector<platform::PSListSections::Section> sections;
        if (isList())
            sections = list_->sections().sections();
        for (std::size_t section = 0; section < sections.size(); ++section)
            for (std::size_t row = 0; row < sections[section].rows.size(); ++row)
                shown(sections[section].rows[row], {section, row});
        read_ = true;
    });
}

void Page::forgetValues() {
    shown_.clear();
    read_ = false;
}

void Page::forgetValue(const PSSpecifier& specifier) {
    read_ = false;
    std::erase_if(shown_, [&](const auto& entry) { return entry.first.get() == &specifier; });
}

void Page::listWasReloaded() {
    ++builds_;
    forgetValues();
    if (!edit_ || !list_)
        return;
    for (const auto& specifier : list_->specifiers())
        if (specifier->identifier() == edit_->specifier->identifier() &&
            specifier->cellType() == edit_->specifier->cellType())
            edit_->specifier = specifier;
}

std::vector<NSIndexPath> Page::refreshValues() {
    // A get action may rebuild the list and so change what is shown.
    std::vector<std::shared_ptr<PSSpecifier>> specifiers;
    for (const auto& [specifier, shown] : shown_)
        specifiers.push_back(specifier);
    std::vector<NSIndexPath> different;
    for (const auto& specifier : specifiers) {
        if (edit_ && edit_->specifier == specifier)
            continue;
        boundary_.tryEnter([&] {
            if (const auto path = refreshValue(specifier))
                different.push_back(*path);
        });
    }
    return different;
}

std::optional<NSIndexPath> Page::refreshValue(const std::shared_ptr<PSSpecifier>& specifier) {
    const auto path = list_->sections().find(*specifier);
    if (!path)
        return std::nullopt;
    Shown now = read(specifier, *path);
    const auto shown = shown_.find(specifier);
    if (shown == shown_.end() || now == shown->second)
        return std::nullopt;
    shown->second = std::move(now);
    return path;
}

void Page::rebuild() {
    const auto before = shown_;
    platform::PSListController::Specifiers rows;
    const bool rebuilt = boundary_.tryEnter([&] {
        rows = list_->specifiers();
        list_->reloadSpecifiers();
        rows = list_->specifiers();
    });
    if (!rebuilt) {
        boundary_.tryEnter([&] { list_->setSpecifiers(rows); });
        shown_ = before;
        return;
    }
    for (const auto& specifier : rows) {
        if (!specifier->getAction() ||
            boundary_.tryEnter([&] { shown_[specifier].value = specifier->performGetter(); }))
            continue;
        Shown& kept = shown_[specifier];
        for (const auto& [earlier, shown] : before)
            if (earlier->identifier() == specifier->identifier())
                kept = shown;
    }
    read_ = true;
}

} // namespace wardlock::shell
