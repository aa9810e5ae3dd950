#include "platform/plist/PropertyListFile.h"

#include "platform/files/DeviceRoot.h"
#include "platform/plist/DocumentFile.h"
#include "platform/plist/RecentDocument.h"
#include "platform/plist/UnsavedChange.h"

#include <utility>

namespace platform {

namespace {

DocumentFile fileOfMachine(std::string path) {
    return DocumentFile(FileSystem::current(), std::move(path), &RecentDocument::shared());
}

DocumentFile fileOnDevice(std::string_view devicePath) {
    return fileOfMachine(pathOnDevice(devicePath));
}

} // namespace

std::optional<Dictionary> dictionaryWithContentsOfFile(std::string_view devicePath) {
    return fileOnDevice(devicePath).dictionary();
}

bool writeToFileAtomically(const Dictionary& dictionary, std::string_view devicePath, Sync sync) {
    return !fileOnDevice(devicePath).replace(dictionary, sync, {KeepVersions::WhereFolderExists});
}

Update updateFile(std::string_view devicePath, const std::function<bool(MutableDictionary&)>& change,
                  Sync sync, const Versions& versions) {
    Update update = updateFileOfMachine(pathOnDevice(devicePath), change, sync, versions);
    if (update.error)
        reportUnsavedChange(update.error.message());
    return update;
}

Update updateFileOfMachine(const std::string& path, const std::function<bool(MutableDictionary&)>& change,
                           Sync sync, const Versions& versions) {
    DocumentFile file = fileOfMachine(path);
    MutableDictionary entries;
    if (file.dictionary())
        entries = MutableDictionary(*file.dictionary());
    Update update;
    update.changed = change(entries);
    update.dictionary = entries.copy();
    update.error = update.changed ? file.replace(update.dictionary, sync, versions) : file.readError();
    update.written = update.changed && !update.error;
    return update;
}

std::error_code replaceFileOfMachine(const std::string& path, std::string_view bytes, Sync sync) {
    return fileOfMachine(path).replaceBytes(bytes, sync, {KeepVersions::WhereFolderExists});
}

void keepVersionOfFile(std::string_view devicePath) {
    fileOnDevice(devicePath).keepVersion();
}

} // namespace platform
