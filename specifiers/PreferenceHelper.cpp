#include "specifiers/PreferenceHelper.h"

#include "platform/preferences/PSListItemsController.h"
#include "platform/runtime/NSBundle.h"
#include "platform/values/NSException.h"
#include "settings/Document.h"
#include "settings/DocumentChange.h"
#include "settings/ExceptionReport.h"
#include "specifiers/PreferenceHelperAdditions.h"

namespace wardlock {

using platform::PSCellType;
using platform::PSTextFieldSpecifier;
using platform::Value;
namespace PSKey = platform::PSKey;

std::shared_ptr<PreferenceHelper> PreferenceHelper::initWithBundleIdentifier(std::string identifier,
                                                                             std::string post) {
    std::shared_ptr<PreferenceHelper> helper(new PreferenceHelper);
    platform::NSSetUncaughtExceptionHandler(&TweakExceptionHandler);
    helper->setTarget(helper);
    helper->setSetAction(SetAction::of<&PreferenceHelper::setValue>("setValue:specifier:"));
    helper->setGetAction(GetAction::of<&PreferenceHelper::getValue>("getValue:"));
    helper->setIdentifier(std::move(identifier));
    helper->setPost(std::move(post));
    return helper;
}

std::shared_ptr<PreferenceHelper>
PreferenceHelper::initWithTarget(const std::shared_ptr<platform::Object>& target, SetAction set,
                                 GetAction get) {
    std::shared_ptr<PreferenceHelper> helper(new PreferenceHelper);
    helper->setTarget(target);
    helper->setSetAction(set);
    helper->setGetAction(get);
    return helper;
}

PreferenceHelper::~PreferenceHelper() = default;

PreferenceHelper::Row PreferenceHelper::header(std::string title) {
    return PSSpecifier::preferenceSpecifierNamed(std::move(title), target(), {}, {}, nullptr,
                                                 PSCellType::Group, nullptr);
}

PreferenceHelper::Row PreferenceHelper::header(std::string title, std::string_view footerText) {
    auto group = header(std::move(title));
    group->setProperty(Value(footerText), PSKey::footerText);
    return group;
}

PreferenceHelper::Row PreferenceHelper::footer(std::string_view footerText) {
    auto group = header("");
    group->setProperty(Value(footerText), PSKey::footerText);
    return group;
}

PreferenceHelper::Row PreferenceHelper::spacer() {
    return header("");
}

PreferenceHelper::Row PreferenceHelper::button(std::string title,
                                               const std::shared_ptr<platform::Object>& target,
                                               ButtonAction action) {
    auto row = PSSpecifier::preferenceSpecifierNamed(std::move(title), target, {}, {}, nullptr,
                                                     PSCellType::Button, nullptr);
    row->setButtonAction(action);
    return row;
}

PreferenceHelper::Row PreferenceHelper::button(std::string title, ButtonAction action) {
    return button(std::move(title), target(), action);
}

PreferenceHelper::Row PreferenceHelper::link(std::string title, const platform::Class* detail) {
    return PSSpecifier::preferenceSpecifierNamed(std::move(title), target(), {}, {}, detail, PSCellType::Link,
                                                 nullptr);
}

PreferenceHelper::Row PreferenceHelper::staticText(std::string title) {
    return PSSpecifier::preferenceSpecifierNamed(std::move(title), shared_from_this(), {}, {}, nullptr,
                                                 PSCellType::StaticText, nullptr);
}

PreferenceHelper::Row PreferenceHelper::link(std::string title, std::string_view identifier,
                                             const std::vector<std::string>& titles,
                                             std::vector<Value> values) {
    auto row = PSSpecifier::preferenceSpecifierNamed(std::move(title), target(), setAction_, getAction_,
                                                     &platform::PSListItemsController::theClass(),
                                                     PSCellType::LinkList, nullptr);
    // The titles serve as the short titles too.
    row->setValues(std::move(values), titles, titles);
    row->setIdentifier(identifier);
    return row;
}

PreferenceHelper::Row PreferenceHelper::toggle(std::string title, std::string_view identifier) {
    return toggle(std::move(title), identifier, setAction_, getAction_);
}

PreferenceHelper::Row PreferenceHelper::toggle(std::string title, std::string_view identifier, SetAction set,
                                               GetAction get) {
    auto row = PSSpecifier::preferenceSpecifierNamed(std::move(title), target(), set, get, nullptr,
                                                     PSCellType::Switch, nullptr);
    row->setProperty(Value(identifier), PSKey::id);
    return row;
}

PreferenceHelper::Row PreferenceHelper::slider(std::string_view identifier, float min, float max) {
    auto row = PSSpecifier::preferenceSpecifierNamed("", target(), setAction_, getAction_, nullptr,
                                                     PSCellType::Slider, nullptr);
    row->setProperty(Value(static_cast<double>(min)), PSKey::min);
    row->setProperty(Value(static_cast<double>(max)), PSKey::max);
    row->setProperty(Value(true), PSKey::showValue);
    row->setIdentifier(identifier);
    return row;
}

PreferenceHelper::Row PreferenceHelper::slider(std::string_view identifier, float min, float max,
                                               bool showValue) {
    auto row = slider(identifier, min, max);
    row->setProperty(Value(showValue), PSKey::showValue);
    return row;
}

PreferenceHelper::TextRow PreferenceHelper::field(std::string placeholder, std::string_view identifier,
                                                  bool secure) {
    auto row = PSTextFieldSpecifier::preferenceSpecifierNamed(
        "", target(), setAction_, getAction_, nullptr,
        secure ? PSCellType::SecureEditText : PSCellType::EditText, nullptr);
    row->setPlaceholder(std::move(placeholder));
    row->setIdentifier(identifier);
    return row;
}

PreferenceHelper::TextRow PreferenceHelper::field(std::string placeholder, std::string_view identifier) {
    return field(std::move(placeholder), identifier, false);
}

PreferenceHelper::TextRow PreferenceHelper::numberField(std::string placeholder, std::string_view identifier,
                                                        bool secure) {
    auto row = field(std::move(placeholder), identifier, secure);
    row->setKeyboardType(platform::UIKeyboardType::NumberPad, 0, 0);
    return row;
}

PreferenceHelper::Row PreferenceHelper::withIcon(Row specifier, std::string_view fileName) {
    const auto target = this->target();
    setIcon(*specifier, target ? platform::NSBundle::bundleForObject(*target).get() : nullptr, fileName);
    return specifier;
}

std::optional<Value> PreferenceHelper::getValue(PSSpecifier& specifier) {
    const auto stored = document(identifier_);
    const Value* value = stored ? stored->find(specifier.identifier()) : nullptr;
    if (!value)
        value = specifier.valueForKey(PSKey::defaultValue);
    return value ? std::optional(*value) : std::nullopt;
}

void PreferenceHelper::setValue(const Value* value, PSSpecifier& specifier) {
    const DocumentChange change = setTopLevelValue(identifier_, specifier.identifier(), value);
    if (!post_.empty())
        announce(change, identifier_, post_);
}

} // namespace wardlock
