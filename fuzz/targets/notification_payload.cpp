// The reader of notifications, on any well-formed message that a program on the bus may send: the input is
// the plan of a message.

#include "fuzz/BusPair.h"
#include "fuzz/Check.h"
#include "fuzz/NotificationCheck.h"
#include "fuzz/Plan.h"
#include "linux/bus/BusPointers.h"
#include "linux/notifications/NotificationFormat.h"

#include <cstdint>
#include <string>

namespace {

using wardlock::fuzz::Plan;

std::string textOf(Plan& plan) {
    std::string text = plan.bytes();
    for (char& c : text)
        c = static_cast<char>((c & 0x7F) ? (c & 0x7F) : 'x');
    return text;
}

class MessagePlanner {
public:
    MessagePlanner(sd_bus_message* message, Plan& plan) : message_(message), plan_(plan) {}

    void appendNotification() {
        sd_bus_message_append(message_, "ss", "1:2", textOf(plan_).c_str());
        sd_bus_message_open_container(message_, 'a', "s");
        for (auto count = plan_.below(3); count > 0; --count)
            sd_bus_message_append(message_, "s", textOf(plan_).c_str());
        sd_bus_message_close_container(message_);
        appendVariants(static_cast<int>(plan_.below(3)), 0);
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
        const bool deep = level < 30 && plan_.yes();
        const std::string signature = deep ? plan_.choice(deepSignatures) : plan_.choice(flatSignatures);
        sd_bus_message_open_container(message_, 'v', signature.c_str());
        appendContents(signature, level);
        sd_bus_message_close_container(message_);
    }

    void appendContents(const std::string& signature, int level) {
        const auto number = plan_.number<std::uint64_t>();
        const std::string text = textOf(plan_);
        const std::string bytes = plan_.bytes();
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
    Plan& plan_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static const wardlock::fuzz::BusPair pair;
    namespace format = platform::notifications::format;
    Plan plan({reinterpret_cast<const char*>(bytes), size});
    sd_bus_message* created = nullptr;
    wardlock::fuzz::check(sd_bus_message_new_signal(pair.receiver(), &created, format::path,
                                                    format::interface, format::member) >= 0,
                          "a new message");
    const platform::bus::BusMessage message(created);
    MessagePlanner(created, plan).appendNotification();
    if (wardlock::fuzz::seal(created))
        wardlock::fuzz::checkNotification(pair.receiver(), created);
    return 0;
}
