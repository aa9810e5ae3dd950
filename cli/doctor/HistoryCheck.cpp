// The check of the document's earlier versions.

#include "cli/doctor/CheckResult.h"
#include "platform/files/DeviceRoot.h"
#include "platform/files/FileSystem.h"
#include "platform/services/HostStatus.h"
#include "settings/Constants.h"
#include "settings/DocumentPath.h"
#include "settings/history/KeptVersions.h"

namespace wardlock::cli {

CheckResult checkHistory() {
    using State = platform::VersionFolder::State;
    CheckResult result("history", "History", CheckResult::Need::Optional);
    const platform::VersionFolder folder(platform::FileSystem::current(),
                                         platform::pathOnDevice(documentPath(BundleIdentifier)));
    result.facts["path"] = folder.path();
    std::vector<platform::Version> versions;
    const State state = folder.state();
    if (state == State::Usable)
        folder.list(versions);
    result.facts["versions"] = versions.size();
    if (state != State::Usable && state != State::Missing)
        return result.fails(reasonAgainst(folder),
                            "No earlier versions are kept, and no change can be taken back. Restore the "
                            "folder's owner and mode, or remove it.");
    if (state == State::Usable && !platform::mayWrite(folder.path()))
        return result.fails("no permission to write to " + folder.path(),
                            "No earlier versions are kept: chmod 700 the folder.");
    result.text = folder.path() + ", " + std::to_string(versions.size()) +
                  (versions.size() == 1 ? " version" : " versions");
    if (state == State::Missing)
        result.text = "no versions are kept yet";
    return result;
}

} // namespace wardlock::cli
