#include "bench/CopiedFile.h"
#include "bench/SampleDocument.h"
#include "bench/SyncMode.h"
#include "bench/Timing.h"
#include "bench/contender/Verbs.h"
#include "platform/plist/PropertyList.h"
#include "platform/plist/PropertyListFile.h"
#include "settings/EnabledAccount.h"
#include "settings/Keys.h"
#include "settings/Settings.h"

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace wardlock::bench {

namespace {

Row row(std::string operation, std::string name = "wardlock") {
    return {std::move(operation), "project", std::move(name)};
}

[[noreturn]] void fail(const char* what) {
    std::fprintf(stderr, "contender: %s\n", what);
    std::exit(1);
}

platform::Dictionary loaded(const std::string& file) {
    const auto document = platform::dictionaryWithContentsOfFile(file);
    if (!document)
        fail("the file is not a document");
    return *document;
}

constexpr int lookUpRounds = 100;

template <class LookUp>
void measureLookUpBy(const std::string& name, const std::vector<std::string_view>& keys, LookUp lookUp) {
    const auto operation = [&] {
        unsigned sum = 0;
        for (int round = 0; round < lookUpRounds; ++round)
            for (const std::string_view key : keys) {
                keep(key.data());
                sum += lookUp(key);
            }
        keep(sum);
    };
    measure(row("lookup", name), operation, static_cast<double>(keys.size()) * lookUpRounds);
}

} // namespace

void measureParse(const std::string& file) {
    const std::string bytes = fileBytes(file);
    if (!platform::propertyListWithData(bytes))
        fail("the file is not a property list");
    measure(row("parse"), [&] { keep(platform::propertyListWithData(bytes).has_value()); });
}

void measureLoad(const std::string& file) {
    // Two files in turn: the one that was read last would not be parsed again.
    const CopiedFile copy(file);
    const auto load = [&, other = false]() mutable {
        keep(platform::dictionaryWithContentsOfFile((other = !other) ? copy.path() : file).has_value());
    };
    measure(row("load"), load);
}

void measureSerialise(const std::string& file) {
    const platform::Dictionary document = loaded(file);
    measure(row("serialise"), [&] { keep(platform::dataWithPropertyList(document).size()); });
}

void measurePeakMemory(const std::string& file) {
    const platform::Dictionary document = loaded(file);
    reportPeakMemory(row("rss"));
}

void measureSave(const std::string& file, const std::string& out, const std::string& mode) {
    const platform::Dictionary document = loaded(file);
    measure(row("save-" + mode), [&, sync = syncOf(mode)] {
        if (!platform::writeToFileAtomically(document, out, sync))
            fail("the file could not be written");
    });
}

void measureReadModifyWrite(const std::string& file, const std::string& mode) {
    const std::string key = changedKey(loaded(file));
    bool value = false;
    const auto change = [&](platform::MutableDictionary& document) {
        setFirstAccount(document, key, value = !value);
        return true;
    };
    measure(row("rmw-" + mode), [&, sync = syncOf(mode)] {
        if (!platform::updateFile(file, change, sync).written)
            fail("the file could not be written");
    });
    if (firstAccountBool(loaded(file).find(kAccounts), key) != value)
        fail("the last change is not in the file");
}

void measureLookUp(const std::string& file) {
    platform::MutableDictionary document(loaded(file));
    setFirstAccount(document, kAccountEnabled, true);
    TweakSettings = document;
    EnabledAccount = EnabledAccountNew();
    const std::vector<std::string> keys = booleanKeys(document.copy());
    const std::vector<std::string_view> views(keys.begin(), keys.end());
    measureLookUpBy("wardlock", views, [](std::string_view key) { return AccountBool(key); });
    const platform::Dictionary record = *EnabledAccount;
    measureLookUpBy("wardlock, record in hand", views,
                    [&](std::string_view key) { return platform::boolValue(record.find(key)); });
}

} // namespace wardlock::bench
