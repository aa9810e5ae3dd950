#include "settings/Document.h"

#include "platform/foundation/DeviceRoot.h"
#include "platform/foundation/FileSystem.h"
#include "settings/DocumentPath.h"

#include <system_error>

namespace wardlock {

namespace {

constexpr unsigned privateFolderMode = 0700;

} // namespace

std::optional<platform::Dictionary> document(std::string_view identifier) {
    return platform::dictionaryWithContentsOfFile(documentPath(identifier));
}

platform::Update updateDocument(std::string_view identifier,
                                const std::function<bool(platform::MutableDictionary&)>& change) {
    return platform::updateFile(documentPath(identifier), change);
}

bool makeMissingDocumentFolder(std::string_view identifier) {
    if (platform::deviceRoot() == "/")
        return false;
    platform::FileSystem& files = platform::FileSystem::current();
    const std::string folder = platform::folderOf(platform::pathOnDevice(documentPath(identifier)));
    platform::FileStatus status;
    const std::error_code missing =
        platform::uninterrupted([&] { return files.status(folder, platform::Links::Follow, status); });
    return missing == std::errc::no_such_file_or_directory &&
           !platform::makeFolders(files, folder, privateFolderMode);
}

} // namespace wardlock
