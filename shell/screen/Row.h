#pragma once

#include "platform/preferences/PSSpecifier.h"
#include "platform/ui/UIImage.h"
#include "platform/values/Value.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wardlock::shell {

enum class RowKind { Link, LinkList, Slider, Switch, StaticText, EditText, SecureEditText, Button };

/// Returns the kind's name for scripts: "link", "linkList", "slider" and so on.
std::string_view name(RowKind kind);

/// One row of a list page as the user sees it now.
struct Row {
    RowKind kind = RowKind::StaticText;
    std::string label;
    /// The key of the stored value, by which the row is addressed; it is not shown. Empty where there is
    /// none.
    std::string key;
    /// The value as its page keeps it; none where it has none.
    std::optional<platform::Value> value;
    /// The value as text: the content of a text field, the chosen title of a link list, a slider's number.
    /// Secure text is replaced by as many bullets.
    std::string text;
    bool enabled = true;
    /// On the page of a link list: whether the row carries the mark.
    bool marked = false;
    /// Null for none.
    std::shared_ptr<platform::UIImage> icon;

    /// Text fields.
    std::string placeholder;
    bool numberPad = false;
    /// Whether the user is editing it; `text` is then what has been typed.
    bool editing = false;

    /// Sliders.
    double min = 0;
    double max = 1;
    bool showsValue = false;

    /// The titles of a link list.
    std::vector<std::string> choices;

    /// Switches.
    bool isOn() const { return kind == RowKind::Switch && value && platform::boolValue(&*value); }
    /// Sliders: the value between min and max.
    double position() const;
    bool isTextField() const { return kind == RowKind::EditText || kind == RowKind::SecureEditText; }
};

/// Returns the row of a specifier that shows `value`.
Row rowFor(const platform::PSSpecifier& specifier, const std::optional<platform::Value>& value);

/// Returns a value as the text of a text field; empty for kinds that are neither text nor number.
std::string fieldText(const platform::Value& value);

/// Returns what a text field shows: the text, or as many bullets.
std::string shownText(RowKind kind, std::string_view text);

} // namespace wardlock::shell
