#include "linux/applist/ApplicationList.h"

#include "linux/applist/BundleApplications.h"
#include "linux/applist/BundleIcon.h"
#include "linux/applist/DesktopApplications.h"
#include "linux/applist/IconFile.h"
#include "platform/files/DeviceRoot.h"
#include "platform/services/DeviceInformation.h"

#include <algorithm>
#include <cmath>

namespace platform::applist {
namespace {

constexpr double largestScale = 8;

int pixelsOf(int points) {
    return static_cast<int>(
        std::lround(points * std::clamp(DeviceInformation::current().screenScale(), 1.0, largestScale)));
}

/// Most icons are never shown: their files are searched for when they are.
std::shared_ptr<UIImage> imageOf(const Application& application, int pixels) {
    return std::make_shared<UIImage>([application, pixels] {
        std::string path =
            application.folder.empty() ? desktopIcon(application, pixels) : bundleIcon(application, pixels);
        return !path.empty() && IconFile::read(path) ? path : std::string();
    });
}

} // namespace

Dictionary ApplicationList::applications() {
    const Applications before = std::exchange(applications_, {});
    MutableDictionary names;
    add(bundleApplications(), names);
    if (deviceRootIsDefault())
        add(desktopApplications(), names);
    isSearched_ = true;
    std::erase_if(icons_, [this, &before](const auto& icon) {
        const auto now = applications_.find(icon.first);
        const auto then = before.find(icon.first);
        return now == applications_.end() || then == before.end() || now->second != then->second;
    });
    return names.copy();
}

std::shared_ptr<UIImage> ApplicationList::iconOfSize(int size, std::string_view displayIdentifier) {
    if (!isSearched_)
        applications();
    const auto application = applications_.find(std::string(displayIdentifier));
    if (application == applications_.end() || size <= 0)
        return nullptr;
    const int pixels = pixelsOf(size);
    std::vector<Icon>& icons = icons_[application->first];
    const auto known = std::find_if(icons.begin(), icons.end(),
                                    [pixels](const Icon& icon) { return icon.pixels == pixels; });
    if (known != icons.end())
        return known->image;
    return icons.emplace_back(Icon{pixels, imageOf(application->second, pixels)}).image;
}

void ApplicationList::add(std::vector<Application>&& found, MutableDictionary& names) {
    for (Application& application : found) {
        std::string identifier = application.identifier;
        const auto [added, isNew] = applications_.try_emplace(std::move(identifier), std::move(application));
        if (isNew)
            names.set(added->first, Value(added->second.name));
    }
}

} // namespace platform::applist
