#include "bench/SampleDocument.h"
#include "bench/SyncMode.h"
#include "bench/Timing.h"
#include "bench/interleaved/Verbs.h"
#include "bench/peers/Peers.h"
#include "platform/plist/PropertyListFile.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>

namespace wardlock::bench {

namespace {

namespace fs = std::filesystem;

/// How many versions are kept at most.
constexpr std::size_t fullFolder = 200;

/// Copies `file` into a folder of its own, so that no operation lists the other's files.
std::string copied(const fs::path& file, const char* folder) {
    const fs::path copy = file.parent_path() / folder / file.filename();
    fs::create_directories(copy.parent_path());
    fs::copy_file(file, copy, fs::copy_options::overwrite_existing);
    return copy;
}

/// Returns what changes a switch of the document at each call, and keeps versions as given.
std::function<void()> updating(const std::string& file, platform::Sync sync, platform::KeepVersions keep) {
    const std::string key = changedKey(*platform::dictionaryWithContentsOfFile(file));
    return [file, sync, keep, key, value = false]() mutable {
        const auto change = [&](platform::MutableDictionary& document) {
            setFirstAccount(document, key, value = !value);
            return true;
        };
        if (!platform::updateFile(file, change, sync, {keep}).written)
            std::abort();
    };
}

} // namespace

void measureReadModifyWrite(const std::string& file, const std::string& mode) {
    // The platform's file functions take device paths: with this root they are the machine's.
    setenv("WARDLOCK_DEVICE_ROOT", "/", 1);
    const std::string own = copied(fs::absolute(file), "in-turn-own");
    const std::string other = copied(fs::absolute(file), "in-turn-floor");
    const platform::Sync sync = syncOf(mode);
    const auto update = updating(own, sync, platform::KeepVersions::Never);
    std::string buffer;
    const auto floor = [&] {
        readFile(other, buffer);
        replaceFile(other, buffer, sync);
    };
    const std::string operation = "rmw-" + mode;
    measureInterleaved(
        {{operation, "project", "wardlock"}, update, {operation, "floor", "read + write + rename"}, floor});
}

void measureVersions(const std::string& file, const std::string& mode) {
    setenv("WARDLOCK_DEVICE_ROOT", "/", 1);
    const platform::Sync sync = syncOf(mode);
    const std::string with = copied(fs::absolute(file), "in-turn-versions");
    const std::string without = copied(fs::absolute(file), "in-turn-none");
    const auto keeping = updating(with, sync, platform::KeepVersions::Always);
    // As many as there ever are: each write then adds one and removes one.
    const auto fill = updating(with, platform::Sync::None, platform::KeepVersions::Always);
    for (std::size_t i = 0; i <= fullFolder; ++i)
        fill();
    const auto plain = updating(without, sync, platform::KeepVersions::Never);
    const std::string operation = "versions-" + mode;
    measureInterleaved(
        {{operation, "project", "wardlock"}, keeping, {operation, "floor", "without versions"}, plain});
}

} // namespace wardlock::bench
