#include "window/models/WindowWebEngine.h"

#include "platform/services/TextWebEngine.h"

namespace wardlock::window {

WindowWebEngine::WindowWebEngine() {
    setCurrent(this);
}

WindowWebEngine::~WindowWebEngine() {
    setCurrent(nullptr);
}

void WindowWebEngine::load(const std::shared_ptr<platform::UIWebView>& view,
                           const platform::NSURLRequest& request) {
    if (text_)
        text_->load(view, request);
    else
        emit loadAsked(view.get());
}

void WindowWebEngine::showText() {
    if (!text_)
        text_ = platform::makeTextWebEngine();
}

} // namespace wardlock::window
