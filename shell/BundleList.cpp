#include "shell/BundleList.h"

#include "platform/foundation/DeviceRoot.h"
#include "platform/foundation/Value.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace wardlock::shell {

namespace fs = std::filesystem;

namespace {

std::string text(const platform::NSBundle& bundle, std::string_view key) {
    return std::string(platform::stringValue(bundle.infoDictionary().find(key)).value_or(""));
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
    for (const auto& folder : folders)
        add(folder);
    std::ranges::stable_sort(entries_, {}, [](const BundleEntry& entry) { return lowered(entry.name); });
}

void BundleList::add(const std::string& folderName) {
    const auto leaveOut = [&](const std::string& why) {
        leftOut_.push_back("\u201c" + folderName + "\u201d was left out: " + why + ".");
    };
    const auto bundle =
        platform::NSBundle::bundleWithPath(std::string(preferenceBundlesPath) + '/' + folderName);
    if (!bundle)
        leaveOut("it has no Info.plist that can be read");
    else if (const std::string reason = bundle->reasonToDistrust(); !reason.empty())
        // Not even its name is shown: it could be another's.
        leaveOut(reason);
    else if (text(*bundle, "CFBundleExecutable").empty())
        leaveOut("its Info.plist names no module");
    else if (text(*bundle, "NSPrincipalClass").empty())
        leaveOut("its Info.plist names no principal class");
    else
        entries_.push_back({bundle, nameOf(*bundle, folderName), iconOf(*bundle)});
}

} // namespace wardlock::shell
