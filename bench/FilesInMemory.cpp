#include "bench/FilesInMemory.h"

#include "bench/SampleDocument.h"
#include "platform/files/DeviceRoot.h"
#include "settings/Constants.h"
#include "settings/DocumentPath.h"
#include "shell/device/BundleList.h"

#include <filesystem>

namespace wardlock::bench {

namespace fs = std::filesystem;

FilesInMemory::FilesInMemory() : document_(platform::pathOnDevice(documentPath(BundleIdentifier))) {
    copyFile(document_);
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

void FilesInMemory::changeDocument() {
    std::string bytes = files_.textOf(document_);
    const std::string_view name = renamed_ ? "Account O" : "Account 0";
    renamed_ = !renamed_;
    bytes.at(bytes.find(name) + name.size() - 1) = renamed_ ? 'O' : '0';
    files_.addFile(document_, bytes);
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
