#pragma once

#include "platform/ui/UIWebView.h"
#include "shell/input/InputResult.h"
#include "shell/screen/Screen.h"
#include "shell/screen/ScreenChanges.h"
#include "shell/screen/ShownAccount.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace wardlock::shell {

/// What the user can do with the page. Each call returns the reason when it is refused:
/// - something covers the page;
/// - the row is disabled or of another kind;
/// - the account that the page shows has been deleted.
///
/// An input elsewhere first ends the editing of a text row, and so stores what was typed. Nothing is thrown:
/// an exception of a page ends the process. Main thread only.
class PageInput {
public:
    PageInput(Screen& screen, ScreenChanges& changes, ShownAccount& account, PageBoundary& boundary)
        : screen_(screen), changes_(changes), account_(account), boundary_(boundary) {}

    /// Flips a switch, begins the editing of a text row, and selects any other row.
    InputResult tapRow(platform::NSIndexPath path);
    InputResult setSwitch(platform::NSIndexPath path, bool on);
    /// Moves a slider and lets go of it, as a continuous slider stores on release. `value` is between the
    /// row's min and max.
    InputResult moveSlider(platform::NSIndexPath path, double value);

    InputResult beginEditing(platform::NSIndexPath path);
    /// Replaces the text of the edited row by `text`, taken as one line.
    InputResult typeText(std::string text);
    /// Return, loss of focus: stores what was typed, unless its account has been deleted. Does nothing while
    /// no row is edited.
    void endEditing();

    /// Flips the switch of a row of the page's table.
    InputResult flipTableSwitch(platform::NSIndexPath path);
    InputResult setTableSwitch(platform::NSIndexPath path, bool on);

    /// Begins to drag the list.
    InputResult dragList();
    InputResult tapBarButton();
    /// Goes back, as by the back button or a finished back swipe.
    InputResult goBack();
    /// Follows a link of the web page shown, by its number from 1 or by its address; refused for any other.
    InputResult followLink(std::size_t number);
    InputResult followLink(std::string_view url);
    /// Loads the web page again, as after a failure.
    InputResult reloadWebPage();
    /// Returns to the web page before a followed link; refused where there is none.
    InputResult goBackOnWebPage();

private:
    /// Returns the index of a link, or the number of links where none matches.
    using LinkSearch = std::function<std::size_t(const std::vector<platform::WebLink>&)>;

    /// Also goes back where the page's account has been deleted.
    std::optional<std::string> obstacle();
    std::optional<std::string> obstacleToRow(platform::NSIndexPath path);
    void store(platform::NSIndexPath path, const platform::Value& value);
    InputResult follow(const LinkSearch& search);
    template <class Action>
    InputResult onWebPage(Action action);
    void beginEditingNow(platform::NSIndexPath path);
    bool isEditing(platform::NSIndexPath path) const;
    template <class Touch>
    InputResult onTableSwitch(platform::NSIndexPath path, Touch touch);

    bool isAnybodyTyping() const;

    Page& page() const { return *screen_.page(); }

    Screen& screen_;
    ScreenChanges& changes_;
    ShownAccount& account_;
    PageBoundary& boundary_;
};

} // namespace wardlock::shell
