#include "bench/SampleDocument.h"
#include "bench/SyncMode.h"
#include "bench/Timing.h"
#include "bench/peers/Peers.h"

#include <cstdint>
#include <cstdlib>
#include <plist/plist.h>

namespace wardlock::bench {

namespace {

constexpr const char* name = "libplist (C)";

plist_t parse(const std::string& bytes) {
    plist_t document = nullptr;
    plist_from_memory(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &document);
    return document;
}

plist_t load(const std::string& file) {
    return parse(fileBytes(file));
}

std::string serialise(plist_t document) {
    char* text = nullptr;
    std::uint32_t length = 0;
    plist_to_xml(document, &text, &length);
    std::string bytes(text, length);
    std::free(text);
    return bytes;
}

void flip(const std::string& file, const std::string& key, platform::Sync sync) {
    plist_t document = load(file);
    plist_t account = plist_array_get_item(plist_dict_get_item(document, "kAccounts"), 0);
    plist_t node = plist_dict_get_item(account, key.c_str());
    std::uint8_t value = 0;
    plist_get_bool_val(node, &value);
    plist_set_bool_val(node, !value);
    replaceFile(file, serialise(document), sync);
    plist_free(document);
}

void measureSerialise(const std::string& file) {
    plist_t document = load(file);
    const auto operation = [document] {
        char* text = nullptr;
        std::uint32_t length = 0;
        plist_to_xml(document, &text, &length);
        keep(length);
        std::free(text);
    };
    measure({"serialise", "peer", name}, operation);
    plist_free(document);
}

} // namespace

int measureLibplist(const std::string& operation, const std::string& file, const std::string& mode) {
    if (operation == "parse")
        measure({"parse", "peer", name}, [bytes = fileBytes(file)] { plist_free(parse(bytes)); });
    else if (operation == "load")
        measure({"load", "peer", name}, [&] { plist_free(load(file)); });
    else if (operation == "serialise")
        measureSerialise(file);
    else if (operation == "rmw")
        measure({"rmw-" + mode, "peer", name}, [&] { flip(file, "kRestrictSiri", syncOf(mode)); });
    else if (operation == "rss") {
        plist_t document = load(file);
        reportPeakMemory({"rss", "peer", name});
        plist_free(document);
    } else
        return notOffered;
    return 0;
}

} // namespace wardlock::bench
