#include "linux/system/BusProgram.h"

#include "linux/bus/BusAddress.h"
#include "linux/bus/PrivateBus.h"
#include "linux/notifications/DeviceRootIdentity.h"
#include "linux/posix/LoopSources.h"
#include "platform/files/DeviceRoot.h"

#include <chrono>
#include <cstdint>
#include <string_view>
#include <utility>

namespace platform {

namespace system {

namespace {

using bus::BusConnection;

constexpr const char* applicationInterface = "org.freedesktop.Application";
constexpr const char* tokenKey = "activation-token";
/// Generous, for a busy machine: only a bus or a program that hangs takes as long.
constexpr std::chrono::seconds connectionTime{2};
constexpr std::uint64_t replyMicroseconds = 3'000'000;

constexpr std::uint32_t doNotQueue = 4;
constexpr std::uint32_t isOwner = 1;
constexpr std::uint32_t belongsToOther = 3;

/// A part of a bus name consists of letters, digits and underscores: all other bytes are written in hex.
std::string busNamePart(std::string_view text) {
    constexpr char hexDigits[] = "0123456789abcdef";
    std::string part;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'))
            part += c;
        else
            part.append({'_', hexDigits[byte >> 4], hexDigits[byte & 15]});
    }
    return part;
}

/// Where a program of the kind is found on the bus.
struct Place {
    /// The name by which the desktop starts one.
    std::string program;
    /// The name of the one for the device root.
    std::string ofRoot;
    std::string object;
};

Place placeOf(const std::string& kind) {
    constexpr std::size_t longest = 255;
    const std::string program = "com.tavix.wardlock." + kind;
    return {program,
            (program + ".root_" + busNamePart(notifications::deviceRootIdentity())).substr(0, longest),
            "/com/tavix/wardlock/" + kind};
}

std::unique_ptr<BusConnection> connect() {
    const bus::BusAddress address = bus::busAddress();
    const auto deadline = BusConnection::Clock::now() + connectionTime;
    if (address.privateFolder.empty())
        return BusConnection::openReady(address.text, BusConnection::Peer::Any, deadline);
    // The folder first: in a folder that another user has put there, another user listens.
    const bus::PrivateBus bus(address.privateFolder);
    if (!bus.folderIsPrivate())
        return nullptr;
    if (auto connection = BusConnection::openReady(address.text, BusConnection::Peer::OwnUser, deadline))
        return connection;
    bus.start();
    return BusConnection::openReady(address.text, BusConnection::Peer::OwnUser, deadline);
}

/// Calls the method that the message names. Returns null without a reply in time, and for an error.
bus::BusMessage call(BusConnection& connection, sd_bus_message* message) {
    sd_bus_message* reply = nullptr;
    if (sd_bus_call(connection.bus(), message, replyMicroseconds, nullptr, &reply) < 0)
        return nullptr;
    return bus::BusMessage(reply);
}

/// Returns what the bus says to a request of the name; 0 for no reply.
std::uint32_t requestName(BusConnection& connection, const std::string& name) {
    sd_bus_message* made = nullptr;
    if (sd_bus_message_new_method_call(connection.bus(), &made, "org.freedesktop.DBus",
                                       "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName") < 0)
        return 0;
    const bus::BusMessage request(made);
    if (sd_bus_message_append(made, "su", name.c_str(), doNotQueue) < 0)
        return 0;
    const auto reply = call(connection, made);
    std::uint32_t said = 0;
    return reply && sd_bus_message_read(reply.get(), "u", &said) > 0 ? said : 0;
}

/// Returns whether the running program has come to the front.
bool activate(BusConnection& connection, const Place& place, const std::string& token) {
    sd_bus_message* made = nullptr;
    if (sd_bus_message_new_method_call(connection.bus(), &made, place.ofRoot.c_str(), place.object.c_str(),
                                       applicationInterface, "Activate") < 0)
        return false;
    const bus::BusMessage request(made);
    const int appended = token.empty()
                             ? sd_bus_message_append(made, "a{sv}", 0)
                             : sd_bus_message_append(made, "a{sv}", 1, tokenKey, "s", token.c_str());
    return appended >= 0 && call(connection, made) != nullptr;
}

/// For a process that the bus has started while another is the running program: passes the call for which it
/// was started on to that one, with its token. Returns whether that has come to the front.
bool passOn(BusProgram& program, const Place& place) {
    BusConnection& connection = program.connection();
    bool isCalled = false;
    bool isRaised = false;
    program.setRaise([&](const std::string& token) {
        isCalled = true;
        isRaised = activate(connection, place, token);
    });
    const auto deadline = BusConnection::Clock::now() + connectionTime;
    if (requestName(connection, place.program) == isOwner)
        for (program.process(); !isCalled && !connection.isLost() && connection.wait(deadline);)
            program.process();
    // A caller may have asked the bus for the start alone.
    return isCalled ? isRaised : activate(connection, place, "");
}

std::string readToken(sd_bus_message* call) {
    std::string token;
    if (sd_bus_message_enter_container(call, 'a', "{sv}") < 0)
        return token;
    while (sd_bus_message_enter_container(call, 'e', "sv") > 0) {
        const char* key = nullptr;
        const char* text = nullptr;
        const char* type = nullptr;
        if (sd_bus_message_read(call, "s", &key) > 0 && std::string_view(key) == tokenKey &&
            sd_bus_message_peek_type(call, nullptr, &type) > 0 && std::string_view(type) == "s" &&
            sd_bus_message_read(call, "v", "s", &text) > 0)
            token = text;
        else
            sd_bus_message_skip(call, "v");
        sd_bus_message_exit_container(call);
    }
    return token;
}

} // namespace

std::unique_ptr<BusProgram> BusProgram::offer(std::unique_ptr<BusConnection> connection,
                                              const std::string& objectPath, Raise raise) {
    static const sd_bus_vtable methods[] = {
        SD_BUS_VTABLE_START(0),
        SD_BUS_METHOD("Activate", "a{sv}", "", onActivate, SD_BUS_VTABLE_UNPRIVILEGED),
        SD_BUS_VTABLE_END,
    };
    std::unique_ptr<BusProgram> program(new BusProgram(std::move(connection), std::move(raise)));
    sd_bus_slot* slot = nullptr;
    if (sd_bus_add_object_vtable(program->connection_->bus(), &slot, objectPath.c_str(), applicationInterface,
                                 methods, program.get()) < 0)
        return nullptr;
    program->object_.reset(slot);
    program->turns_ = posix::LoopSources::shared().add(*program);
    return program;
}

int BusProgram::descriptor() const {
    return connection_->descriptor();
}

short BusProgram::events() const {
    return connection_->events();
}

std::optional<BusProgram::Clock::time_point> BusProgram::deadline() const {
    return connection_->deadline();
}

void BusProgram::process() {
    if (!connection_->isLost())
        connection_->process();
}

int BusProgram::onActivate(sd_bus_message* call, void* self, sd_bus_error*) {
    static_cast<BusProgram*>(self)->raise_(readToken(call));
    return sd_bus_reply_method_return(call, "");
}

} // namespace system

ProgramStart startProgram(const std::string& kind, StartedBy by, const std::string& activationToken,
                          std::function<void(const std::string& activationToken)> raise) {
    auto connection = system::connect();
    if (!connection)
        return {};
    // The object before the name: a later start that finds the name finds the object, too.
    auto& bus = *connection;
    const system::Place place = system::placeOf(kind);
    auto program = system::BusProgram::offer(std::move(connection), place.object, raise);
    if (!program)
        return {};
    const std::uint32_t said = system::requestName(bus, place.ofRoot);
    const bool isByBus = by == StartedBy::Bus;
    if (said == system::belongsToOther &&
        (isByBus ? system::passOn(*program, place) : system::activate(bus, place, activationToken)))
        return {true, nullptr};
    if (said != system::isOwner && !isByBus)
        return {};
    program->setRaise(std::move(raise));
    // Another may have it, for the device root that the bus's own environment names.
    if (isByBus || deviceRootIsDefault())
        system::requestName(bus, place.program);
    return {false, std::move(program)};
}

} // namespace platform
