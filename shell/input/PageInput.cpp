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
    if (auto why = obstacle())
        return why;
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

Answer PageInput::tapRow(NSIndexPath path) {
    return door_.enter([&] {
        if (!isEditing(path))
            endEditing();
        if (auto why = obstacleToRow(path))
            return Answer::refused(*why);
        const Row row = page().row(path);
        if (row.kind == RowKind::Slider)
            return Answer::refused("a slider is moved, not tapped");
        if (row.kind == RowKind::Switch)
            store(path, Value(!row.isOn()));
        else if (row.isTextField())
            beginEditingNow(path);
        else
            page().listController()->tableViewDidSelectRowAtIndexPath(path);
        return Answer::done();
    });
}

Answer PageInput::setSwitch(NSIndexPath path, bool on) {
    return door_.enter([&] {
        endEditing();
        if (auto why = obstacleToRow(path))
            return Answer::refused(*why);
        const Row row = page().row(path);
        if (row.kind != RowKind::Switch)
            return Answer::refused("the row is no switch");
        if (row.isOn() != on)
            store(path, Value(on));
        return Answer::done();
    });
}

Answer PageInput::moveSlider(NSIndexPath path, double value) {
    return door_.enter([&] {
        endEditing();
        if (auto why = obstacleToRow(path))
            return Answer::refused(*why);
        const Row row = page().row(path);
        if (row.kind != RowKind::Slider)
            return Answer::refused("the row is no slider");
        if (std::isnan(value) || value < row.min || value > row.max)
            return Answer::refused("the slider does not go that far");
        store(path, Value(value));
        return Answer::done();
    });
}

void PageInput::store(NSIndexPath path, const Value& value) {
    const auto specifier = page().specifier(path);
    // The control shows what the person made of it, whatever becomes of the value.
    page().show(specifier, value);
    changes_.row(screen_.page(), path);
    specifier->performSetter(&value);
}

Answer PageInput::beginEditing(NSIndexPath path) {
    return door_.enter([&] {
        if (!isEditing(path))
            endEditing();
        if (auto why = obstacleToRow(path))
            return Answer::refused(*why);
        if (!page().row(path).isTextField())
            return Answer::refused("the row is no text field");
        beginEditingNow(path);
        return Answer::done();
    });
}

void PageInput::beginEditingNow(NSIndexPath path) {
    if (isEditing(path))
        return;
    page().beginEdit(page().specifier(path));
    changes_.row(screen_.page(), path);
    changes_.editing();
}

Answer PageInput::typeText(std::string text) {
    return door_.enter([&] {
        if (auto why = screen_.obstacle())
            return Answer::refused(*why);
        const auto* edit = page().edit();
        if (!edit)
            return Answer::refused("no text field is being edited");
        const auto path = page().find(*edit->specifier);
        page().changeEdit(oneLine(std::move(text)));
        if (path)
            changes_.row(screen_.page(), *path);
        return Answer::done();
    });
}

bool PageInput::isAnybodyTyping() const {
    return std::ranges::any_of(screen_.pages(), [](const auto& page) { return page->edit() != nullptr; });
}

void PageInput::endEditing() {
    door_.enter([&] {
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
Answer PageInput::onTableSwitch(NSIndexPath path, Touch touch) {
    return door_.enter([&] {
        endEditing();
        if (auto why = obstacle())
            return Answer::refused(*why);
        const auto table = page().table();
        const auto row = table ? table->show(path) : nullptr;
        if (!row)
            return Answer::refused("there is no such row");
        const auto control = row->switchControl();
        if (!control)
            return Answer::refused("the row has no switch");
        touch(*control);
        return Answer::done();
    });
}

Answer PageInput::flipTableSwitch(NSIndexPath path) {
    return onTableSwitch(path, [](platform::UISwitch& control) { control.toggle(); });
}

Answer PageInput::setTableSwitch(NSIndexPath path, bool on) {
    return onTableSwitch(path, [on](platform::UISwitch& control) {
        if (control.isOn() != on)
            control.toggle();
    });
}

Answer PageInput::dragList() {
    return door_.enter([&] {
        if (auto why = obstacle())
            return Answer::refused(*why);
        if (!page().isList())
            return Answer::refused("the page is no list");
        page().listController()->scrollViewWillBeginDragging();
        return Answer::done();
    });
}

Answer PageInput::tapBarButton() {
    return door_.enter([&] {
        endEditing();
        if (auto why = obstacle())
            return Answer::refused(*why);
        const auto button = page().barButton();
        if (!button)
            return Answer::refused("the page has no such button");
        button->press();
        return Answer::done();
    });
}

Answer PageInput::goBack() {
    return door_.enter([&] {
        endEditing();
        if (auto why = screen_.obstacle())
            return Answer::refused(*why);
        if (screen_.pages().size() < 2)
            return Answer::refused("this is the first page");
        screen_.navigation().popViewControllerAnimated(true);
        return Answer::done();
    });
}

Answer PageInput::followLink(std::size_t number) {
    return follow([number](const auto& links) {
        return number > 0 && number <= links.size() ? number - 1 : links.size();
    });
}

Answer PageInput::followLink(std::string_view url) {
    return follow([url](const auto& links) {
        return static_cast<std::size_t>(std::ranges::find(links, url, &platform::WebLink::url) -
                                        links.begin());
    });
}

Answer PageInput::follow(const LinkSearch& search) {
    return door_.enter([&] {
        if (auto why = obstacle())
            return Answer::refused(*why);
        const auto web = page().contentView<platform::UIWebView>();
        if (!web)
            return Answer::refused("the page shows no web page");
        const std::size_t found = search(web->links());
        if (found == web->links().size())
            return Answer::refused("the web page has no such link");
        web->loadRequest({web->links()[found].url});
        return Answer::done();
    });
}

} // namespace wardlock::shell
