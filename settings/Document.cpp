#include "settings/Document.h"

#include "platform/files/DeviceRoot.h"
#include "platform/files/FileSystem.h"
#include "platform/files/FolderTrust.h"
#include "settings/DocumentPath.h"

#include <system_error>

namespace wardlock {

namespace {

constexpr unsigned privateFolderMode = 0700;

bool isMissing(const std::string& path) {
    platform::FileStatus status;
    const auto ask = [&] {
        return platform::FileSystem::current().status(path, platform::Links::Follow, status);
    };
    return platform::uninterrupted(ask) == std::errc::no_such_file_or_directory;
}

/// Returns the folder itself, or the nearest one above it that exists.
std::string nearestExisting(std::string folder) {
    while (isMissing(folder) && platform::folderOf(folder) != folder)
        folder = platform::folderOf(folder);
    return folder;
}

} // namespace

std::optional<platform::Dictionary> document(std::string_view identifier) {
    return platform::dictionaryWithContentsOfFile(documentPath(identifier));
}

std::optional<platform::Dictionary> document(std::string_view identifier, bool& isUnreadable) {
    std::error_code error;
    auto dictionary = platform::dictionaryWithContentsOfFile(documentPath(identifier), error);
    isUnreadable = error && error != std::errc::not_a_directory;
    return dictionary;
}

platform::Update updateDocument(std::string_view identifier,
                                const std::function<bool(platform::MutableDictionary&)>& change) {
    return platform::updateFile(documentPath(identifier), change);
}

bool makeMissingDocumentFolder(std::string_view identifier) {
    if (platform::deviceRoot() == "/")
        return false;
    const std::string folder = platform::folderOf(platform::pathOnDevice(documentPath(identifier)));
    return isMissing(folder) && !platform::riskOfFolder(nearestExisting(folder)) &&
           !platform::makeFolders(platform::FileSystem::current(), folder, privateFolderMode);
}

} // namespace wardlock
