#pragma once

#include "platform/preferences/PSListController.h"
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

/// One page of the stack as a person sees it. A list page shows sections of rows, whose values are read
/// through their get actions when the page comes on top and kept until the page says that they changed; any
/// other page shows the views that stand in content(). Reading never throws: what a page throws ends the
/// process. Lives as long as a face holds it; the controller then lives with it. Main thread only.
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
    /// The controller when it is a list page; whether it also shows its list is for isList() to say.
    platform::PSListController* listController() const { return list_; }

    std::string title();
    /// What the bar's button shows; null for none.
    std::shared_ptr<platform::UIBarButtonItem> barButton();
    bool isList();

    std::size_t sectionCount();
    /// Precondition: the section exists.
    Section section(std::size_t index);
    bool has(platform::NSIndexPath path);
    /// Precondition: the row exists.
    Row row(platform::NSIndexPath path);
    /// Null when there is no such row.
    std::shared_ptr<platform::PSSpecifier> specifier(platform::NSIndexPath path);
    std::optional<platform::NSIndexPath> find(const platform::PSSpecifier& specifier);

    /// What a page that is no list shows: its tables, text views, web views and spinners that are not hidden,
    /// the lower ones first.
    std::vector<std::shared_ptr<platform::UIView>> content();
    /// The first of the kind; null where the page has none.
    template <class View>
    std::shared_ptr<View> contentView() {
        for (const auto& view : content())
            if (auto wanted = std::dynamic_pointer_cast<View>(view))
                return wanted;
        return nullptr;
    }
    /// The page's table; null where it has none.
    std::shared_ptr<Table> table();
    /// The table as last asked for; null while nobody has.
    const std::shared_ptr<Table>& shownTable() const { return table_; }
    /// Whether the view is, or lies in, the page's view.
    bool holds(const platform::UIView& view) const;

    /// The typing in one of the rows; null while there is none.
    const TextEdit* edit() const { return edit_ ? &*edit_ : nullptr; }
    void beginEdit(std::shared_ptr<platform::PSSpecifier> specifier);
    void changeEdit(std::string text);
    std::optional<TextEdit> takeEdit();

    /// What the row's control shows from now on, without reading it again.
    void show(const std::shared_ptr<platform::PSSpecifier>& specifier, std::optional<platform::Value> value);
    /// Whether every row of a list has been read since it was built or forgotten.
    bool isRead() const { return read_; }
    /// Reads the rows that have not been read yet.
    void readRows();
    /// Rows are read again by readRows(), or when they are next asked for.
    void forgetValue(const platform::PSSpecifier& specifier);
    void forgetValues();
    /// The list was built anew; an edit goes on in the new row of its key.
    void listWasReloaded();
    /// How often it was.
    std::size_t builds() const { return builds_; }
    /// Reads the rows again that are being shown, an edited one aside; answers those that look different.
    /// A row whose page throws keeps its value.
    std::vector<platform::NSIndexPath> refreshValues();
    /// Builds the list anew and reads the values of its rows. A list that throws stays as it was, and so does
    /// the value of a row; a new row has none then.
    void rebuild();

private:
    /// What a row was last seen to show.
    struct Shown {
        std::optional<platform::Value> value;
        bool marked = false;

        bool operator==(const Shown&) const = default;
    };

    Shown read(const std::shared_ptr<platform::PSSpecifier>& specifier, platform::NSIndexPath path);
    const Shown& shown(const std::shared_ptr<platform::PSSpecifier>& specifier, platform::NSIndexPath path);
    /// Where the row stands when it looks different now.
    std::optional<platform::NSIndexPath>
    refreshValue(const std::shared_ptr<platform::PSSpecifier>& specifier);

    std::shared_ptr<platform::UIViewController> controller_;
    platform::PSListController* list_;
    PageBoundary& boundary_;
    std::map<std::shared_ptr<platform::PSSpecifier>, Shown> shown_;
    bool read_ = false;
    std::size_t builds_ = 0;
    std::optional<TextEdit> edit_;
    std::shared_ptr<Table> table_;
};

} // namespace wardlock::shell
