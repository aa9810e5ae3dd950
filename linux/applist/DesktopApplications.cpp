#include "linux/applist/DesktopApplications.h"

#include "linux/applist/DesktopEntry.h"
#include "linux/applist/DesktopFiles.h"
#include "linux/applist/IconTheme.h"
#include "platform/base/Utf8.h"

#include <string_view>

namespace platform::applist {
namespace {

constexpr std::size_t longestText = 1024;

bool isName(std::string_view text) {
    return !text.empty() && text.size() <= longestText && isValidUtf8(text);
}

} // namespace

std::vector<Application> desktopApplications() {
    std::vector<Application> applications;
    for (const DesktopFile& file : desktopFiles()) {
        if (!isName(file.identifier))
            continue;
        const DesktopEntry entry(file.path);
        const std::string name = entry.name();
        if (!isName(name) || !entry.isShown())
            continue;
        Application& application = applications.emplace_back();
        application.identifier = file.identifier;
        application.name = name;
        application.entry = file.path;
    }
    return applications;
}

std::string desktopIcon(const Application& application, int pixels) {
    const std::string icon = DesktopEntry(application.entry).icon();
    return icon.starts_with('/') ? icon : IconTheme::current().find(icon, pixels);
}

} // namespace platform::applist
