// The enforcing half with a view of its state. It starts as on a device and prints "ready".
// Then it prints an object for each change that it receives: its "key" and "object", as the script front end
// prints them. It replies to each line that it reads with its state then: "settings", and "account" where one
// counts, as property lists. Ends with its input.

#include "cli/io/Json.h"
#include "cli/io/TypedJson.h"
#include "platform/plist/PropertyList.h"
#include "platform/runtime/MainLoop.h"
#include "settings/Constants.h"
#include "settings/EnabledAccount.h"
#include "settings/Settings.h"

#include <algorithm>
#include <array>
#include <iostream>
#include <nlohmann/json.hpp>
#include <optional>
#include <poll.h>
#include <string>
#include <unistd.h>

namespace {

using platform::Value;
using wardlock::cli::Json;
using wardlock::cli::jsonLine;

void print(const Json& json) {
    std::cout << jsonLine(json) << std::endl;
}

void printChange(const Value* key, const Value* object) {
    print({{"key", platform::stringValue(key).value_or("")}, {"object", wardlock::cli::typedJson(object)}});
}

Json view() {
    Json json;
    json["settings"] = platform::dataWithPropertyList(wardlock::SettingsCreateIfNecessary().copy());
    if (const auto& account = wardlock::EnabledAccount)
        json["account"] = platform::dataWithPropertyList(*account);
    return json;
}

/// How many lines have come; none at the end of the input.
std::optional<std::size_t> readLines() {
    std::array<char, 256> bytes{};
    const ssize_t count = read(STDIN_FILENO, bytes.data(), bytes.size());
    if (count <= 0)
        return std::nullopt;
    return std::count(bytes.begin(), bytes.begin() + count, '\n');
}

} // namespace

int main() {
    wardlock::InitSettingsWithUpdateNameAndCallback(wardlock::PostName, printChange);
    std::cout << "ready" << std::endl;
    while (true) {
        std::array<pollfd, 2> waits{pollfd{STDIN_FILENO, POLLIN, 0},
                                    pollfd{platform::MainLoop::shared().descriptor(), POLLIN, 0}};
        poll(waits.data(), waits.size(), -1);
        platform::MainLoop::shared().process();
        if (waits[0].revents == 0)
            continue;
        auto lines = readLines();
        if (!lines)
            return 0;
        for (; *lines > 0; --*lines)
            print(view());
    }
}
