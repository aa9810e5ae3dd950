#pragma once

#include "platform/services/TextWebEngine.h"
#include "tests/support/Environment.h"
#include "tests/support/HttpServer.h"

#include <functional>
#include <memory>
#include <string>

namespace wardlock::test {

/// The web as a test needs it: a server of its own, no proxy, and, once `use` or `useFor` was called, the
/// engine that this process's web views load with.
class LocalWeb {
public:
    LocalWeb();
    ~LocalWeb() { endEngine(); }
    LocalWeb(const LocalWeb&) = delete;
    LocalWeb& operator=(const LocalWeb&) = delete;

    void use(const platform::TextWebEngineOptions& options);
    /// What is asked of port 80 of `host` then goes to `port` of this machine.
    void useFor(const std::string& host, int port);
    void endEngine();

    /// Runs the loop until then. What the server sees wakes no loop: it is looked at in slices.
    static bool waitUntil(const std::function<bool()>& done);

    HttpServer server;

private:
    Environment environment_;
    std::shared_ptr<platform::WebEngine> engine_;
};

} // namespace wardlock::test
