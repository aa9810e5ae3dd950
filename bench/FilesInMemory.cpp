#include "bench/FilesInMemory.h"

#include "bench/SampleDocument.h"
#include "platform/files/DeviceRoot.h"
#include "settings/Constants.h"
#include "settings/DocumentPath.h"
#include "shell/device/BundleList.h"

#include <filesystem>

namespace wardlock::bench {

namespace fs = std::filesystem;

FilesInMemory::FilesInMemory() {
    copyFile(platform::pathOnDevice(documentPath(BundleIdentifier)));
    const fs::path bundle = fs::canonical(
        platform::pathOnDevice(std::string(shell::preferenceBundlesPath) + "/WardlockSettings.bundle"));
    for (const auto& entry : fs::directory_iterator(bundle))
        if (entry.is_regular_file())
            copyFile(entry.path());
    platform::FileSystem::setCurrent(&files_);
}

FilesInMemory::~FilesInMemory() {
    platform::FileSystem::setCurrent(nullptr);
}

void FilesInMemory::copyFile(const std::string& path) {
    makeFoldersAbove(path);
    files_.addFile(path, fileBytes(path));
}

void FilesInMemory::makeFoldersAbove(const std::string& path) {
    fs::path folder;
    for (const auto& part : fs::path(path).parent_path())
        files_.addFolder(folder /= part);
}

} // namespace wardlock::bench
