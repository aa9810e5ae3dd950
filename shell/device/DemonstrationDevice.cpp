#include "shell/device/DemonstrationDevice.h"

#include "platform/files/AtomicWriter.h"
#include "platform/files/DeviceRoot.h"
#include "platform/services/MailService.h"
#include "shell/device/DemonstrationApplications.h"
#include "shell/device/DemonstrationIcon.h"
#include "shell/device/DemonstrationInfo.h"

#include <filesystem>
#include <system_error>

namespace wardlock::shell {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view iconFile = "Icon.svg";

constexpr unsigned privateMode = 0700;

bool writeFile(const fs::path& path, const std::string& bytes) {
    return !platform::AtomicWriter().write(path.string(), bytes, platform::Sync::None);
}

std::error_code makeFolder(const fs::path& path) {
    return platform::makeFolders(platform::FileSystem::current(), path.string(), privateMode);
}

/// The property list is written last: it makes the folder an application.
bool install(const DemonstrationApplication& application, const fs::path& folder) {
    const fs::path info = folder / "Info.plist";
    std::error_code error;
    if (fs::exists(fs::symlink_status(info, error)))
        return true;
    return !makeFolder(folder) && writeFile(folder / iconFile, demonstrationIcon(application)) &&
           writeFile(info, demonstrationInfo(application, iconFile));
}

} // namespace

std::vector<std::string> furnishDemonstration() {
    std::vector<std::string> problems;
    const fs::path applications = platform::pathOnDevice("/Applications");
    for (const DemonstrationApplication& application : demonstrationApplications()) {
        const fs::path folder = applications / (std::string(application.folder) + ".app");
        if (!install(application, folder))
            problems.push_back("cannot create application " + folder.string());
    }
    const fs::path outbox = platform::pathOnDevice(platform::mailOutboxPath);
    if (const auto error = makeFolder(outbox))
        problems.push_back("cannot create folder " + outbox.string() + ": " + error.message());
    return problems;
}

} // namespace wardlock::shell
