#include "shell/screen/UnsavedChanges.h"

#include "platform/base/Translation.h"
#include "platform/plist/UnsavedChange.h"

#include <utility>

namespace wardlock::shell {

namespace {

bool isUpper(char letter) {
    return letter >= 'A' && letter <= 'Z';
}

/// Returns the reason as the end of a sentence. The system's reasons begin with a capital letter, which in
/// other languages may be that of a noun.
std::string endOfSentence(std::string_view reason) {
    std::string text(reason);
    if (platform::speaksEnglish() && text.size() > 1 && isUpper(text[0]) && !isUpper(text[1]))
        text[0] = static_cast<char>(text[0] - 'A' + 'a');
    return text;
}

} // namespace

UnsavedChanges::UnsavedChanges(Screen& screen, ScreenChanges& changes)
    : screen_(screen), changes_(changes),
      subscription_(platform::observeUnsavedChanges([this](std::string_view reason) { receive(reason); })) {}

void UnsavedChanges::receive(std::string_view reason) {
    ++count_;
    reason_ = endOfSentence(reason);
    changes_.notSaved(reason_);
}

bool UnsavedChanges::notify() {
    const std::string reason = std::exchange(reason_, {});
    if (reason.empty())
        return false;
    screen_.addNotice(
        platform::filledIn(platform::translated("Notice", "Your change could not be saved: %1."), {reason}));
    changes_.notice();
    return true;
}

} // namespace wardlock::shell
