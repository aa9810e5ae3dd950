#include "window/models/WindowWebEngine.h"

namespace wardlock::window {

WindowWebEngine::WindowWebEngine() {
    setCurrent(this);
}

WindowWebEngine::~WindowWebEngine() {
    setCurrent(nullptr);
}

void WindowWebEngine::load(const std::shared_ptr<platform::UIWebView>& view, const platform::NSURLRequest&) {
    emit loadAsked(view.get());
}

} // namespace wardlock::window
