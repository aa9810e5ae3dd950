#include "passcode/PasscodeView.h"

#include "platform/runtime/Class.h"
#include "platform/services/DeviceInformation.h"

#include <vector>

namespace wardlock {

extern "C" {
platform::FBWorkspace* workspace = nullptr;
}

namespace {

constexpr double fadeSeconds = 0.4;
constexpr std::int32_t allowedAttempts = 4;
constexpr int simpleFourDigitStyle = 0;

/// Returns the class methods of a class that is looked up by name; null where the system has no such class.
template <class Protocol>
Protocol* classNamed(std::string_view name) {
    const auto* found = platform::objc_getClass(name);
    return found ? found->classMethods<Protocol>() : nullptr;
}

void activateSpringBoard() {
    if (workspace)
        workspace->setCurrentTransaction(workspace->_selectTransactionForAppExited(nullptr));
}

} // namespace

std::shared_ptr<PasscodeView> PasscodeView::initWithDefaultSize() {
    std::shared_ptr<PasscodeView> view(
        new PasscodeView(platform::DeviceInformation::current().screenBounds()));
    view->createPasscode();
    return view;
}

PasscodeView::~PasscodeView() = default;

void PasscodeView::createBlurView() {
    setBlurView(std::make_shared<platform::UIVisualEffectView>(
        platform::UIBlurEffect::effectWithStyle(platform::UIBlurEffectStyle::Dark)));
    blurView_->setAlpha(0);
    blurView_->setAutoresizingMask(platform::UIViewAutoresizingFlexibleWidth |
                                   platform::UIViewAutoresizingFlexibleTopMargin);
    blurView_->setFrame(bounds());
    addSubview(blurView_);
}

void PasscodeView::createPasscode() {
    // Added first, so that it is beneath the keypad.
    createBlurView();
    setMaxAttempts(allowedAttempts);
    if (auto* factory = classNamed<platform::SBUIPasscodeLockViewFactory>("SBUIPasscodeLockViewFactory"))
        setKeypad(factory->passcodeLockViewForStyle(simpleFourDigitStyle));
    if (keypad_) {
        keypad_->setAlpha(0);
        keypad_->setBackgroundAlpha(0);
        keypad_->setShowsEmergencyCallButton(false);
        keypad_->setDelegate(self(this));
        addSubview(keypad_);
    }
    setPasscodeHidden(false, {});
}

void PasscodeView::setStatus(const std::string& text) {
    if (!keypad_)
        return;
    keypad_->_setStatusText(text);
    keypad_->updateStatusText(text, "", true);
}

void PasscodeView::resetStatus() {
    if (keypad_)
        setStatus(keypad_->_defaultStatusText());
}

void PasscodeView::reset() {
    if (keypad_)
        keypad_->reset();
}

void PasscodeView::setShowEmergency(bool show) {
    if (keypad_)
        keypad_->setShowsEmergencyCallButton(show);
}

void PasscodeView::setPasscodeHidden(bool hidden, Completion completion) {
    const auto setAlphas = [this, alpha = hidden ? 0.0 : 1.0] {
        if (keypad_)
            keypad_->setAlpha(alpha);
        if (blurView_)
            blurView_->setAlpha(alpha);
    };
    const auto ended = [completion = std::move(completion)](bool /*finished*/) {
        if (completion)
            completion();
    };
    UIView::animateWithDuration(fadeSeconds, setAlphas, ended);
}

void PasscodeView::destroyPasscode() {
    destroyPasscodeWithCompletion({});
}

void PasscodeView::destroyPasscodeWithCompletion(Completion completion) {
    // The fade owns the view: its owner may release it meanwhile.
    const auto faded = [view = self(this), completion = std::move(completion)] {
        view->takeDown(completion);
    };
    setPasscodeHidden(true, faded);
}

void PasscodeView::takeDown(const Completion& completion) {
    const std::vector<std::shared_ptr<UIView>> inside = subviews();
    for (const auto& view : inside)
        view->removeFromSuperview();
    setBlurView(nullptr);
    setKeypad(nullptr);
    setHidden(true);
    if (superview())
        removeFromSuperview();
    if (completion)
        completion();
    if (const auto delegate = this->delegate())
        delegate->passcodeViewDidDestroy(*this);
    if (const auto block = passcodeViewDestroyedBlock_)
        block(*this);
}

void PasscodeView::cancelPasscode() {
    const auto alive = shared_from_this();
    if (const auto delegate = this->delegate())
        delegate->passcodeDidCancel(*this);
    if (const auto block = passcodeCancelledBlock_)
        block(*this);
}

void PasscodeView::passcodeEntered(const std::string& passcode) {
    const auto alive = shared_from_this();
    if (const auto delegate = this->delegate())
        delegate->passcodeViewEnteredPasscode(*this, passcode);
    if (const auto block = passcodeEnteredBlock_)
        block(*this, passcode);
}

void PasscodeView::closeApp() {
    auto* events = classNamed<platform::FBWorkspaceEventClass>("FBWorkspaceEvent");
    auto* queues = classNamed<platform::FBWorkspaceEventQueueClass>("FBWorkspaceEventQueue");
    if (!events || !queues)
        return;
    queues->sharedInstance().executeOrAppendEvent(
        events->eventWithName("ActivateSpringBoard", &activateSpringBoard));
}

void PasscodeView::passcodeLockViewPasscodeEntered(Keypad& keypad) {
    // A copy: the delegate may clear the keypad.
    passcodeEntered(std::string(keypad.passcode()));
}

void PasscodeView::passcodeLockViewPasscodeEnteredViaMesa(Keypad& keypad) {
    passcodeEntered(std::string(keypad.passcode()));
}

void PasscodeView::passcodeLockViewCancelButtonPressed(Keypad& /*keypad*/) {
    cancelPasscode();
}

void PasscodeView::passcodeLockViewEmergencyCallButtonPressed(Keypad& /*keypad*/) {
    const auto alive = shared_from_this();
    if (const auto delegate = this->delegate())
        delegate->passcodeDidPressEmergency(*this);
    if (const auto block = emergencyPressedBlock_)
        block(*this);
}

} // namespace wardlock
