// A desktop's portal that does not do what portals do; the first argument says how:
//   version       the email interface's version is a text
//   response      the response to a mail is a text
//   silence       no call gets a reply
//   end           ends while the user chooses the mail program
//   look          the desktop's look is a text
//   nonsense      the desktop's look is a dictionary of other kinds
//   bounds        the desktop's text is larger than any text
// "ready" says that it can be called.

#include "tests/support/programs/ServedBus.h"

#include <cstdlib>
#include <string>
#include <string_view>
#include <unistd.h>

namespace {

constexpr const char* object = "/org/freedesktop/portal/desktop";
std::string lie;

/// Where the caller listens for the response, as its options say.
std::string requestOf(sd_bus_message* call) {
    std::string token;
    const char* text = nullptr;
    sd_bus_message_read(call, "s", &text);
    sd_bus_message_enter_container(call, 'a', "{sv}");
    while (sd_bus_message_enter_container(call, 'e', "sv") > 0) {
        sd_bus_message_read(call, "s", &text);
        const bool isToken = std::string_view(text) == "handle_token";
        if (isToken && sd_bus_message_read(call, "v", "s", &text) > 0)
            token = text;
        else
            sd_bus_message_skip(call, "v");
        sd_bus_message_exit_container(call);
    }
    std::string sender = sd_bus_message_get_sender(call) + 1;
    for (char& letter : sender)
        letter = letter == '.' ? '_' : letter;
    return std::string(object) + "/request/" + sender + '/' + token;
}

int composeEmail(sd_bus_message* call, void*, sd_bus_error*) {
    if (lie == "silence")
        return 1;
    const std::string request = requestOf(call);
    sd_bus* bus = sd_bus_message_get_bus(call);
    sd_bus_reply_method_return(call, "o", request.c_str());
    if (lie == "response")
        sd_bus_emit_signal(bus, request.c_str(), "org.freedesktop.portal.Request", "Response", "s", "done");
    sd_bus_flush(bus);
    if (lie == "end")
        _exit(0);
    return 1;
}

int version(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void*, sd_bus_error*) {
    return lie == "version" ? sd_bus_message_append(reply, "s", "four")
                            : sd_bus_message_append(reply, "u", 4u);
}

int readAll(sd_bus_message* call, void*, sd_bus_error*) {
    if (lie == "silence")
        return 1;
    if (lie == "nonsense")
        return sd_bus_reply_method_return(call, "a{sa{sv}}", 1, "org.freedesktop.appearance", 2,
                                          "color-scheme", "as", 2, "dark", "light", "contrast", "a{sv}", 1,
                                          "x", "d", 1.0);
    if (lie == "bounds")
        return sd_bus_reply_method_return(call, "a{sa{sv}}", 1, "org.gnome.desktop.interface", 2,
                                          "text-scaling-factor", "d", 1e300, "enable-animations", "as", 0);
    return sd_bus_reply_method_return(call, "s", "dark");
}

const sd_bus_vtable emailTable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("ComposeEmail", "sa{sv}", "o", composeEmail, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_PROPERTY("version", "u", version, 0, 0),
    SD_BUS_VTABLE_END,
};
const sd_bus_vtable emailTableOfTexts[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("ComposeEmail", "sa{sv}", "o", composeEmail, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_PROPERTY("version", "s", version, 0, 0),
    SD_BUS_VTABLE_END,
};
const sd_bus_vtable settingsTable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("ReadAll", "as", "s", readAll, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_VTABLE_END,
};

} // namespace

int main(int count, char** arguments) {
    if (count != 2)
        return 2;
    lie = arguments[1];
    sd_bus* bus = nullptr;
    const bool isServed =
        sd_bus_open_user(&bus) >= 0 &&
        sd_bus_add_object_vtable(bus, nullptr, object, "org.freedesktop.portal.Email",
                                 lie == "version" ? emailTableOfTexts : emailTable, nullptr) >= 0 &&
        sd_bus_add_object_vtable(bus, nullptr, object, "org.freedesktop.portal.Settings", settingsTable,
                                 nullptr) >= 0 &&
        sd_bus_request_name(bus, "org.freedesktop.portal.Desktop", 0) >= 0;
    if (!isServed)
        return EXIT_FAILURE;
    wardlock::test::serve(bus);
    sd_bus_close_unref(bus);
    return 0;
}
