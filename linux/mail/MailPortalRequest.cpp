#include "linux/mail/MailPortalRequest.h"

#include "linux/bus/BusAddress.h"
#include "linux/bus/BusPointers.h"
#include "linux/bus/DesktopPortal.h"
#include "linux/mail/MailHeader.h"
#include "linux/posix/FileDescriptor.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <random>

namespace platform::mail {

namespace {

using bus::desktopportal::object;
using bus::desktopportal::service;

constexpr const char* emailInterface = "org.freedesktop.portal.Email";
constexpr const char* requestInterface = "org.freedesktop.portal.Request";
/// From this version on, a mail may have several recipients.
constexpr std::uint32_t versionWithAddresses = 3;

/// The response's first value, once the signal has come.
using Response = std::optional<std::uint32_t>;

constexpr auto ended = static_cast<std::uint32_t>(PortalResponse::Ended);

/// A response that cannot be read is a failure too: no better one follows.
int takeResponse(sd_bus_message* signal, void* response, sd_bus_error*) {
    std::uint32_t code = ended;
    if (sd_bus_message_read(signal, "u", &code) < 0)
        code = ended;
    *static_cast<Response*>(response) = code;
    return 0;
}

/// The portal has ended, or another one has come that does not know the request.
int takeOwner(sd_bus_message*, void* response, sd_bus_error*) {
    if (auto& code = *static_cast<Response*>(response); !code)
        code = ended;
    return 0;
}

std::string newToken() {
    std::random_device random;
    return "wardlock" + std::to_string(random()) + '_' + std::to_string(random());
}

/// Returns the path at which the portal will reply to a request of this connection: its unique name with
/// underscores for dots.
std::string requestPath(sd_bus& bus, const std::string& token) {
    const char* name = nullptr;
    if (sd_bus_get_unique_name(&bus, &name) < 0 || !name || *name != ':')
        return {};
    std::string sender(name + 1);
    std::ranges::replace(sender, '.', '_');
    return std::string(object) + "/request/" + sender + '/' + token;
}

bool appendText(sd_bus_message* call, const char* key, const std::string& text) {
    return sd_bus_message_append(call, "{sv}", key, "s", text.c_str()) >= 0;
}

bool appendRecipients(sd_bus_message* call, std::uint32_t version,
                      const std::vector<std::string>& recipients) {
    if (recipients.empty())
        return true;
    if (version < versionWithAddresses)
        return appendText(call, "address", recipients.front());
    bool appended = sd_bus_message_open_container(call, 'e', "sv") >= 0 &&
                    sd_bus_message_append(call, "s", "addresses") >= 0 &&
                    sd_bus_message_open_container(call, 'v', "as") >= 0 &&
                    sd_bus_message_open_container(call, 'a', "s") >= 0;
    for (const auto& recipient : recipients)
        appended = appended && sd_bus_message_append(call, "s", recipient.c_str()) >= 0;
    return appended && sd_bus_message_close_container(call) >= 0 &&
           sd_bus_message_close_container(call) >= 0 && sd_bus_message_close_container(call) >= 0;
}

bool appendFiles(sd_bus_message* call, const std::vector<std::string>& files) {
    if (files.empty())
        return true;
    bool appended = sd_bus_message_open_container(call, 'e', "sv") >= 0 &&
                    sd_bus_message_append(call, "s", "attachment_fds") >= 0 &&
                    sd_bus_message_open_container(call, 'v', "ah") >= 0 &&
                    sd_bus_message_open_container(call, 'a', "h") >= 0;
    for (const auto& file : files) {
        const posix::FileDescriptor opened(open(file.c_str(), O_RDONLY | O_CLOEXEC));
        // The message keeps a duplicate.
        appended = appended && opened && sd_bus_message_append(call, "h", opened.get()) >= 0;
    }
    return appended && sd_bus_message_close_container(call) >= 0 &&
           sd_bus_message_close_container(call) >= 0 && sd_bus_message_close_container(call) >= 0;
}

bus::BusMessage composeCall(sd_bus& bus, std::uint32_t version, const MailMessage& message,
                            const std::vector<std::string>& files, const std::string& token) {
    sd_bus_message* made = nullptr;
    if (sd_bus_message_new_method_call(&bus, &made, service, object, emailInterface, "ComposeEmail") < 0)
        return nullptr;
    bus::BusMessage call(made);
    const bool complete =
        sd_bus_message_append(made, "s", "") >= 0 && sd_bus_message_open_container(made, 'a', "{sv}") >= 0 &&
        appendText(made, "handle_token", token) && appendRecipients(made, version, message.recipients) &&
        appendText(made, "subject", withoutControls(message.subject)) &&
        appendText(made, "body", message.body) && appendFiles(made, files) &&
        sd_bus_message_close_container(made) >= 0;
    return complete ? std::move(call) : nullptr;
}

/// Processes the connection until the response has come.
void waitForResponse(sd_bus& bus, const Response& response, std::chrono::microseconds timeout) {
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    while (!response) {
        const int worked = sd_bus_process(&bus, nullptr);
        if (worked < 0)
            return;
        if (worked > 0)
            continue;
        const auto left = std::chrono::duration_cast<std::chrono::microseconds>(
            deadline - std::chrono::steady_clock::now());
        if (left.count() <= 0 || sd_bus_wait(&bus, static_cast<std::uint64_t>(left.count())) < 0)
            return;
    }
}

} // namespace

PortalBus openPortalBus() {
    const bus::BusAddress address = bus::busAddress();
    // A private bus has no portal.
    sd_bus* made = nullptr;
    if (!address.privateFolder.empty() || sd_bus_new(&made) < 0)
        return nullptr;
    PortalBus bus(made);
    const bool started = sd_bus_set_address(made, address.text.c_str()) >= 0 &&
                         sd_bus_set_bus_client(made, 1) >= 0 && sd_bus_start(made) >= 0;
    return started ? std::move(bus) : nullptr;
}

std::optional<std::uint32_t> emailPortalVersion(sd_bus& bus, std::chrono::microseconds timeout) {
    sd_bus_message* made = nullptr;
    if (sd_bus_message_new_method_call(&bus, &made, service, object, "org.freedesktop.DBus.Properties",
                                       "Get") < 0)
        return std::nullopt;
    const bus::BusMessage call(made);
    if (sd_bus_message_append(made, "ss", emailInterface, "version") < 0)
        return std::nullopt;
    sd_bus_message* received = nullptr;
    if (sd_bus_call(&bus, made, static_cast<std::uint64_t>(timeout.count()), nullptr, &received) < 0)
        return std::nullopt;
    const bus::BusMessage reply(received);
    std::uint32_t version = 0;
    return sd_bus_message_read(received, "v", "u", &version) >= 0 ? std::optional(version) : std::nullopt;
}

std::optional<PortalResponse> composeEmail(sd_bus& bus, std::uint32_t version, const MailMessage& message,
                                           const std::vector<std::string>& files,
                                           std::chrono::microseconds timeout) {
    const std::string token = newToken();
    const std::string path = requestPath(bus, token);
    const bus::BusMessage call = composeCall(bus, version, message, files, token);
    if (path.empty() || !call)
        return std::nullopt;
    // Subscribed before the call: the response may come before the call returns.
    Response response;
    sd_bus_slot* subscribed = nullptr;
    if (sd_bus_match_signal(&bus, &subscribed, service, path.c_str(), requestInterface, "Response",
                            takeResponse, &response) < 0)
        return std::nullopt;
    const bus::BusSlot slot(subscribed);
    const std::string owners = std::string("type='signal',sender='org.freedesktop.DBus',"
                                           "path='/org/freedesktop/DBus',interface='org.freedesktop.DBus',"
                                           "member='NameOwnerChanged',arg0='") +
                               service + "'";
    if (sd_bus_add_match(&bus, &subscribed, owners.c_str(), takeOwner, &response) < 0)
        return std::nullopt;
    const bus::BusSlot ownerSlot(subscribed);
    sd_bus_message* received = nullptr;
    if (sd_bus_call(&bus, call.get(), static_cast<std::uint64_t>(timeout.count()), nullptr, &received) < 0)
        return std::nullopt;
    const bus::BusMessage reply(received);
    waitForResponse(bus, response, timeout);
    return response ? std::optional(static_cast<PortalResponse>(*response)) : std::nullopt;
}

} // namespace platform::mail
