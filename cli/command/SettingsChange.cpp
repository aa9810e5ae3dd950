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
    if (!update.written)
        throw CommandError(ExitCode::Failed, "cannot write " +
                                                 platform::pathOnDevice(documentPath(BundleIdentifier)) +
                                                 ": " + update.error.message());
}

void finish(const DocumentChange& change) {
    if (!change.update.changed)
        throw CommandError(ExitCode::Failed, "the document has no account to change");
    requireStored(change.update);
    announce(change);
}

} // namespace wardlock::cli
