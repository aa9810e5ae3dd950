#include "shell/input/PageInput.h"

#include "shell/screen/OneLine.h"

#include <algorithm>
#include <cmath>

namespace wardlock::shell {

using platform::NSIndexPath;
using platform::Value;

std::optional<std::string> PageInput::obstacle() {
    if (account_.leaveIfGone())
        return "the page is gone";
    return screen_.obstacle();
}

std::optional<std::string> PageInput::obstacleToRow(NSIndexPath path) {
    if (auto reason = obstacle())
        return reason;
    if (!page().isList() || !page().has(path))
        return "there is no such row";
    if (!page().row(path).enabled)
        return "the row is disabled";
    return std::nullopt;
}

bool PageInput::isEditing(NSIndexPath path) const {
    const auto* edit = page().edit();
    return edit && edit->specifier == page().specifier(path);
}

InputResult PageInput::tapRow(NSIndexPath path) {
    return boundary_.enterForUser([&] {
        if (!isEditing(path))
            endEditing();
        if (auto reason = obstacleToRow(path))
            return InputResult::refused(*reason);
        const Row row = page().row(path);
        if (row.kind == RowKind::Slider)
            return InputResult::refused("a slider is moved, not tapped");
        if (row.kind == RowKind::Switch)
            store(path, Value(!row.isOn()));
        else if (row.isTextField())
            beginEditingNow(path);
        else
            page().listController()->tableViewDidSelectRowAtIndexPath(path);
        return InputResult::done();
    });
}

InputResult PageInput::setSwitch(NSIndexPath path, bool on) {
    return boundary_.enterForUser([&] {
        endEditing();
        if (auto reason = obstacleToRow(path))
            return InputResult::refused(*reason);
        const Row row = page().row(path);
        if (row.kind != RowKind::Switch)
            return InputResult::refused("the row is not a switch");
        if (row.isOn() != on)
            store(path, Value(on));
        return InputResult::done();
    });
}

InputResult PageInput::moveSlider(NSIndexPath path, double value) {
    return boundary_.enterForUser([&] {
        endEditing();
        if (auto reason = obstacleToRow(path))
            return InputResult::refused(*reason);
        const Row row = page().row(path);
        if (row.kind != RowKind::Slider)
            return InputResult::refused("the row is not a slider");
        if (std::isnan(value) || value < row.min || value > row.max)
            return InputResult::refused("the value is outside the range of the slider");
        store(path, Value(value));
        return InputResult::done();
    });
}

void PageInput::store(NSIndexPath path, const Value& value) {
    const auto specifier = page().specifier(path);
    // The control shows what the user set, whatever the page stores.
    page().show(specifier, value);
    changes_.row(screen_.page(), path);
    specifier->performSetter(&value);
}

InputResult PageInput::beginEditing(NSIndexPath path) {
    return boundary_.enterForUser([&] {
        if (!isEditing(path))
            endEditing();
        if (auto reason = obstacleToRow(path))
            return InputResult::refused(*reason);
        if (!page().row(path).isTextField())
            return InputResult::refused("the row is not a text field");
        beginEditingNow(path);
        return InputResult::done();
    });
}

void PageInput::beginEditingNow(NSIndexPath path) {
    if (isEditing(path))
        return;
    page().beginEdit(page().specifier(path));
    changes_.row(screen_.page(), path);
    changes_.editing();
}

InputResult PageInput::typeText(std::string text) {
    return boundary_.enterForUser([&] {
        if (auto reason = screen_.obstacle())
            return InputResult::refused(*reason);
        const auto* edit = page().edit();
        if (!edit)
            return InputResult::refused("no text field is being edited");
        const auto path = page().find(*edit->specifier);
        page().changeEdit(oneLine(std::move(text)));
        if (path)
            changes_.row(screen_.page(), *path);
        return InputResult::done();
    });
}

bool PageInput::isAnybodyTyping() const {
    return std::ranges::any_of(screen_.pages(), [](const auto& page) { return page->edit() != nullptr; });
}

void PageInput::endEditing() {
    boundary_.enter([&] {
        if (!isAnybodyTyping() || account_.leaveIfGone())
            return;
        for (const auto& page : screen_.pages()) {
            const auto edit = page->takeEdit();
            if (!edit)
                continue;
            changes_.editing();
            if (edit->typed)
                page->show(edit->specifier, Value(edit->text));
            if (const auto path = page->find(*edit->specifier))
                changes_.row(page, *path);
            const Value value(edit->text);
            if (edit->typed)
                edit->specifier->performSetter(&value);
        }
    });
}

template <class Touch>
InputResult PageInput::onTableSwitch(NSIndexPath path, Touch touch) {
    return boundary_.enterForUser([&] {
        endEditing();
        const auto seen = page().table();
        if (auto reason = obstacle())
            return InputResult::refused(*reason);
        const auto table = page().table();
        // What the user tapped may be elsewhere now, and the switch may show another state.
        if (table != seen)
            return InputResult::refused("another program changed the list");
        const auto row = table ? table->show(path) : nullptr;
        if (!row)
            return InputResult::refused("there is no such row");
        const auto control = row->switchControl();
        if (!control)
            return InputResult::refused("the row has no switch");
        touch(*control);
        return InputResult::done();
    });
}

InputResult PageInput::flipTableSwitch(NSIndexPath path) {
    return onTableSwitch(path, [](platform::UISwitch& control) { control.toggle(); });
}

InputResult PageInput::setTableSwitch(NSIndexPath path, bool on) {
    return onTableSwitch(path, [on](platform::UISwitch& control) {
        if (control.isOn() != on)
            control.toggle();
    });
}

InputResult PageInput::dragList() {
    return boundary_.enterForUser([&] {
        if (auto reason = obstacle())
            return InputResult::refused(*reason);
        if (!page().isList())
            return InputResult::refused("the page is not a list");
        page().listController()->scrollViewWillBeginDragging();
        return InputResult::done();
    });
}

InputResult PageInput::tapBarButton() {
    return boundary_.enterForUser([&] {
        endEditing();
        if (auto reason = obstacle())
            return InputResult::refused(*reason);
        const auto button = page().barButton();
        if (!button)
            return InputResult::refused("the page has no such button");
        button->press();
        return InputResult::done();
    });
}

InputResult PageInput::goBack() {
    return boundary_.enterForUser([&] {
        endEditing();
        if (auto reason = screen_.obstacle())
            return InputResult::refused(*reason);
        if (screen_.pages().size() < 2)
            return InputResult::refused("this is the first page");
        screen_.navigation().popViewControllerAnimated(true);
        return InputResult::done();
    });
}

InputResult PageInput::followLink(std::size_t number) {
    return follow([number](const auto& links) {
        return number > 0 && number <= links.size() ? number - 1 : links.size();
    });
}

InputResult PageInput::followLink(std::string_view url) {
    return follow([url](const auto& links) {
        return static_cast<std::size_t>(std::ranges::find(links, url, &platform::WebLink::url) -
                                        links.begin());
    });
}

InputResult PageInput::follow(const LinkSearch& search) {
    return onWebPage([&](platform::UIWebView& web) {
        const std::size_t found = search(web.links());
        if (found == web.links().size())
            return InputResult::refused("the web page has no such link");
        web.loadRequest({web.links()[found].url});
        return InputResult::done();
    });
}

InputResult PageInput::reloadWebPage() {
    return onWebPage([](platform::UIWebView& web) {
        web.reload();
        return InputResult::done();
    });
}

InputResult PageInput::goBackOnWebPage() {
    return onWebPage([](platform::UIWebView& web) {
        if (!web.canGoBack())
            return InputResult::refused("there is no earlier web page");
        web.goBack();
        return InputResult::done();
    });
}

template <class Action>
InputResult PageInput::onWebPage(Action action) {
    return boundary_.enterForUser([&] {
        if (auto reason = obstacle())
            return InputResult::refused(*reason);
        const auto web = page().contentView<platform::UIWebView>();
        return web ? action(*web) : InputResult::refused("the page shows no web page");
    });
}

} // namespace wardlock::shell
