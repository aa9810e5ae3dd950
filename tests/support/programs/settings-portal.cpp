// A desktop's settings portal, with the values of its arguments, "KEY=VALUE" in the standard namespace of
// appearances or "NAMESPACE/KEY=VALUE". A value is a whole number, a number with a point, "true" or "false",
// or a text. "ready" says that it can be asked. With "--set" and one such value as its arguments it has the
// running one change the value and announce it, and ends.

#include "tests/support/programs/ServedBus.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>

namespace {

constexpr const char* service = "org.freedesktop.portal.Desktop";
constexpr const char* object = "/org/freedesktop/portal/desktop";
constexpr const char* settings = "org.freedesktop.portal.Settings";
constexpr const char* tests = "com.tavix.wardlock.Test";
constexpr const char* appearance = "org.freedesktop.appearance";

/// By namespace and key.
std::map<std::string, std::map<std::string, std::string>> values;

struct Setting {
    std::string space;
    std::string key;
    std::string value;
};

Setting keep(const std::string& argument) {
    const auto equals = argument.find('=');
    const auto slash = argument.rfind('/', equals);
    const std::size_t begin = slash == std::string::npos ? 0 : slash + 1;
    const Setting setting{begin == 0 ? appearance : argument.substr(0, slash),
                          argument.substr(begin, equals - begin), argument.substr(equals + 1)};
    values[setting.space][setting.key] = setting.value;
    return setting;
}

void append(sd_bus_message* message, const std::string& value) {
    char* end = nullptr;
    const double number = std::strtod(value.c_str(), &end);
    if (value == "true" || value == "false")
        sd_bus_message_append(message, "v", "b", static_cast<int>(value == "true"));
    else if (*end == '\0' && value.find_first_not_of("0123456789") == std::string::npos)
        sd_bus_message_append(message, "v", "u", static_cast<std::uint32_t>(number));
    else if (*end == '\0')
        sd_bus_message_append(message, "v", "d", number);
    else
        sd_bus_message_append(message, "v", "s", value.c_str());
}

/// A namespace that was not requested comes first: a reply may contain more than the request.
void appendForeign(sd_bus_message* reply) {
    sd_bus_message_append(reply, "{sa{sv}}", "org.example.other", 1, "color-scheme", "u", std::uint32_t{1});
}

void appendSettings(sd_bus_message* reply, const std::string& space) {
    sd_bus_message_open_container(reply, 'e', "sa{sv}");
    sd_bus_message_append(reply, "s", space.c_str());
    sd_bus_message_open_container(reply, 'a', "{sv}");
    for (const auto& [key, value] : values[space]) {
        sd_bus_message_open_container(reply, 'e', "sv");
        sd_bus_message_append(reply, "s", key.c_str());
        append(reply, value);
        sd_bus_message_close_container(reply);
    }
    sd_bus_message_close_container(reply);
    sd_bus_message_close_container(reply);
}

int readAll(sd_bus_message* call, void*, sd_bus_error*) {
    sd_bus_message* reply = nullptr;
    sd_bus_message_new_method_return(call, &reply);
    sd_bus_message_open_container(reply, 'a', "{sa{sv}}");
    appendForeign(reply);
    const char* wanted = nullptr;
    sd_bus_message_enter_container(call, 'a', "s");
    while (sd_bus_message_read(call, "s", &wanted) > 0)
        if (values.contains(wanted))
            appendSettings(reply, wanted);
    sd_bus_message_close_container(reply);
    const int sent = sd_bus_send(nullptr, reply, nullptr);
    sd_bus_message_unref(reply);
    return sent < 0 ? sent : 1;
}

int set(sd_bus_message* call, void*, sd_bus_error*) {
    const char* argument = nullptr;
    sd_bus_message_read(call, "s", &argument);
    const Setting changed = keep(argument);
    sd_bus_message* signal = nullptr;
    sd_bus_message_new_signal(sd_bus_message_get_bus(call), &signal, object, settings, "SettingChanged");
    sd_bus_message_append(signal, "ss", changed.space.c_str(), changed.key.c_str());
    append(signal, changed.value);
    sd_bus_send(nullptr, signal, nullptr);
    sd_bus_message_unref(signal);
    return sd_bus_reply_method_return(call, "");
}

const sd_bus_vtable settingsTable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("ReadAll", "as", "a{sa{sv}}", readAll, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_VTABLE_END,
};
const sd_bus_vtable testsTable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("Set", "s", "", set, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_VTABLE_END,
};

int serve(sd_bus* bus) {
    if (sd_bus_add_object_vtable(bus, nullptr, object, settings, settingsTable, nullptr) < 0 ||
        sd_bus_add_object_vtable(bus, nullptr, object, tests, testsTable, nullptr) < 0 ||
        sd_bus_request_name(bus, service, SD_BUS_NAME_ALLOW_REPLACEMENT | SD_BUS_NAME_REPLACE_EXISTING) < 0)
        return 1;
    wardlock::test::serve(bus);
    return 0;
}

} // namespace

int main(int count, char** arguments) {
    sd_bus* bus = nullptr;
    if (sd_bus_open_user(&bus) < 0)
        return 1;
    int result = 0;
    if (count == 3 && std::strcmp(arguments[1], "--set") == 0) {
        result =
            sd_bus_call_method(bus, service, object, tests, "Set", nullptr, nullptr, "s", arguments[2]) < 0;
    } else {
        for (int i = 1; i < count; ++i)
            keep(arguments[i]);
        result = serve(bus);
    }
    sd_bus_close_unref(bus);
    return result;
}
