#pragma once

#include "passcode/PasscodeViewDelegate.h"
#include "platform/base/Export.h"
#include "platform/services/PasscodeLockView.h"
#include "platform/services/Workspace.h"
#include "platform/ui/UIVisualEffectView.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace wardlock {

/// The system's workspace, for closeApp(). Exported under this plain name for a host to set; the bundle never
/// sets it.
extern "C" WARDLOCK_API platform::FBWorkspace* workspace;

/// The system's four-digit keypad over a dark blur, over the whole screen. It reports what the user does with
/// it, first to the delegate, then to the block of that event; checking and saving are theirs. It fades in
/// when created, lives through its fade-out, and is not used again after it. Main thread only.
class PasscodeView : public platform::UIView, public platform::SBUIPasscodeLockViewDelegate {
public:
    using Keypad = platform::SBUIPasscodeLockViewSimple4DigitKeypad;
    using Block = std::function<void(PasscodeView&)>;
    using EnteredBlock = std::function<void(PasscodeView&, const std::string& passcode)>;
    using Completion = std::function<void()>;

    /// Creates a view of the size of the screen, with the keypad in it.
    static std::shared_ptr<PasscodeView> initWithDefaultSize();
    ~PasscodeView() override;

    /// Not retained.
    std::shared_ptr<PasscodeViewDelegate> delegate() const { return delegate_.lock(); }
    void setDelegate(const std::shared_ptr<PasscodeViewDelegate>& delegate) { delegate_ = delegate; }
    /// Keypad and blur are null once the view has been destroyed; requests to the keypad are then dropped.
    const std::shared_ptr<Keypad>& keypad() const { return keypad_; }
    void setKeypad(std::shared_ptr<Keypad> keypad) { keypad_ = std::move(keypad); }
    const std::shared_ptr<platform::UIVisualEffectView>& blurView() const { return blurView_; }
    void setBlurView(std::shared_ptr<platform::UIVisualEffectView> view) { blurView_ = std::move(view); }
    /// For the delegate's use; the view itself never reads these two.
    std::int32_t failedCount() const { return failedCount_; }
    void setFailedCount(std::int32_t count) { failedCount_ = count; }
    std::int32_t maxAttempts() const { return maxAttempts_; }
    void setMaxAttempts(std::int32_t attempts) { maxAttempts_ = attempts; }
    const Block& passcodeCancelledBlock() const { return passcodeCancelledBlock_; }
    void setPasscodeCancelledBlock(Block block) { passcodeCancelledBlock_ = std::move(block); }
    const EnteredBlock& passcodeEnteredBlock() const { return passcodeEnteredBlock_; }
    void setPasscodeEnteredBlock(EnteredBlock block) { passcodeEnteredBlock_ = std::move(block); }
    const Block& passcodeViewDestroyedBlock() const { return passcodeViewDestroyedBlock_; }
    void setPasscodeViewDestroyedBlock(Block block) { passcodeViewDestroyedBlock_ = std::move(block); }
    const Block& emergencyPressedBlock() const { return emergencyPressedBlock_; }
    void setEmergencyPressedBlock(Block block) { emergencyPressedBlock_ = std::move(block); }

    void createBlurView();
    void createPasscode();

    void setStatus(const std::string& text);
    /// Shows the keypad's own text.
    void resetStatus();
    /// Clears the entered digits.
    void reset();
    void setShowEmergency(bool show);

    /// Fades keypad and blur; `completion` may be empty.
    void setPasscodeHidden(bool hidden, Completion completion);
    void destroyPasscode();
    /// Fades out, then empties, hides and detaches the view and notifies `completion`, delegate and block.
    /// Each call runs its own completion.
    void destroyPasscodeWithCompletion(Completion completion);

    void cancelPasscode();
    void passcodeEntered(const std::string& passcode);
    /// Asks the workspace to bring the home screen to the front.
    void closeApp();

    void passcodeLockViewPasscodeEntered(Keypad& keypad) override;
    void passcodeLockViewPasscodeEnteredViaMesa(Keypad& keypad) override;
    void passcodeLockViewCancelButtonPressed(Keypad& keypad) override;
    void passcodeLockViewEmergencyCallButtonPressed(Keypad& keypad) override;

private:
    explicit PasscodeView(const platform::CGRect& frame) : UIView(frame) {}

    void takeDown(const Completion& completion);

    std::weak_ptr<PasscodeViewDelegate> delegate_;
    std::shared_ptr<Keypad> keypad_;
    std::shared_ptr<platform::UIVisualEffectView> blurView_;
    std::int32_t failedCount_ = 0;
    std::int32_t maxAttempts_ = 0;
    Block passcodeCancelledBlock_;
    EnteredBlock passcodeEnteredBlock_;
    Block passcodeViewDestroyedBlock_;
    Block emergencyPressedBlock_;
};

} // namespace wardlock
