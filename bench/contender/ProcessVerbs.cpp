#include "bench/Listener.h"
#include "bench/NotificationPair.h"
#include "bench/PrivateDevice.h"
#include "bench/SampleDocument.h"
#include "bench/SyncMode.h"
#include "bench/Timing.h"
#include "bench/contender/Verbs.h"
#include "platform/files/DeviceRoot.h"
#include "platform/plist/PropertyListFile.h"
#include "platform/runtime/MainLoop.h"
#include "settings/ChangeNotification.h"
#include "settings/Constants.h"
#include "settings/DocumentPath.h"
#include "settings/Keys.h"
#include "settings/Settings.h"

#include <chrono>
#include <cstdlib>
#include <filesystem>

namespace wardlock::bench {

namespace {

namespace fs = std::filesystem;

/// Runs until the parent ends this process.
void runForever() {
    while (!platform::MainLoop::shared().runUntil([] { return false; }, std::chrono::hours(1))) {
    }
}

} // namespace

void measureNotify() {
    const PrivateDevice device;
    Listener listener({listenForNotificationsVerb});
    listener.measure({"notify", "project", "wardlock"}, announce);
}

void listenForChanges(const std::string& key) {
    InitSettingsWithUpdateNameAndCallback(PostName, [key](const platform::Value*, const platform::Value*) {
        Listener::saw(firstAccountBool(objectForKey(kAccounts), key));
    });
    Listener::ready();
    runForever();
}

void measurePropagate(const std::string& file, const std::string& mode) {
    const fs::path root = fs::path(file).parent_path() / "device";
    setenv("WARDLOCK_DEVICE_ROOT", root.c_str(), 1);
    const std::string path = documentPath(BundleIdentifier);
    const fs::path stored = platform::pathOnDevice(path);
    fs::create_directories(stored.parent_path());
    fs::copy_file(file, stored, fs::copy_options::overwrite_existing);
    const std::string key = changedKey(*platform::dictionaryWithContentsOfFile(path));
    {
        Listener listener({"listen-propagate", key});
        const platform::Sync sync = syncOf(mode);
        listener.measure({"propagate-" + mode, "project", "wardlock"}, [&](bool value) {
            const auto change = [&](platform::MutableDictionary& document) {
                setFirstAccount(document, key, value);
                return true;
            };
            platform::updateFile(path, change, sync);
            postChange(BundleIdentifier, PostName, key, platform::Value(value));
        });
    }
    fs::remove_all(root);
}

} // namespace wardlock::bench
