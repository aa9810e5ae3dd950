// A desktop's email portal: prints what it is asked to compose, a line each. It replies with the response
// code of its first argument; the second is its version. The third is a named pipe: the reply is sent when a
// process has opened it for writing. A user who chooses a mail program takes as long. "ready" says that
// it can be called.

#include "tests/support/programs/ServedBus.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace {

std::uint32_t responseCode = 0;
std::uint32_t portalVersion = 4;
const char* chooser = nullptr;

std::string contentOf(int file) {
    std::array<char, 4096> room{};
    const ssize_t count = pread(file, room.data(), room.size(), 0);
    return count > 0 ? std::string(room.data(), static_cast<std::size_t>(count)) : std::string();
}

std::string nameOf(int file) {
    std::array<char, 4096> room{};
    const ssize_t count =
        readlink(("/proc/self/fd/" + std::to_string(file)).c_str(), room.data(), room.size());
    const std::string path =
        count > 0 ? std::string(room.data(), static_cast<std::size_t>(count)) : std::string();
    return path.substr(path.rfind('/') + 1);
}

void readOption(sd_bus_message* call, std::string& token) {
    const char* key = nullptr;
    const char* type = nullptr;
    sd_bus_message_read(call, "s", &key);
    sd_bus_message_peek_type(call, nullptr, &type);
    const std::string kind = type;
    sd_bus_message_enter_container(call, 'v', kind.c_str());
    if (kind == "s") {
        const char* text = nullptr;
        sd_bus_message_read(call, "s", &text);
        if (std::strcmp(key, "handle_token") == 0)
            token = text;
        else
            std::printf("%s=%s\n", key, text);
    } else if (kind == "as") {
        sd_bus_message_enter_container(call, 'a', "s");
        const char* text = nullptr;
        while (sd_bus_message_read(call, "s", &text) > 0)
            std::printf("%s=%s\n", key, text);
        sd_bus_message_exit_container(call);
    } else if (kind == "ah") {
        sd_bus_message_enter_container(call, 'a', "h");
        int file = -1;
        while (sd_bus_message_read(call, "h", &file) > 0)
            std::printf("%s=%s:%s\n", key, nameOf(file).c_str(), contentOf(file).c_str());
        sd_bus_message_exit_container(call);
    }
    sd_bus_message_exit_container(call);
}

void waitForUser(sd_bus_message* call, const std::string& request) {
    sd_bus_reply_method_return(call, "o", request.c_str());
    sd_bus_flush(sd_bus_message_get_bus(call));
    std::puts("asking");
    std::fflush(stdout);
    close(open(chooser, O_RDONLY));
}

int composeEmail(sd_bus_message* call, void*, sd_bus_error*) {
    std::string token;
    const char* parent = nullptr;
    sd_bus_message_read(call, "s", &parent);
    sd_bus_message_enter_container(call, 'a', "{sv}");
    while (sd_bus_message_enter_container(call, 'e', "sv") > 0) {
        readOption(call, token);
        sd_bus_message_exit_container(call);
    }
    sd_bus_message_exit_container(call);
    std::string sender = sd_bus_message_get_sender(call) + 1;
    for (char& letter : sender)
        letter = letter == '.' ? '_' : letter;
    const std::string request = "/org/freedesktop/portal/desktop/request/" + sender + '/' + token;
    sd_bus* bus = sd_bus_message_get_bus(call);
    if (chooser)
        waitForUser(call, request);
    // Else the reply before the call returns: the caller has to be listening by now.
    sd_bus_emit_signal(bus, request.c_str(), "org.freedesktop.portal.Request", "Response", "ua{sv}",
                       responseCode, 0);
    std::puts("composed");
    std::fflush(stdout);
    return chooser ? 1 : sd_bus_reply_method_return(call, "o", request.c_str());
}

const sd_bus_vtable emailTable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("ComposeEmail", "sa{sv}", "o", composeEmail, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_PROPERTY("version", "u", nullptr, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_VTABLE_END,
};

} // namespace

int main(int count, char** arguments) {
    if (count > 1)
        responseCode = static_cast<std::uint32_t>(std::atoi(arguments[1]));
    if (count > 2)
        portalVersion = static_cast<std::uint32_t>(std::atoi(arguments[2]));
    if (count > 3)
        chooser = arguments[3];
    sd_bus* bus = nullptr;
    if (sd_bus_open_user(&bus) < 0 ||
        sd_bus_add_object_vtable(bus, nullptr, "/org/freedesktop/portal/desktop",
                                 "org.freedesktop.portal.Email", emailTable, &portalVersion) < 0 ||
        sd_bus_request_name(bus, "org.freedesktop.portal.Desktop", 0) < 0)
        return 1;
    wardlock::test::serve(bus);
    sd_bus_close_unref(bus);
    return 0;
}
