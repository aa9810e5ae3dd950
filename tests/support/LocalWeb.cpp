#include "tests/support/LocalWeb.h"

#include "platform/runtime/MainLoop.h"
#include "tests/support/TestTimeout.h"

namespace wardlock::test {

using namespace std::chrono_literals;

namespace {

class LoadReports : public platform::Object, public platform::UIWebViewDelegate {
public:
    void webViewDidFinishLoad(platform::UIWebView&) override { ended = true; }
    void webViewDidFailLoadWithError(platform::UIWebView&, const std::string& reason) override {
        ended = true;
        error = reason;
    }

    bool ended = false;
    std::string error;
};

} // namespace

LocalWeb::LocalWeb() {
    for (const char* proxy :
         {"http_proxy", "HTTP_PROXY", "all_proxy", "ALL_PROXY", "https_proxy", "HTTPS_PROXY"})
        environment_.unset(proxy);
}

void LocalWeb::use(const platform::TextWebEngineOptions& options) {
    engine_ = platform::makeTextWebEngine(options);
    platform::WebEngine::setCurrent(engine_.get());
}

void LocalWeb::useFor(const std::string& host, int port) {
    platform::TextWebEngineOptions options;
    options.timeout = testTimeout;
    options.connectTo = host + ":80:127.0.0.1:" + std::to_string(port);
    use(options);
}

void LocalWeb::endEngine() {
    platform::WebEngine::setCurrent(nullptr);
    engine_ = nullptr;
}

PageOutcome LocalWeb::load(const std::string& path) const {
    const auto reports = std::make_shared<LoadReports>();
    const auto view = std::make_shared<platform::UIWebView>(platform::CGRectZero);
    view->setDelegate(reports);
    view->loadRequest({server.url(path)});
    if (!waitUntil([&] { return reports->ended; }))
        return {"the load has not ended", {}, {}};
    return {reports->error, view->text(), view->links()};
}

bool LocalWeb::waitUntil(const std::function<bool()>& done) {
    const auto deadline = std::chrono::steady_clock::now() + testTimeout;
    while (!platform::MainLoop::shared().runUntil(done, 10ms)) {
        if (std::chrono::steady_clock::now() > deadline)
            return false;
    }
    return true;
}

} // namespace wardlock::test
