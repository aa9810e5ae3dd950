// The reader of notifications, on whatever a program on the bus may send: the input is the plan of a message.
// What the reader accepts, the writer must be able to write, and the reader to read again to the same.

#include "linux/BusPointers.h"
#include "linux/NotificationFormat.h"
#include "linux/NotificationMessage.h"

#include <systemd/sd-bus.h>

#include <cstdint>
#include <cstdlib>
#include <fuzzer/FuzzedDataProvider.h>
#include <string>
#include <sys/socket.h>

namespace {

using platform::BusMessage;

/// Messages need a bus, but no bus needs to be there.
sd_bus* unconnectedBus() {
    sd_bus* bus = nullptr;
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends) != 0 ||
        sd_bus_new(&bus) < 0 || sd_bus_set_fd(bus, ends[0], ends[0]) < 0 || sd_bus_start(bus) < 0)
        std::abort();
    return bus;
}

std::string textOf(FuzzedDataProvider& plan) {
    std::string text = plan.ConsumeRandomLengthString(16);
    for (char& c : text)
        c = static_cast<char>((c & 0x7F) ? (c & 0x7F) : 'x');
    return text;
}

class MessagePlanner {
public:
    MessagePlanner(sd_bus_message* message, FuzzedDataProvider& plan) : message_(message), plan_(plan) {}

    void appendNotification() {
        sd_bus_message_append(message_, "ss", "1:2", textOf(plan_).c_str());
        sd_bus_message_open_container(message_, 'a', "s");
        for (int count = plan_.ConsumeIntegralInRange(0, 2); count > 0; --count)
            sd_bus_message_append(message_, "s", textOf(plan_).c_str());
        sd_bus_message_close_container(message_);
        appendVariants(plan_.ConsumeIntegralInRange(0, 2), 0);
    }

private:
    void appendVariants(int count, int level) {
        sd_bus_message_open_container(message_, 'a', "v");
        while (count-- > 0)
            appendVariant(level + 1);
        sd_bus_message_close_container(message_);
    }

    void appendVariant(int level) {
        static constexpr const char* deepSignatures[] = {"av", "a{sv}", "(av)"};
        static constexpr const char* flatSignatures[] = {"b", "y", "n", "q",  "i",  "u",   "x",    "t",
                                                         "d", "s", "o", "as", "ay", "(d)", "(ay)", "(su)"};
        const bool deep = level < 30 && plan_.ConsumeBool();
        const std::string signature =
            deep ? plan_.PickValueInArray(deepSignatures) : plan_.PickValueInArray(flatSignatures);
        sd_bus_message_open_container(message_, 'v', signature.c_str());
        appendContents(signature, level);
        sd_bus_message_close_container(message_);
    }

    void appendContents(const std::string& signature, int level) {
        const auto number = plan_.ConsumeIntegral<std::uint64_t>();
        const std::string text = textOf(plan_);
        const std::string bytes = plan_.ConsumeRandomLengthString(16);
        if (signature.front() == '(') {
            const std::string inner = signature.substr(1, signature.size() - 2);
            sd_bus_message_open_container(message_, 'r', inner.c_str());
            if (inner == "su")
                sd_bus_message_append(
                    message_, "su",
                    number & 1   ? "array"
                    : number & 2 ? "dictionary"
                                 : text.c_str(),
                    static_cast<std::uint32_t>(number & 4 ? number >> 32 : (number >> 3) & 3));
            else
                appendContents(inner, level);
            sd_bus_message_close_container(message_);
        } else if (signature == "av") {
            appendVariants(static_cast<int>(number & 7), level);
        } else if (signature == "a{sv}") {
            appendEntries(static_cast<int>(number & 7), level);
        } else if (signature == "as") {
            sd_bus_message_append(message_, "as", 1, text.c_str());
        } else if (signature == "ay") {
            sd_bus_message_append_array(message_, 'y', bytes.data(), bytes.size());
        } else if (signature == "s") {
            sd_bus_message_append_basic(message_, 's', text.c_str());
        } else if (signature == "o") {
            sd_bus_message_append_basic(message_, 'o', "/path");
        } else if (signature == "b") {
            const int boolean = static_cast<int>(number & 1);
            sd_bus_message_append_basic(message_, 'b', &boolean);
        } else {
            sd_bus_message_append_basic(message_, signature.front(), &number);
        }
    }

    void appendEntries(int count, int level) {
        sd_bus_message_open_container(message_, 'a', "{sv}");
        while (count-- > 0) {
            sd_bus_message_open_container(message_, 'e', "sv");
            sd_bus_message_append_basic(message_, 's', textOf(plan_).c_str());
            appendVariant(level + 1);
            sd_bus_message_close_container(message_);
        }
        sd_bus_message_close_container(message_);
    }

    sd_bus_message* message_;
    FuzzedDataProvider& plan_;
};

/// As a receiver gets it.
bool seal(sd_bus_message* message) {
    return sd_bus_message_seal(message, 1, 0) >= 0 && sd_bus_message_rewind(message, 1) >= 0;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static sd_bus* const bus = unconnectedBus();
    namespace format = platform::notificationformat;
    FuzzedDataProvider plan(bytes, size);
    sd_bus_message* created = nullptr;
    if (sd_bus_message_new_signal(bus, &created, format::path, format::interface, format::member) < 0)
        std::abort();
    const BusMessage message(created);
    MessagePlanner(created, plan).appendNotification();
    if (!seal(created))
        return 0;
    const auto notification = platform::readNotification(created);
    if (!notification)
        return 0;
    const BusMessage written = platform::notificationMessage(bus, *notification);
    if (!written || !seal(written.get()))
        std::abort();
    const auto again = platform::readNotification(written.get());
    if (!again || again->name != notification->name || again->object != notification->object ||
        again->userInfo != notification->userInfo)
        std::abort();
    return 0;
}
