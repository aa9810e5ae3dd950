#include "shell/device/BundleList.h"

#include "platform/base/Translation.h"
#include "platform/files/DeviceRoot.h"
#include "platform/values/Value.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace wardlock::shell {

namespace fs = std::filesystem;

using platform::translated;

namespace {

/// Longer names would only fill memory and screen; they count as absent.
constexpr std::size_t longestText = 1024;
/// More would not be found on a page, and each costs the reading of a file.
constexpr std::size_t mostBundles = 500;
constexpr std::size_t mostSentences = 20;

std::string text(const platform::NSBundle& bundle, std::string_view key) {
    const auto found = platform::stringValue(bundle.infoDictionary().find(key)).value_or("");
    return std::string(found.size() <= longestText ? found : "");
}

std::string nameOf(const platform::NSBundle& bundle, const std::string& folderName) {
    for (const char* key : {"CFBundleDisplayName", "CFBundleName"})
        if (std::string name = text(bundle, key); !name.empty())
            return name;
    return fs::path(folderName).stem().string();
}

std::shared_ptr<platform::UIImage> iconOf(const platform::NSBundle& bundle) {
    const fs::path file = text(bundle, "CFBundleIconFile");
    if (file.empty())
        return nullptr;
    const std::string type = file.has_extension() ? file.extension().string().substr(1) : "png";
    const auto path = bundle.pathForResource(file.stem().string(), type);
    return path ? platform::UIImage::imageWithContentsOfFile(*path) : nullptr;
}

std::string lowered(std::string text) {
    for (char& letter : text)
        if (letter >= 'A' && letter <= 'Z')
            letter = static_cast<char>(letter - 'A' + 'a');
    return text;
}

} // namespace

BundleList::BundleList() {
    std::error_code error;
    std::vector<std::string> folders;
    for (fs::directory_iterator it(platform::pathOnDevice(preferenceBundlesPath), error), end;
         !error && it != end; it.increment(error))
        if (it->path().extension() == ".bundle")
            folders.push_back(it->path().filename().string());
    std::ranges::sort(folders);
    const std::size_t readFolders = std::min(folders.size(), mostBundles);
    for (std::size_t i = 0; i < readFolders; ++i)
        add(folders[i]);
    summarise(folders.size() - readFolders);
    std::ranges::stable_sort(entries_, {}, [](const BundleEntry& entry) { return lowered(entry.name); });
}

void BundleList::summarise(std::size_t unreadFolders) {
    const std::size_t more = leftOut_.size() - std::min(leftOut_.size(), mostSentences) + unreadFolders;
    leftOut_.resize(std::min(leftOut_.size(), mostSentences));
    if (more == 1)
        leftOut_.push_back(translated("Bundles", "1 more is not shown."));
    else if (more > 1)
        leftOut_.push_back(
            platform::filledIn(translated("Bundles", "%1 more are not shown."), {std::to_string(more)}));
}

void BundleList::add(const std::string& folderName) {
    const auto leaveOut = [&](const std::string& reason) {
        leftOut_.push_back(
            platform::filledIn(translated("Bundles", "“%1” is not shown: %2."), {folderName, reason}));
    };
    const auto bundle =
        platform::NSBundle::bundleWithPath(std::string(preferenceBundlesPath) + '/' + folderName);
    if (!bundle)
        leaveOut(translated("Bundles", "its Info.plist cannot be read"));
    else if (const std::string reason = bundle->reasonToDistrust(); !reason.empty())
        // Not even its name is shown: another user could have set it.
        leaveOut(reason);
    else if (text(*bundle, "CFBundleExecutable").empty())
        leaveOut(translated("Bundles", "its Info.plist names no module"));
    else if (text(*bundle, "NSPrincipalClass").empty())
        leaveOut(translated("Bundles", "its Info.plist names no principal class"));
    else
        entries_.push_back({bundle, nameOf(*bundle, folderName), iconOf(*bundle)});
}

} // namespace wardlock::shell
