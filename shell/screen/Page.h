#pragma once

#include "platform/preferences/PSListItemsController.h"
#include "platform/ui/UIBarButtonItem.h"
#include "shell/screen/PageBoundary.h"
#include "shell/screen/Row.h"
#include "shell/screen/Table.h"
#include "shell/screen/TextEdit.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace wardlock::shell {

/// One page of the stack as the user sees it. A list page shows sections of rows. Their values are read
/// through their get actions when the page comes on top, and kept until the page announces a change. Any
/// other page shows the views in content().
///
/// Reading never throws: an exception of a page ends the process. A page and its controller live as long as a
/// front end keeps a pointer. Main thread only.
class Page {
public:
    struct Section {
        /// Empty for none.
        std::string header;
        std::string footer;
        std::size_t rowCount = 0;
    };

    Page(std::shared_ptr<platform::UIViewController> controller, PageBoundary& boundary);
    ~Page();
    Page(const Page&) = delete;
    Page& operator=(const Page&) = delete;

    platform::UIViewController& controller() const { return *controller_; }
    /// Returns the controller when it is a list page; isList() returns whether the page also shows its list.
    platform::PSListController* listController() const { return list_; }

    std::string title();
    /// Returns the button of the bar; null for none.
    std::shared_ptr<platform::UIBarButtonItem> barButton();
    bool isList();

    std::size_t sectionCount();
    /// Precondition: the section exists.
    Section section(std::size_t index);
    bool has(platform::NSIndexPath path);
    /// Precondition: the row exists.
    Row row(platform::NSIndexPath path);
    /// Returns null when there is no such row.
    std::shared_ptr<platform::PSSpecifier> specifier(platform::NSIndexPath path);
    std::optional<platform::NSIndexPath> find(const platform::PSSpecifier& specifier);

    /// Returns what a page that is not a list shows: its visible tables, text views, web views and spinners,
    /// the lower ones first.
    std::vector<std::shared_ptr<platform::UIView>> content();
    /// Returns the first view of that class; null where the page has none.
    template <class View>
    std::shared_ptr<View> contentView() {
        for (const auto& view : content())
            if (auto wanted = std::dynamic_pointer_cast<View>(view))
                return wanted;
        return nullptr;
    }
    /// Returns the page's table; null where it has none.
    std::shared_ptr<Table> table();
    /// Returns the table that table() returned last; null before the first call.
    const std::shared_ptr<Table>& shownTable() const { return table_; }
    /// Has a list page that shows a table create its view again, as whenever it appears: the table has what
    /// is stored now. A page that throws keeps its view.
    void renewTable();
    /// Returns whether the view is, or is inside, the page's view.
    bool holds(const platform::UIView& view) const;

    /// Returns the edit of one of the rows; null while there is none.
    const TextEdit* edit() const { return edit_ ? &*edit_ : nullptr; }
    void beginEdit(std::shared_ptr<platform::PSSpecifier> specifier);
    void changeEdit(std::string text);
    std::optional<TextEdit> takeEdit();

    /// Sets what the row's control shows from now on, without reading the row again.
    void show(const std::shared_ptr<platform::PSSpecifier>& specifier, std::optional<platform::Value> value);
    /// Returns whether every row of a list has been read since it was built or forgotten.
    bool isRead() const { return read_; }
    /// Reads the rows that have not been read yet.
    void readRows();
    /// Rows are read again by readRows(), or when they are next asked for.
    void forgetValue(const platform::PSSpecifier& specifier);
    void forgetValues();
    /// To be called after the list was rebuilt; an edit continues in the new row of its key.
    void listWasReloaded();
    /// The number of rebuilds.
    std::size_t builds() const { return builds_; }
    /// Reads the shown rows again, an edited one aside, and returns those that look different. A row whose
    /// page throws keeps its value.
    std::vector<platform::NSIndexPath> refreshValues();
    /// Rebuilds the list and reads the values of its rows. A list that throws stays as it was, and so does
    /// the value of a row; a new row then has no value.
    void rebuild();

private:
    /// What a row last showed. Only rows that have something to read are remembered.
    struct Shown {
        std::optional<platform::Value> value;
        bool marked = false;

        bool operator==(const Shown&) const = default;
    };

    Shown read(const std::shared_ptr<platform::PSSpecifier>& specifier, platform::NSIndexPath path);
    const Shown& shown(const std::shared_ptr<platform::PSSpecifier>& specifier, platform::NSIndexPath path);
    /// Returns the position of the row when it looks different now.
    std::optional<platform::NSIndexPath>
    refreshValue(const std::shared_ptr<platform::PSSpecifier>& specifier);

    std::shared_ptr<platform::UIViewController> controller_;
    platform::PSListController* list_;
    /// The same, where the page lists the values of a row; else null.
    platform::PSListItemsController* items_;
    PageBoundary& boundary_;
    std::map<std::shared_ptr<platform::PSSpecifier>, Shown> shown_;
    bool read_ = false;
    std::size_t builds_ = 0;
    std::optional<TextEdit> edit_;
    std::shared_ptr<Table> table_;
};

} // namespace wardlock::shell
