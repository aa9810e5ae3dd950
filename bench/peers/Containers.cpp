#include "bench/SampleDocument.h"
#include "bench/Timing.h"
#include "bench/peers/Peers.h"
#include "platform/plist/PropertyList.h"

#include <functional>
#include <string_view>
#include <unordered_map>

namespace wardlock::bench {

namespace {

struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
};

} // namespace

int measureContainers(const std::string& operation, const std::string& file) {
    if (operation != "lookup")
        return notOffered;
    const auto keys = booleanKeys(platform::propertyListWithData(fileBytes(file))->dictionary());
    const std::vector<std::string_view> views(keys.begin(), keys.end());
    std::unordered_map<std::string, bool, Hash, std::equal_to<>> map;
    for (const std::string& key : keys)
        map.emplace(key, map.size() % 2 == 1);
    constexpr int rounds = 100;
    const auto lookUp = [&] {
        unsigned sum = 0;
        for (int round = 0; round < rounds; ++round)
            for (const std::string_view key : views) {
                keep(key.data());
                sum += map.find(key)->second;
            }
        keep(sum);
    };
    measure({"lookup", "peer", "std::unordered_map, string_view"}, lookUp,
            static_cast<double>(keys.size()) * rounds);
    return 0;
}

} // namespace wardlock::bench
