#include "linux/mail/LinuxMailService.h"

#include "linux/posix/SignalMaskedThread.h"
#include "platform/base/Translation.h"
#include "platform/runtime/NSOperationQueue.h"

#include <algorithm>
#include <future>
#include <memory>
#include <thread>
#include <utility>

namespace platform::mail {

namespace {

/// A tap on the mail row waits this long for each route at most.
constexpr std::chrono::seconds timeout{3};

MailOutcome sendBy(const std::vector<std::shared_ptr<MailRoute>>& routes, const MailMessage& message) {
    for (const auto& route : routes)
        if (route->isOpen())
            if (const auto outcome = route->send(message))
                return *outcome;
    return {MailOutcome::Kind::Failed, translated("Mail", "No mail program could be reached.")};
}

using Completion = std::function<void(const MailOutcome&)>;

/// `done` keeps objects of the main thread alive: it is handed over so that they are destroyed there.
void report(const MailOutcome& outcome, Completion done) {
    NSOperationQueue::mainQueue().addOperation([outcome, done = std::move(done)] { done(outcome); });
}

} // namespace

bool opensInTime(const std::shared_ptr<MailRoute>& route) {
    auto promise = std::make_shared<std::promise<bool>>();
    auto open = promise->get_future();
    std::thread query =
        posix::startSignalMaskedThread([route, promise] { promise->set_value(route->isOpen()); });
    if (!query.joinable())
        return false;
    query.detach();
    return open.wait_for(timeout) == std::future_status::ready && open.get();
}

bool LinuxMailService::canSendMail() {
    return std::ranges::any_of(routes_, opensInTime);
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
