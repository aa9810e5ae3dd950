#include "linux/web/DesktopURLOpener.h"

#include "linux/posix/Program.h"
#include "linux/posix/SignalMaskedThread.h"
#include "linux/web/UrlHandlers.h"
#include "platform/base/Diagnostics.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace platform::web {

namespace {

/// A URL is printable ASCII.
bool isPlain(std::string_view url) {
    return std::ranges::all_of(url, [](unsigned char byte) { return byte > ' ' && byte < 0x7F; });
}

void openByHandler(const std::string& url, std::chrono::milliseconds timeout) {
    const std::string scheme = schemeOf(url);
    if (!schemeHasHandler(scheme))
        return;
    const auto code = posix::startProgram({"xdg-open", url}, timeout);
    if (!code || *code != 0)
        diagnose("The program for \"" + scheme + "\" addresses could not be started.");
}

} // namespace

/// Counts the threads that open a URL.
class PendingOpenings {
public:
    void begin() {
        const std::lock_guard lock(guard_);
        ++count_;
    }
    void end() {
        const std::lock_guard lock(guard_);
        --count_;
        ended_.notify_all();
    }
    void waitForAll() {
        std::unique_lock lock(guard_);
        ended_.wait(lock, [this] { return count_ == 0; });
    }

private:
    std::mutex guard_;
    std::condition_variable ended_;
    int count_ = 0;
};

DesktopURLOpener::DesktopURLOpener(std::chrono::milliseconds timeout)
    : timeout_(timeout), openings_(std::make_shared<PendingOpenings>()) {}

DesktopURLOpener::~DesktopURLOpener() {
    openings_->waitForAll();
}

bool DesktopURLOpener::openURL(std::string_view url) {
    if (schemeOf(url).empty() || !isPlain(url) || !hasDisplay())
        return false;
    openings_->begin();
    std::thread opening =
        posix::startSignalMaskedThread([openings = openings_, url = std::string(url), timeout = timeout_] {
            openByHandler(url, timeout);
            openings->end();
        });
    if (opening.joinable()) {
        opening.detach();
        return true;
    }
    openings_->end();
    return false;
}

} // namespace platform::web
