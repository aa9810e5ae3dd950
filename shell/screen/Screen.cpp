#include "shell/screen/Screen.h"

#include "platform/services/DeviceInformation.h"

namespace wardlock::shell {

using platform::UIView;

namespace {

void collectOverlay(const std::shared_ptr<UIView>& view, Overlay& found) {
    if (view->isHidden())
        return;
    if (auto keypad = std::dynamic_pointer_cast<platform::SBUIPasscodeLockViewSimple4DigitKeypad>(view))
        found.keypad = std::move(keypad);
    else if (auto blur = std::dynamic_pointer_cast<platform::UIVisualEffectView>(view))
        found.blur = std::move(blur);
    for (const auto& subview : view->subviews())
        collectOverlay(subview, found);
}

} // namespace

Screen::Screen(const std::shared_ptr<platform::UIViewController>& root, PageBoundary& boundary)
    : navigation_(platform::UINavigationController::initWithRootViewController(root)),
      window_(std::make_shared<platform::UIWindow>(platform::DeviceInformation::current().screenBounds())),
      stack_(navigation_, boundary) {
    stack_.follow();
}

std::string Screen::backTitle() const {
    return pages().size() < 2 ? std::string() : pages()[pages().size() - 2]->title();
}

std::shared_ptr<platform::UIViewController> Screen::presented() const {
    auto presented = navigation_->presentedViewController();
    for (auto page = pages().rbegin(); !presented && page != pages().rend(); ++page)
        presented = (*page)->controller().presentedViewController();
    while (presented && presented->presentedViewController())
        presented = presented->presentedViewController();
    return presented;
}

std::shared_ptr<platform::UIAlertController> Screen::alert() const {
    return std::dynamic_pointer_cast<platform::UIAlertController>(presented());
}

std::shared_ptr<platform::MFMailComposeViewController> Screen::composer() const {
    return std::dynamic_pointer_cast<platform::MFMailComposeViewController>(presented());
}

std::optional<Overlay> Screen::overlay() const {
    const auto& views = window_->subviews();
    for (auto view = views.rbegin(); view != views.rend(); ++view) {
        Overlay found;
        collectOverlay(*view, found);
        if (found.keypad)
            return found;
    }
    return std::nullopt;
}

void Screen::addNotice(const std::string& sentence) {
    if (notice_.find(sentence) == std::string::npos)
        notice_ += (notice_.empty() ? "" : " ") + sentence;
}

std::optional<std::string> Screen::obstacleToSheets() const {
    return overlay() ? std::optional<std::string>("the keypad covers the page") : std::nullopt;
}

std::optional<std::string> Screen::obstacle() const {
    if (auto reason = obstacleToSheets())
        return reason;
    if (alert())
        return "an alert covers the page";
    if (composer())
        return "the mail sheet covers the page";
    if (isInTransition())
        return "the page is still moving";
    return std::nullopt;
}

} // namespace wardlock::shell
