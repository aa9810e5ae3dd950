#include "linux/LinuxMailService.h"

#include "linux/MailOutbox.h"
#include "linux/MailPortal.h"
#include "linux/MailProgram.h"
#include "platform/foundation/NSOperationQueue.h"
#include "platform/services/SystemMailService.h"

#include <algorithm>
#include <future>
#include <thread>

namespace platform {

namespace {

/// A tap on the mail row waits this long for each route at most.
constexpr std::chrono::seconds patience{3};

MailOutcome sendBy(const std::vector<std::shared_ptr<MailRoute>>& routes, const MailMessage& message) {
    for (const auto& route : routes)
        if (route->isOpen())
            if (const auto outcome = route->send(message))
                return *outcome;
    return {MailOutcome::Kind::Failed, "No mail program could be reached."};
}

/// On a thread of its own. `done` keeps objects of the main thread alive, so it is handed over to die there.
void sendAndTell(const std::vector<std::shared_ptr<MailRoute>>& routes, const MailMessage& message,
                 std::function<void(const MailOutcome&)>&& done) {
    const MailOutcome outcome = sendBy(routes, message);
    NSOperationQueue::mainQueue().addOperation([outcome, done = std::move(done)] { done(outcome); });
}

} // namespace

bool opensInTime(const std::shared_ptr<MailRoute>& route) {
    auto promise = std::make_shared<std::promise<bool>>();
    auto open = promise->get_future();
    std::thread([route, promise] { promise->set_value(route->isOpen()); }).detach();
    return open.wait_for(patience) == std::future_status::ready && open.get();
}

bool LinuxMailService::canSendMail() {
    return std::ranges::any_of(routes_, opensInTime);
}

void LinuxMailService::send(const MailMessage& message, std::function<void(const MailOutcome&)> done) {
    std::thread(sendAndTell, routes_, message, std::move(done)).detach();
}

MailService& systemMailService() {
    static LinuxMailService service(
        {std::make_shared<MailPortal>(), std::make_shared<MailProgram>(), std::make_shared<MailOutbox>()});
    return service;
}

} // namespace platform
