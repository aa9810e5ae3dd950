#include "linux/mail/LinuxMailService.h"

#include "linux/posix/SignalMaskedThread.h"
#include "platform/base/Translation.h"
#include "platform/runtime/NSOperationQueue.h"

#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>

namespace platform::mail {

namespace {

/// A tap on the mail row waits this long at most.
constexpr std::chrono::seconds timeout{3};

MailOutcome sendBy(const std::vector<std::shared_ptr<MailRoute>>& routes, const MailMessage& message) {
    std::string reason;
    for (const auto& route : routes)
        if (route->isOpen())
            if (const auto outcome = route->send(message, reason))
                return *outcome;
    return {MailOutcome::Kind::Failed,
            reason.empty() ? translated("Mail", "No mail program could be reached.") : reason};
}

using Completion = std::function<void(const MailOutcome&)>;

/// `done` keeps objects of the main thread alive: it is handed over so that they are destroyed there.
void report(const MailOutcome& outcome, Completion done) {
    NSOperationQueue::mainQueue().addOperation([outcome, done = std::move(done)] { done(outcome); });
}

/// The replies of several routes.
class Replies {
public:
    void expect() {
        const std::lock_guard lock(guard_);
        ++missing_;
    }
    void add(bool isOpen) {
        const std::lock_guard lock(guard_);
        --missing_;
        open_ = open_ || isOpen;
        changed_.notify_all();
    }
    /// Waits for the first open one, or for all.
    bool oneIsOpen() {
        std::unique_lock lock(guard_);
        changed_.wait_for(lock, timeout, [this] { return open_ || missing_ == 0; });
        return open_;
    }

private:
    std::mutex guard_;
    std::condition_variable changed_;
    int missing_ = 0;
    bool open_ = false;
};

} // namespace

bool oneOpensInTime(const std::vector<std::shared_ptr<MailRoute>>& routes) {
    const auto replies = std::make_shared<Replies>();
    for (const auto& route : routes) {
        replies->expect();
        std::thread query =
            posix::startSignalMaskedThread([route, replies] { replies->add(route->isOpen()); });
        if (query.joinable())
            query.detach();
        else
            replies->add(false);
    }
    return replies->oneIsOpen();
}

bool LinuxMailService::canSendMail() {
    return oneOpensInTime(routes_);
}

void LinuxMailService::send(const MailMessage& message, std::function<void(const MailOutcome&)> done) {
    const auto handedOver = std::make_shared<Completion>(std::move(done));
    std::thread sending = posix::startSignalMaskedThread([routes = routes_, message, handedOver] {
        report(sendBy(routes, message), std::exchange(*handedOver, {}));
    });
    if (sending.joinable())
        sending.detach();
    else
        report({MailOutcome::Kind::Failed, translated("Mail", "The system cannot create another thread.")},
               *handedOver);
}

} // namespace platform::mail
