#include "cli/command/ReadableSettings.h"

#include "platform/files/DeviceRoot.h"
#include "platform/files/FileSystem.h"
#include "platform/plist/PropertyListBounds.h"
#include "settings/Constants.h"
#include "settings/Document.h"
#include "settings/DocumentPath.h"

#include <string>
#include <system_error>

namespace wardlock::cli {

void requireReadableSettings() {
    const std::string path = platform::pathOnDevice(documentPath(BundleIdentifier));
    std::string bytes;
    const std::error_code error = platform::uninterrupted(
        [&] { return platform::FileSystem::current().readFile(path, platform::largestDocument, bytes); });
    if (error == std::errc::no_such_file_or_directory)
        return;
    if (error)
        throw CommandError(ExitCode::Failed, "cannot read " + path + ": " + error.message());
    if (!document(BundleIdentifier))
        throw CommandError(ExitCode::Failed, "the settings are damaged: " + path +
                                                 " is not a property list with keys (see wardlock doctor)");
}

} // namespace wardlock::cli
