#include "platform/preferences/PSSpecifier.h"

#include <utility>

namespace platform {

PSSpecifier::PSSpecifier(std::string name, std::weak_ptr<Object> target, SetAction set, GetAction get,
                         const Class* detail, PSCellType cell, const Class* edit)
    : name_(std::move(name)), target_(std::move(target)), set_(set), get_(get), detail_(detail), cell_(cell),
      edit_(edit) {}

PSSpecifier::~PSSpecifier() = default;

std::shared_ptr<PSSpecifier> PSSpecifier::preferenceSpecifierNamed(std::string name,
                                                                   const std::shared_ptr<Object>& target,
                                                                   SetAction set, GetAction get,
                                                                   const Class* detail, PSCellType cell,
                                                                   const Class* edit) {
    return std::shared_ptr<PSSpecifier>(
        new PSSpecifier(std::move(name), target, set, get, detail, cell, edit));
}

std::string PSSpecifier::identifier() const {
    return std::string(stringValue(valueForKey(PSKey::id)).value_or(std::string_view()));
}

void PSSpecifier::setIdentifier(std::string_view identifier) {
    setProperty(Value(identifier), PSKey::id);
}

const PSSpecifier::Property& PSSpecifier::propertyForKey(std::string_view key) const {
    static const Property none;
    const auto found = properties_.find(key);
    return found == properties_.end() ? none : found->second;
}

void PSSpecifier::setProperty(Property property, std::string_view key) {
    properties_.insert_or_assign(std::string(key), std::move(property));
}

const Value* PSSpecifier::valueForKey(std::string_view key) const {
    return std::get_if<Value>(&propertyForKey(key));
}

std::shared_ptr<UIImage> PSSpecifier::imageForKey(std::string_view key) const {
    const auto* image = std::get_if<std::shared_ptr<UIImage>>(&propertyForKey(key));
    return image ? *image : nullptr;
}

void PSSpecifier::setValues(std::vector<Value> values, std::vector<std::string> titles,
                            std::vector<std::string> shortTitles) {
    values_ = std::move(values);
    titles_ = std::move(titles);
    shortTitles_ = std::move(shortTitles);
}

void PSSpecifier::setKeyboardType(UIKeyboardType type, int autoCaps, int autoCorrection) {
    keyboardType_ = type;
    autoCaps_ = autoCaps;
    autoCorrection_ = autoCorrection;
}

std::optional<Value> PSSpecifier::performGetter() {
    const auto object = target_.lock();
    return object && get_ ? get_(*object, *this) : std::nullopt;
}

void PSSpecifier::performSetter(const Value* value) {
    const auto keepAlive = shared_from_this();
    const auto object = target_.lock();
    if (object && set_)
        set_(*object, value, *this);
}

void PSSpecifier::performButtonAction() {
    const auto keepAlive = shared_from_this();
    const auto object = target_.lock();
    if (object && action_)
        action_(*object, *this);
}

} // namespace platform
