#include "linux/applist/BundleApplications.h"

#include "platform/base/Diagnostics.h"
#include "platform/base/Utf8.h"
#include "platform/files/DeviceRoot.h"
#include "platform/files/FileSystem.h"
#include "platform/plist/PropertyList.h"
#include "platform/values/Value.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

namespace platform::applist {
namespace {

constexpr std::string_view suffix = ".app";
constexpr std::size_t largestInfo = 1u << 20;
constexpr std::size_t longestText = 1024;
constexpr std::size_t mostIcons = 32;
/// Folders that are searched, with an application in them or not. A device has a few hundred.
constexpr std::size_t mostFolders = 10000;

/// Where .app folders are: directly, or one folder per application further down.
struct Place {
    std::string_view devicePath;
    bool inContainers;
};

constexpr std::array places{
    Place{"/Applications", false},
    Place{"/var/mobile/Applications", true},
    Place{"/var/containers/Bundle/Application", true},
};

std::vector<std::string> sortedNames(const std::string& folder) {
    std::vector<std::string> names;
    if (FileSystem::current().list(folder, names))
        names.clear();
    std::sort(names.begin(), names.end());
    return names;
}

std::string_view text(const Dictionary& info, std::string_view key) {
    const std::string_view found = stringValue(info.find(key)).value_or("");
    return found.size() <= longestText ? found : std::string_view();
}

void addIcons(const Value* files, std::vector<std::string>& icons) {
    const Array* names = arrayValue(files);
    for (const Value& name : names ? *names : Array()) {
        const auto icon = stringValue(&name);
        if (icon && icon->size() <= longestText && icons.size() < mostIcons &&
            std::find(icons.begin(), icons.end(), *icon) == icons.end())
            icons.emplace_back(*icon);
    }
}

std::vector<std::string> iconsOf(const Dictionary& info) {
    std::vector<std::string> icons;
    for (const char* key : {"CFBundleIcons", "CFBundleIcons~ipad"}) {
        const Dictionary* sets = dictionaryValue(info.find(key));
        const Dictionary* primary = sets ? dictionaryValue(sets->find("CFBundlePrimaryIcon")) : nullptr;
        if (primary)
            addIcons(primary->find("CFBundleIconFiles"), icons);
    }
    addIcons(info.find("CFBundleIconFiles"), icons);
    if (const std::string_view single = text(info, "CFBundleIconFile"); !single.empty())
        icons.emplace_back(single);
    return icons;
}

std::optional<Application> applicationIn(const std::string& folder, std::string_view folderName) {
    FileSystem& files = FileSystem::current();
    std::string bytes;
    const std::string path = folder + "/Info.plist";
    if (const std::error_code error = files.readFile(path, largestInfo, bytes)) {
        if (error != std::errc::no_such_file_or_directory)
            diagnose(path + " is left out: " + error.message() + '.');
        return std::nullopt;
    }
    const std::optional<Value> list = propertyListWithData(bytes);
    const Dictionary* info = list ? dictionaryValue(&*list) : nullptr;
    if (!info || text(*info, "CFBundleIdentifier").empty()) {
        diagnose(path + " is left out: it is not an application.");
        return std::nullopt;
    }
    Application application;
    application.identifier = text(*info, "CFBundleIdentifier");
    application.name = text(*info, "CFBundleDisplayName");
    if (application.name.empty())
        application.name = text(*info, "CFBundleName");
    // A folder's name need not be text.
    if (application.name.empty())
        application.name = isValidUtf8(folderName) ? folderName : application.identifier;
    application.folder = folder;
    if (FileStatus status; !files.status(path, Links::Follow, status))
        application.version = status.inode ^ (status.size << 32);
    application.icons = iconsOf(*info);
    return application;
}

/// Searches folders for applications, and only so many that it ends whatever it finds there.
class Search {
public:
    /// Returns false when the search has reached its bound, and has reported that.
    bool search(const std::string& folder) {
        for (const std::string& name : sortedNames(folder)) {
            if (name.size() <= suffix.size() || !name.ends_with(suffix))
                continue;
            if (!countFolder(folder))
                return false;
            const auto folderName = std::string_view(name).substr(0, name.size() - suffix.size());
            if (auto application = applicationIn(folder + "/" + name, folderName))
                found_.push_back(std::move(*application));
        }
        return true;
    }

    bool searchContainers(const std::string& folder) {
        for (const std::string& container : sortedNames(folder)) {
            if (++containers_ > mostFolders)
                return reportTooMany(folder);
            if (!search(folder + "/" + container))
                return false;
        }
        return true;
    }

    std::vector<Application> take() { return std::move(found_); }

private:
    bool countFolder(const std::string& folder) { return ++folders_ <= mostFolders || reportTooMany(folder); }
    static bool reportTooMany(const std::string& folder) {
        diagnose("There are more applications in " + folder +
                 " than a list can show: the others are left out.");
        return false;
    }

    std::vector<Application> found_;
    std::size_t folders_ = 0;
    std::size_t containers_ = 0;
};

} // namespace

std::vector<Application> bundleApplications() {
    Search search;
    for (const Place& place : places) {
        const std::string folder = pathOnDevice(place.devicePath);
        if (!(place.inContainers ? search.searchContainers(folder) : search.search(folder)))
            break;
    }
    return search.take();
}

} // namespace platform::applist
