#pragma once

#include "platform/services/TextWebEngine.h"
#include "tests/support/Environment.h"
#include "tests/support/HttpServer.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace wardlock::test {

/// How the load of a page ended.
struct PageOutcome {
    /// Empty when the page was loaded.
    std::string error;
    std::string text;
    std::vector<platform::WebLink> links;
};

/// The web as a test needs it: a server of its own and no proxy. There is also, once `use` or `useFor` was
/// called, the engine that this process's web views load with.
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
    /// Loads the server's page in a new view and waits for the end. A wait that fails is an error too.
    PageOutcome load(const std::string& path) const;

    /// Runs the loop until then. What the server sees wakes no loop: it is looked at in slices.
    static bool waitUntil(const std::function<bool()>& done);

    HttpServer server;

private:
    Environment environment_;
    std::shared_ptr<platform::WebEngine> engine_;
};

} // namespace wardlock::test
