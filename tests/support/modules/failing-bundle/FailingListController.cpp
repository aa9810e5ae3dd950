#include "tests/support/modules/failing-bundle/FailingListController.h"

#include "platform/preferences/PSListItemsController.h"
#include "platform/preferences/PSTextFieldSpecifier.h"
#include "platform/runtime/NSOperationQueue.h"
#include "platform/ui/UIAlertController.h"
#include "platform/ui/UIApplication.h"
#include "settings/ExceptionReport.h"
#include "tests/support/modules/failing-bundle/FailingTableController.h"
#include "tests/support/modules/failing-bundle/Failure.h"

namespace wardlock::test {

using platform::NSNotification;
using platform::PSCellType;
using platform::PSSpecifier;
using platform::Value;
using ButtonAction = PSSpecifier::ButtonAction;
using SetAction = PSSpecifier::SetAction;
using GetAction = PSSpecifier::GetAction;
using Keypad = platform::SBUIPasscodeLockViewSimple4DigitKeypad;

namespace {

constexpr double fadeSeconds = 0.4;

void failThenChange(std::string_view point) {
    failAt(point);
    changeDocument();
}

void receive(platform::CFNotificationCenter&, void*, std::string_view, const std::string*,
             const platform::Dictionary*) {
    failThenChange("bus");
}

} // namespace

const platform::Class& FailingListController::theClass() {
    static constexpr platform::Class theClass("FailingListController",
                                              &platform::makeInstance<FailingListController>);
    return theClass;
}

FailingListController::FailingListController() {
    platform::NSSetUncaughtExceptionHandler(TweakExceptionHandler);
}

FailingListController::~FailingListController() {
    platform::NSNotificationCenter::defaultCenter().removeObserver(*this);
}

std::shared_ptr<PSSpecifier> FailingListController::row(std::string name, PSCellType cell,
                                                        std::string_view key) {
    const platform::Class* detail =
        cell == PSCellType::LinkList ? &platform::PSListItemsController::theClass() : nullptr;
    auto row = cell == PSCellType::EditText
                   ? platform::PSTextFieldSpecifier::preferenceSpecifierNamed(
                         std::move(name), shared_from_this(),
                         SetAction::of<&FailingListController::setValue>("setValue:specifier:"),
                         GetAction::of<&FailingListController::getValue>("getValue:"), detail, cell, nullptr)
                   : PSSpecifier::preferenceSpecifierNamed(
                         std::move(name), shared_from_this(),
                         SetAction::of<&FailingListController::setValue>("setValue:specifier:"),
                         GetAction::of<&FailingListController::getValue>("getValue:"), detail, cell, nullptr);
    row->setIdentifier(key);
    return row;
}

std::shared_ptr<PSSpecifier> FailingListController::button(std::string name, ButtonAction action) {
    auto button = PSSpecifier::preferenceSpecifierNamed(std::move(name), shared_from_this(), {}, {}, nullptr,
                                                        PSCellType::Button, nullptr);
    button->setButtonAction(action);
    return button;
}

const platform::PSListController::Specifiers& FailingListController::specifiers() {
    if (hasSpecifiers())
        return PSListController::specifiers();
    failAt("list");
    observe();
    navigationItem().setRightBarButtonItem(std::make_shared<platform::UIBarButtonItem>(
        platform::UIBarButtonSystemItem::Add, weak_from_this(),
        platform::UIBarButtonItem::Action::of<&FailingListController::add>("add")));
    auto slider = row("", PSCellType::Slider, "slider");
    slider->setProperty(Value(0.0), platform::PSKey::min);
    slider->setProperty(Value(10.0), platform::PSKey::max);
    auto choice = row("Choice", PSCellType::LinkList, "choice");
    choice->setValues({Value("a"), Value("b")}, {"First", "Second"}, {});
    setSpecifiers({
        row("Switch", PSCellType::Switch, "switch"),
        slider,
        row("Name", PSCellType::EditText, "name"),
        choice,
        button("Press", ButtonAction::of<&FailingListController::press>("press")),
        button("Ask", ButtonAction::of<&FailingListController::ask>("ask")),
        button("Keypad", ButtonAction::of<&FailingListController::showKeypad>("showKeypad")),
        button("Mail", ButtonAction::of<&FailingListController::writeMail>("writeMail")),
        button("Fade", ButtonAction::of<&FailingListController::fade>("fade")),
        button("Queue", ButtonAction::of<&FailingListController::queue>("queue")),
        PSSpecifier::preferenceSpecifierNamed("Table", nullptr, {}, {}, &FailingTableController::theClass(),
                                              PSCellType::Link, nullptr),
    });
    return PSListController::specifiers();
}

void FailingListController::observe() {
    auto& center = platform::NSNotificationCenter::defaultCenter();
    center.addObserver(
        shared_from_this(),
        platform::NSNotificationCenter::Action::of<&FailingListController::willResign>("willResign:"),
        platform::UIApplicationWillResignActiveNotification);
    platform::CFNotificationCenterAddObserver(platform::CFNotificationCenterGetDistributedCenter(), this,
                                              receive, "test.failing/change", nullptr,
                                              platform::CFNotificationSuspensionBehavior::DeliverImmediately);
}

std::string FailingListController::navigationTitle() const {
    failAt("title");
    return "Failing";
}

void FailingListController::viewWillAppear(bool animated) {
    failAt("will appear");
    PSListController::viewWillAppear(animated);
}

void FailingListController::viewDidAppear(bool animated) {
    failAt("did appear");
    PSListController::viewDidAppear(animated);
}

void FailingListController::viewWillDisappear(bool animated) {
    failAt("will disappear");
    PSListController::viewWillDisappear(animated);
}

void FailingListController::viewDidDisappear(bool animated) {
    failAt("did disappear");
    PSListController::viewDidDisappear(animated);
}

void FailingListController::tableViewDidSelectRowAtIndexPath(platform::NSIndexPath path) {
    failAt("select");
    PSListController::tableViewDidSelectRowAtIndexPath(path);
}

void FailingListController::scrollViewWillBeginDragging() {
    failAt("drag");
    view()->endEditing(true);
}

void FailingListController::setValue(const Value*, PSSpecifier& specifier) {
    failThenChange("set " + specifier.identifier());
}

std::optional<Value> FailingListController::getValue(PSSpecifier& specifier) {
    failAt("get " + specifier.identifier());
    return std::nullopt;
}

void FailingListController::add() {
    failThenChange("add");
}

void FailingListController::press() {
    failThenChange("press");
}

void FailingListController::ask() {
    const auto alert = platform::UIAlertController::alertControllerWithTitle(
        "Question", "Are you sure?", platform::UIAlertControllerStyle::Alert);
    alert->addTextFieldWithConfigurationHandler([page = self(this)](
                                                    const std::shared_ptr<platform::UITextField>& field) {
        field->setPlaceholder("Reason");
        platform::NSNotificationCenter::defaultCenter().addObserver(
            page,
            platform::NSNotificationCenter::Action::of<&FailingListController::alertTextDidChange>("text:"),
            platform::UITextFieldTextDidChangeNotification, field);
    });
    alert->addAction(platform::UIAlertAction::actionWithTitle(
        "Yes", platform::UIAlertActionStyle::Default,
        [](platform::UIAlertAction&) { failThenChange("alert button"); }));
    presentViewController(alert, true);
}

void FailingListController::alertTextDidChange(const NSNotification&) {
    failThenChange("alert text");
}

void FailingListController::showKeypad() {
    const auto& window = platform::UIApplication::sharedApplication().keyWindow();
    const auto keypad = std::make_shared<Keypad>(window->bounds());
    keypad->setDelegate(self(this));
    window->addSubview(keypad);
}

void FailingListController::passcodeLockViewPasscodeEntered(Keypad&) {
    failThenChange("keypad entry");
}

void FailingListController::passcodeLockViewPasscodeEnteredViaMesa(Keypad&) {
    failThenChange("keypad other entry");
}

void FailingListController::passcodeLockViewCancelButtonPressed(Keypad&) {
    failThenChange("keypad cancel");
}

void FailingListController::passcodeLockViewEmergencyCallButtonPressed(Keypad&) {
    failThenChange("keypad emergency");
}

void FailingListController::writeMail() {
    const auto composer = std::make_shared<platform::MFMailComposeViewController>();
    composer->setMailComposeDelegate(self(this));
    composer->setToRecipients({"nobody@example.org"});
    presentViewController(composer, true);
}

void FailingListController::mailComposeControllerDidFinishWithResultError(
    platform::MFMailComposeViewController& controller, platform::MFMailComposeResult result,
    const std::string&) {
    failThenChange(result == platform::MFMailComposeResult::Cancelled ? "mail cancel" : "mail sent");
    controller.dismissViewControllerAnimated(true);
}

void FailingListController::fade() {
    platform::UIView::animateWithDuration(
        fadeSeconds, [] {}, [](bool) { failThenChange("clock"); });
}

void FailingListController::queue() {
    platform::NSOperationQueue::mainQueue().addOperation([] { failThenChange("queue"); });
}

void FailingListController::willResign(const NSNotification&) {
    failThenChange("resign");
}

namespace {

const platform::Class* const classes[] = {&FailingListController::theClass(),
                                          &FailingTableController::theClass()};

} // namespace

} // namespace wardlock::test

extern "C" WARDLOCK_API platform::ClassTable wardlock_classes();

platform::ClassTable wardlock_classes() {
    return wardlock::test::classes;
}
