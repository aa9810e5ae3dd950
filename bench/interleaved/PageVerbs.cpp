#include "bench/FilesInMemory.h"
#include "bench/OpenSettings.h"
#include "bench/SampleDocument.h"
#include "bench/Timing.h"
#include "bench/interleaved/Verbs.h"
#include "bench/peers/Peers.h"
#include "platform/files/DeviceRoot.h"
#include "platform/plist/PropertyList.h"
#include "settings/Constants.h"
#include "settings/DocumentPath.h"

#include <filesystem>

namespace wardlock::bench {

namespace {

namespace fs = std::filesystem;

void measurePage(const std::string& file, const std::string& name, bool shown) {
    const std::string bytes = fileBytes(file);
    OpenSettings settings(bytes);
    FilesInMemory files;
    const auto build = [&] {
        keep(settings.user.rebuildPage());
        if (shown)
            settings.user.readRows();
    };
    const auto parse = [&] { keep(platform::propertyListWithData(bytes).has_value()); };
    // A document that did not change would not be parsed again.
    const auto change = [&] { files.changeDocument(); };
    measureInterleaved(
        {{name, "project", "wardlock"}, build, {name, "floor", "parsing the document"}, parse, change});
}

} // namespace

void measurePage(const std::string& file) {
    measurePage(file, "page", false);
}

void measureShownPage(const std::string& file) {
    measurePage(file, "page-shown", true);
}

void measureTap(const std::string& file) {
    OpenSettings settings(fileBytes(file));
    settings.user.tap({1, 0});
    const auto path = settings.user.find("Siri");
    const fs::path stored = platform::pathOnDevice(documentPath(BundleIdentifier));
    settings.user.tap(path);
    const std::string bytes = fileBytes(stored);
    const fs::path folder = stored.parent_path().parent_path() / "floor";
    fs::create_directory(folder);
    const std::string beside = folder / stored.filename();

    measureInterleaved({{"tap", "project", "wardlock"},
                        [&] { settings.user.tap(path); },
                        {"tap", "floor", "write + fsync + rename + fsync"},
                        [&] { replaceFile(beside, bytes, platform::Sync::Full); },
                        // Bus messages that arrived are processed between the measurements.
                        [&] { settings.application.process(); }});
}

} // namespace wardlock::bench
