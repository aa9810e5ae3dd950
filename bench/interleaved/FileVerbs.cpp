#include "bench/SampleDocument.h"
#include "bench/SyncMode.h"
#include "bench/Timing.h"
#include "bench/interleaved/Verbs.h"
#include "bench/peers/Peers.h"
#include "platform/plist/PropertyListFile.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace wardlock::bench {

namespace {

namespace fs = std::filesystem;

/// Copies `file` into a folder of its own, so that no operation lists the other's files.
std::string copied(const fs::path& file, const char* folder) {
    const fs::path copy = file.parent_path() / folder / file.filename();
    fs::create_directories(copy.parent_path());
    fs::copy_file(file, copy, fs::copy_options::overwrite_existing);
    return copy;
}

} // namespace

void measureReadModifyWrite(const std::string& file, const std::string& mode) {
    // The platform's file functions take device paths: with this root they are the machine's.
    setenv("WARDLOCK_DEVICE_ROOT", "/", 1);
    const std::string own = copied(fs::absolute(file), "in-turn-own");
    const std::string other = copied(fs::absolute(file), "in-turn-floor");
    const platform::Sync sync = syncOf(mode);
    const std::string key = changedKey(*platform::dictionaryWithContentsOfFile(own));
    bool value = false;
    const auto change = [&](platform::MutableDictionary& document) {
        setFirstAccount(document, key, value = !value);
        return true;
    };
    const auto update = [&] {
        if (!platform::updateFile(own, change, sync).written)
            std::abort();
    };
    std::string buffer;
    const auto floor = [&] {
        readFile(other, buffer);
        replaceFile(other, buffer, sync);
    };
    const std::string operation = "rmw-" + mode;
    measureInterleaved(
        {{operation, "project", "wardlock"}, update, {operation, "floor", "read + write + rename"}, floor});
}

} // namespace wardlock::bench
