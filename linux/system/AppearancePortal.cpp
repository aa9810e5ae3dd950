#include "linux/system/AppearancePortal.h"

#include "linux/bus/BusAddress.h"
#include "linux/bus/DesktopPortal.h"
#include "linux/posix/LoopSources.h"

namespace platform::system {

namespace {

constexpr const char* settingsInterface = "org.freedesktop.portal.Settings";
constexpr const char* appearance = "org.freedesktop.appearance";

/// A desktop that is still starting takes its time over the first query, and no caller waits for the reply.
constexpr std::uint64_t answerMicroseconds = 30'000'000;

/// Only the numbers of the portal's own table: all others count as no preference.
constexpr std::uint32_t dark = 1;
constexpr std::uint32_t light = 2;
constexpr std::uint32_t wanted = 1;

} // namespace

AppearancePortal::AppearancePortal(std::function<void()> changed) : changed_(std::move(changed)) {
    // A private bus has no desktop on it.
    if (const bus::BusAddress address = bus::busAddress(); address.ownFolder.empty())
        connection_ = bus::BusConnection::open(address.text, bus::BusConnection::Peer::Any);
    // Listens first: a change during the query is not lost.
    if (!connection_ || !listen() || !ask())
        leave();
    posix::LoopSources::shared().add(*this);
}

AppearancePortal::~AppearancePortal() {
    posix::LoopSources::shared().remove(*this);
    leave();
}

bool AppearancePortal::listen() {
    const std::string portal = bus::desktopportal::service;
    return listen("type='signal',sender='" + portal + "',path='" + bus::desktopportal::object +
                      "',interface='" + settingsInterface + "',member='SettingChanged',arg0='" + appearance +
                      "'",
                  onChange, changes_) &&
           listen("type='signal',sender='org.freedesktop.DBus',path='/org/freedesktop/DBus',"
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

bool AppearancePortal::ask() {
    sd_bus_message* made = nullptr;
    if (sd_bus_message_new_method_call(connection_->bus(), &made, bus::desktopportal::service,
                                       bus::desktopportal::object, settingsInterface, "ReadAll") < 0)
        return false;
    const bus::BusMessage call(made);
    sd_bus_slot* slot = nullptr;
    if (sd_bus_message_append(made, "as", 1, appearance) < 0 ||
        sd_bus_call_async(connection_->bus(), &slot, made, onAnswer, this, answerMicroseconds) < 0)
        return false;
    question_.reset(slot);
    return true;
}

void AppearancePortal::leave() {
    question_.reset();
    owners_.reset();
    changes_.reset();
    connection_.reset();
    answered_ = true;
}

bool AppearancePortal::waitForAnswer(std::chrono::milliseconds patience) {
    const auto deadline = Clock::now() + patience;
    process();
    while (!answered_ && connection_->wait(deadline))
        process();
    // The loop has to watch what the connection now waits for.
    posix::LoopSources::shared().refresh();
    return answered_;
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
        leave();
    if (look_ == told_)
        return;
    told_ = look_;
    changed_();
}

int AppearancePortal::onAnswer(sd_bus_message* message, void* self, sd_bus_error*) {
    auto& portal = *static_cast<AppearancePortal*>(self);
    portal.answered_ = true;
    if (sd_bus_message_is_method_error(message, nullptr) == 0)
        portal.readAll(message);
    return 1;
}

int AppearancePortal::onChange(sd_bus_message* message, void* self, sd_bus_error*) {
    const char* space = nullptr;
    const char* key = nullptr;
    if (sd_bus_message_read(message, "ss", &space, &key) > 0)
        static_cast<AppearancePortal*>(self)->readValue(message, key);
    return 0;
}

int AppearancePortal::onOwner(sd_bus_message* message, void* self, sd_bus_error*) {
    const char* name = nullptr;
    const char* before = nullptr;
    const char* now = nullptr;
    if (sd_bus_message_read(message, "sss", &name, &before, &now) > 0 && *now)
        static_cast<AppearancePortal*>(self)->ask();
    return 0;
}

/// The desktop has no preference for a setting that is missing in the reply.
void AppearancePortal::readAll(sd_bus_message* answer) {
    look_ = DesktopAppearance();
    sd_bus_message_enter_container(answer, 'a', "{sa{sv}}");
    while (sd_bus_message_enter_container(answer, 'e', "sa{sv}") > 0) {
        const char* space = nullptr;
        if (sd_bus_message_read(answer, "s", &space) > 0 && std::string_view(space) == appearance)
            readValues(answer);
        else
            sd_bus_message_skip(answer, "a{sv}");
        sd_bus_message_exit_container(answer);
    }
}

void AppearancePortal::readValues(sd_bus_message* answer) {
    sd_bus_message_enter_container(answer, 'a', "{sv}");
    while (sd_bus_message_enter_container(answer, 'e', "sv") > 0) {
        const char* key = nullptr;
        if (sd_bus_message_read(answer, "s", &key) > 0)
            readValue(answer, key);
        sd_bus_message_exit_container(answer);
    }
    sd_bus_message_exit_container(answer);
}

void AppearancePortal::readValue(sd_bus_message* message, std::string_view key) {
    const char* type = nullptr;
    std::uint32_t value = 0;
    if (sd_bus_message_peek_type(message, nullptr, &type) > 0 && type && std::string_view(type) == "u") {
        if (sd_bus_message_read(message, "v", "u", &value) > 0)
            take(key, value);
    } else {
        sd_bus_message_skip(message, "v");
    }
}

void AppearancePortal::take(std::string_view key, std::uint32_t value) {
    if (key == "color-scheme")
        look_.dark = value == dark || value == light ? std::optional(value == dark) : std::nullopt;
    else if (key == "contrast")
        look_.highContrast = value == wanted;
    else if (key == "reduced-motion")
        look_.reducedMotion = value == wanted;
}

} // namespace platform::system
