#include "cli/command/SettingsChange.h"

#include "cli/io/CommandError.h"
#include "platform/files/DeviceRoot.h"
#include "settings/DocumentPath.h"
#include "settings/Settings.h"

namespace wardlock::cli {

void loadToChange() {
    const platform::Update loaded = loadDocument();
    if (loaded.changed)
        requireStored(loaded);
    TweakSettings.emplace(loaded.dictionary);
}

void requireStored(const platform::Update& update) {
    const std::string path = platform::pathOnDevice(documentPath(BundleIdentifier));
    if (!update.written)
        throw CommandError(ExitCode::Failed, "cannot write " + path + ": " + update.error.message());
    if (update.error)
        throw CommandError(
            ExitCode::Failed,
            path + " is written, but a power cut may bring the old one back: " + update.error.message());
}

void finish(const DocumentChange& change) {
    if (!change.update.changed)
        throw CommandError(ExitCode::Failed, "the document has no account to change");
    // What is in place is announced, whether or not it lasts: every reader gets it.
    if (change.update.written)
        announce(change);
    requireStored(change.update);
}

} // namespace wardlock::cli
