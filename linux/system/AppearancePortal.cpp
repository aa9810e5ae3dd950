#include "linux/system/AppearancePortal.h"

#include "linux/bus/BusAddress.h"
#include "linux/bus/DesktopPortal.h"
#include "linux/posix/LoopSources.h"

namespace platform::system {

namespace {

constexpr const char* settingsInterface = "org.freedesktop.portal.Settings";

/// A desktop that is still starting takes its time over the first query, and no caller waits for the reply.
constexpr std::uint64_t replyMicroseconds = 30'000'000;

} // namespace

AppearancePortal::AppearancePortal(std::function<void()> changed) : changed_(std::move(changed)) {
    // A private bus has no desktop on it.
    if (const bus::BusAddress address = bus::busAddress(); address.privateFolder.empty())
        connection_ = bus::BusConnection::open(address.text, bus::BusConnection::Peer::Any);
    // Listens first: a change during the query is not lost.
    if (!connection_ || !listen() || !query())
        disconnect();
    turns_ = posix::LoopSources::shared().add(*this);
}

bool AppearancePortal::listen() {
    const std::string portal = bus::desktopportal::service;
    for (std::size_t i = 0; i < changes_.size(); ++i)
        if (!listen("type='signal',sender='" + portal + "',path='" + bus::desktopportal::object +
                        "',interface='" + settingsInterface + "',member='SettingChanged',arg0='" +
                        AppearanceSettings::namespaces[i] + "'",
                    onChange, changes_[i]))
            return false;
    return listen("type='signal',sender='org.freedesktop.DBus',path='/org/freedesktop/DBus',"
                  "interface='org.freedesktop.DBus',member='NameOwnerChanged',arg0='" +
                      portal + "'",
                  onOwner, owners_);
}

bool AppearancePortal::listen(const std::string& match, sd_bus_message_handler_t handler,
                              bus::BusSlot& slot) {
    sd_bus_slot* made = nullptr;
    if (sd_bus_add_match_async(connection_->bus(), &made, match.c_str(), handler, nullptr, this) < 0)
        return false;
    slot.reset(made);
    return true;
}

bool AppearancePortal::query() {
    sd_bus_message* made = nullptr;
    if (sd_bus_message_new_method_call(connection_->bus(), &made, bus::desktopportal::service,
                                       bus::desktopportal::object, settingsInterface, "ReadAll") < 0)
        return false;
    const bus::BusMessage call(made);
    sd_bus_slot* slot = nullptr;
    const auto& [standard, gnome, gnomeAccessibility] = AppearanceSettings::namespaces;
    if (sd_bus_message_append(made, "as", 3, standard, gnome, gnomeAccessibility) < 0 ||
        sd_bus_call_async(connection_->bus(), &slot, made, onReply, this, replyMicroseconds) < 0)
        return false;
    query_.reset(slot);
    return true;
}

void AppearancePortal::disconnect() {
    query_.reset();
    owners_.reset();
    changes_ = {};
    connection_.reset();
    replied_ = true;
}

bool AppearancePortal::waitForFirstReport(std::chrono::milliseconds timeout) {
    const auto deadline = Clock::now() + timeout;
    process();
    while (!replied_ && connection_->wait(deadline))
        process();
    // The loop has to watch what the connection now waits for.
    posix::LoopSources::shared().refresh();
    return replied_;
}

int AppearancePortal::descriptor() const {
    return connection_ ? connection_->descriptor() : -1;
}

short AppearancePortal::events() const {
    return connection_ ? connection_->events() : short{0};
}

std::optional<AppearancePortal::Clock::time_point> AppearancePortal::deadline() const {
    return connection_ ? connection_->deadline() : std::nullopt;
}

void AppearancePortal::process() {
    if (!connection_)
        return;
    connection_->process();
    if (connection_->isLost())
        disconnect();
    if (current_ == reported_)
        return;
    reported_ = current_;
    changed_();
}

int AppearancePortal::onReply(sd_bus_message* message, void* self, sd_bus_error*) {
    auto& portal = *static_cast<AppearancePortal*>(self);
    portal.replied_ = true;
    if (sd_bus_message_is_method_error(message, nullptr) == 0)
        portal.readAll(message);
    return 1;
}

int AppearancePortal::onChange(sd_bus_message* message, void* self, sd_bus_error*) {
    auto& portal = *static_cast<AppearancePortal*>(self);
    const char* space = nullptr;
    const char* key = nullptr;
    if (sd_bus_message_read(message, "ss", &space, &key) > 0)
        portal.settings_.read(message, space, key);
    portal.current_ = portal.settings_.appearance();
    return 0;
}

int AppearancePortal::onOwner(sd_bus_message* message, void* self, sd_bus_error*) {
    const char* name = nullptr;
    const char* before = nullptr;
    const char* now = nullptr;
    if (sd_bus_message_read(message, "sss", &name, &before, &now) > 0 && *now)
        static_cast<AppearancePortal*>(self)->query();
    return 0;
}

/// The desktop has no preference for a setting that is missing in the reply.
void AppearancePortal::readAll(sd_bus_message* reply) {
    settings_ = AppearanceSettings();
    sd_bus_message_enter_container(reply, 'a', "{sa{sv}}");
    while (sd_bus_message_enter_container(reply, 'e', "sa{sv}") > 0) {
        const char* space = nullptr;
        if (sd_bus_message_read(reply, "s", &space) > 0)
            readSettings(reply, space);
        sd_bus_message_exit_container(reply);
    }
    current_ = settings_.appearance();
    reportsContrast_ = settings_.haveContrast();
}

void AppearancePortal::readSettings(sd_bus_message* reply, const char* space) {
    sd_bus_message_enter_container(reply, 'a', "{sv}");
    while (sd_bus_message_enter_container(reply, 'e', "sv") > 0) {
        const char* key = nullptr;
        if (sd_bus_message_read(reply, "s", &key) > 0)
            settings_.read(reply, space, key);
        sd_bus_message_exit_container(reply);
    }
    sd_bus_message_exit_container(reply);
}

} // namespace platform::system
