#include "shell/screen/Row.h"

#include "platform/preferences/PSTextFieldSpecifier.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace wardlock::shell {

using platform::PSCellType;
using platform::Value;

namespace {

RowKind kindOf(PSCellType cell) {
    switch (cell) {
    case PSCellType::Link:
        return RowKind::Link;
    case PSCellType::LinkList:
        return RowKind::LinkList;
    case PSCellType::Slider:
        return RowKind::Slider;
    case PSCellType::Switch:
        return RowKind::Switch;
    case PSCellType::EditText:
        return RowKind::EditText;
    case PSCellType::SecureEditText:
        return RowKind::SecureEditText;
    case PSCellType::Button:
        return RowKind::Button;
    case PSCellType::Group:
    case PSCellType::StaticText:
        break;
    }
    return RowKind::StaticText;
}

template <class Number>
std::string numberText(Number number) {
    char text[32];
    const auto end = std::to_chars(std::begin(text), std::end(text), number).ptr;
    return {text, end};
}

/// Returns the short title of the value; empty when the value is not one of the choices.
std::string chosenTitle(const platform::PSSpecifier& specifier, const Value& value) {
    const auto& values = specifier.values();
    const auto found = std::ranges::find(values, value);
    const auto index = static_cast<std::size_t>(found - values.begin());
    return found != values.end() && index < specifier.shortTitles().size() ? specifier.shortTitles()[index]
                                                                           : std::string();
}

void describeField(Row& row, const platform::PSSpecifier& specifier) {
    row.numberPad = specifier.keyboardType() == platform::UIKeyboardType::NumberPad;
    if (const auto* field = dynamic_cast<const platform::PSTextFieldSpecifier*>(&specifier))
        row.placeholder = field->placeholder();
}

void describeSlider(Row& row, const platform::PSSpecifier& specifier) {
    row.min = platform::floatValue(specifier.valueForKey(platform::PSKey::min));
    if (const Value* max = specifier.valueForKey(platform::PSKey::max))
        row.max = platform::floatValue(max);
    row.showsValue = platform::boolValue(specifier.valueForKey(platform::PSKey::showValue));
}

} // namespace

std::string_view name(RowKind kind) {
    switch (kind) {
    case RowKind::Link:
        return "link";
    case RowKind::LinkList:
        return "linkList";
    case RowKind::Slider:
        return "slider";
    case RowKind::Switch:
        return "switch";
    case RowKind::StaticText:
        return "staticText";
    case RowKind::EditText:
        return "editText";
    case RowKind::SecureEditText:
        return "secureEditText";
    case RowKind::Button:
        break;
    }
    return "button";
}

std::string fieldText(const Value& value) {
    switch (value.kind()) {
    case Value::Kind::String:
        return std::string(value.string());
    case Value::Kind::Integer:
        return value.isUnsigned() ? numberText(value.unsignedInteger()) : numberText(value.integer());
    case Value::Kind::Real:
        return numberText(static_cast<float>(value.real()));
    case Value::Kind::Boolean:
        return value.boolean() ? "1" : "0";
    default:
        return {};
    }
}

double Row::position() const {
    const double number = value ? platform::floatValue(&*value) : 0;
    return std::isnan(number) ? min : std::min(std::max(number, min), std::max(min, max));
}

std::string shownText(RowKind kind, std::string_view text) {
    if (kind != RowKind::SecureEditText)
        return std::string(text);
    std::string bullets;
    for (const char byte : text)
        if ((static_cast<unsigned char>(byte) & 0xC0) != 0x80)
            bullets += "\u2022";
    return bullets;
}

Row rowFor(const platform::PSSpecifier& specifier, const std::optional<Value>& value) {
    Row row;
    row.kind = kindOf(specifier.cellType());
    row.label = specifier.name();
    row.key = specifier.identifier();
    row.value = value;
    row.icon = specifier.imageForKey(platform::PSKey::iconImage);
    if (const Value* enabled = specifier.valueForKey(platform::PSKey::enabled))
        row.enabled = platform::boolValue(enabled);
    if (row.isTextField()) {
        describeField(row, specifier);
        row.text = value ? shownText(row.kind, fieldText(*value)) : std::string();
    } else if (row.kind == RowKind::Slider) {
        describeSlider(row, specifier);
        row.text = numberText(static_cast<float>(row.position()));
    } else if (row.kind == RowKind::LinkList) {
        row.choices = specifier.titles();
        row.text = value ? chosenTitle(specifier, *value) : std::string();
    }
    return row;
}

} // namespace wardlock::shell
