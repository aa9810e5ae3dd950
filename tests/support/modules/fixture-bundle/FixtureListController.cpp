#include "tests/support/modules/fixture-bundle/FixtureListController.h"

#include "platform/plist/PropertyListFile.h"
#include "platform/preferences/PSListItemsController.h"
#include "platform/preferences/PSTextFieldSpecifier.h"
#include "platform/runtime/NSBundle.h"
#include "platform/ui/UIAlertController.h"
#include "platform/values/NSException.h"
#include "tests/support/modules/fixture-bundle/FixtureTableController.h"

namespace wardlock::test {

using platform::PSCellType;
using platform::PSSpecifier;
using platform::Value;
using ButtonAction = PSSpecifier::ButtonAction;

namespace {

constexpr const char* valuesPath = "/var/mobile/Library/Preferences/test.fixture.plist";

std::shared_ptr<PSSpecifier> group(std::string header, const char* footer = nullptr) {
    auto group = PSSpecifier::preferenceSpecifierNamed(std::move(header), nullptr, {}, {}, nullptr,
                                                       PSCellType::Group, nullptr);
    if (footer)
        group->setProperty(Value(footer), platform::PSKey::footerText);
    return group;
}

} // namespace

const platform::Class& FixtureListController::theClass() {
    static constexpr platform::Class theClass("FixtureListController",
                                              &platform::makeInstance<FixtureListController>);
    return theClass;
}

FixtureListController::~FixtureListController() = default;

std::shared_ptr<PSSpecifier> FixtureListController::row(std::string name, PSCellType cell,
                                                        std::string_view key) {
    const platform::Class* detail =
        cell == PSCellType::LinkList ? &platform::PSListItemsController::theClass() : nullptr;
    auto row = PSSpecifier::preferenceSpecifierNamed(
        std::move(name), shared_from_this(),
        PSSpecifier::SetAction::of<&FixtureListController::setValue>("setValue:specifier:"),
        PSSpecifier::GetAction::of<&FixtureListController::getValue>("getValue:"), detail, cell, nullptr);
    row->setIdentifier(key);
    return row;
}

std::shared_ptr<PSSpecifier> FixtureListController::field(std::string placeholder, PSCellType cell,
                                                          std::string_view key) {
    auto field = platform::PSTextFieldSpecifier::preferenceSpecifierNamed(
        "", shared_from_this(),
        PSSpecifier::SetAction::of<&FixtureListController::setValue>("setValue:specifier:"),
        PSSpecifier::GetAction::of<&FixtureListController::getValue>("getValue:"), nullptr, cell, nullptr);
    field->setPlaceholder(std::move(placeholder));
    field->setIdentifier(key);
    return field;
}

std::shared_ptr<PSSpecifier> FixtureListController::button(std::string name, ButtonAction action) {
    auto button = PSSpecifier::preferenceSpecifierNamed(std::move(name), shared_from_this(), {}, {}, nullptr,
                                                        PSCellType::Button, nullptr);
    button->setButtonAction(action);
    return button;
}

const platform::PSListController::Specifiers& FixtureListController::specifiers() {
    if (hasSpecifiers())
        return PSListController::specifiers();
    navigationItem().setRightBarButtonItem(std::make_shared<platform::UIBarButtonItem>(
        platform::UIBarButtonSystemItem::Add, weak_from_this(),
        platform::UIBarButtonItem::Action::of<&FixtureListController::add>("add")));

    auto flavour = row("Flavour", PSCellType::LinkList, "flavour");
    flavour->setValues({Value("v"), Value("c")}, {"Vanilla", "Chocolate"}, {"Van", "Choc"});
    auto volume = row("", PSCellType::Slider, "volume");
    volume->setProperty(Value(0.0), platform::PSKey::min);
    volume->setProperty(Value(10.0), platform::PSKey::max);
    volume->setProperty(Value(true), platform::PSKey::showValue);
    auto pin = field("PIN", PSCellType::SecureEditText, "pin");
    pin->setKeyboardType(platform::UIKeyboardType::NumberPad, 0, 0);
    auto locked = row("Locked", PSCellType::Switch, "locked");
    locked->setProperty(Value(false), platform::PSKey::enabled);
    auto starred = button("Starred", ButtonAction::of<&FixtureListController::press>("press"));
    if (const auto path = platform::NSBundle::bundleForObject(*this)->pathForResource("star", "png"))
        starred->setProperty(platform::UIImage::imageWithContentsOfFile(*path), platform::PSKey::iconImage);
    auto table = PSSpecifier::preferenceSpecifierNamed(
        "Table", nullptr, {}, {}, &FixtureTableController::theClass(), PSCellType::Link, nullptr);
    setSpecifiers({
        row("On", PSCellType::Switch, "on"),
        group("Values", "All of them are kept."),
        flavour,
        volume,
        field("Nickname", PSCellType::EditText, "nickname"),
        pin,
        group("Others"),
        row("Version 1", PSCellType::StaticText, ""),
        locked,
        starred,
        button("Ask", ButtonAction::of<&FixtureListController::ask>("ask")),
        button("Fail", ButtonAction::of<&FixtureListController::fail>("fail")),
        button("Grow", ButtonAction::of<&FixtureListController::grow>("grow")),
        table,
        group("", "Footer only"),
        group(""),
    });
    return PSListController::specifiers();
}

void FixtureListController::setValue(const Value* value, PSSpecifier& specifier) {
    platform::updateFile(valuesPath, [&](platform::MutableDictionary& values) {
        values.set(specifier.identifier(), value);
        return true;
    });
}

std::optional<Value> FixtureListController::getValue(PSSpecifier& specifier) {
    const auto values = platform::dictionaryWithContentsOfFile(valuesPath);
    const Value* value = values ? values->find(specifier.identifier()) : nullptr;
    if (value && value->kind() == Value::Kind::Dictionary)
        throw platform::NSException(platform::NSGenericException, "a row contains no dictionary");
    return value ? std::optional(*value) : std::nullopt;
}

void FixtureListController::count(std::string_view key) {
    platform::updateFile(valuesPath, [&](platform::MutableDictionary& values) {
        const Value* before = values.find(key);
        values.set(key, Value(before ? before->integer() + 1 : 1));
        return true;
    });
}

void FixtureListController::viewDidAppear(bool animated) {
    PSListController::viewDidAppear(animated);
    count("appeared");
}

void FixtureListController::scrollViewWillBeginDragging() {
    count("dragged");
    view()->endEditing(true);
}

void FixtureListController::press() {
    count("pressed");
}

void FixtureListController::add() {
    count("added");
}

void FixtureListController::ask() {
    const auto alert = platform::UIAlertController::alertControllerWithTitle(
        "Question", "Are you sure?", platform::UIAlertControllerStyle::Alert);
    alert->addTextFieldWithConfigurationHandler(
        [](const std::shared_ptr<platform::UITextField>& field) { field->setPlaceholder("Reason"); });
    alert->addAction(
        platform::UIAlertAction::actionWithTitle("No", platform::UIAlertActionStyle::Cancel, {}));
    alert->addAction(platform::UIAlertAction::actionWithTitle(
        "Yes", platform::UIAlertActionStyle::Destructive,
        [page = self(this)](platform::UIAlertAction&) { page->count("answered"); }));
    const auto never =
        platform::UIAlertAction::actionWithTitle("Never", platform::UIAlertActionStyle::Default, {});
    never->setEnabled(false);
    alert->addAction(never);
    presentViewController(alert, true);
}

void FixtureListController::fail() {
    throw platform::NSException(platform::NSRangeException, "the fixture fails when asked to");
}

void FixtureListController::grow() {
    addSpecifier(PSSpecifier::preferenceSpecifierNamed("Grown", nullptr, {}, {}, nullptr,
                                                       PSCellType::StaticText, nullptr),
                 true);
}

namespace {

const platform::Class* const classes[] = {&FixtureListController::theClass(),
                                          &FixtureTableController::theClass()};

} // namespace

} // namespace wardlock::test

extern "C" WARDLOCK_API platform::ClassTable wardlock_classes();

platform::ClassTable wardlock_classes() {
    return wardlock::test::classes;
}
