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

Update changed(DocumentFile& file, const std::function<bool(MutableDictionary&)>& change, Sync sync,
               const Versions& versions) {
    MutableDictionary entries;
    if (file.dictionary())
        entries = MutableDictionary(*file.dictionary());
    Update update;
    update.read = file.dictionary().has_value();
    update.changed = change(entries);
    update.dictionary = entries.copy();
    if (!update.changed) {
        update.error = file.readError();
        return update;
    }
    const WriteResult result = file.replace(update.dictionary, sync, versions);
    update.error = result.error;
    update.written = result.inPlace;
    return update;
}

} // namespace

std::optional<Dictionary> dictionaryWithContentsOfFile(std::string_view devicePath) {
    return fileOnDevice(devicePath).dictionary();
}

std::optional<Dictionary> dictionaryWithContentsOfFile(std::string_view devicePath, std::error_code& error) {
    const DocumentFile file = fileOnDevice(devicePath);
    error = file.readError();
    return file.dictionary();
}

bool writeToFileAtomically(const Dictionary& dictionary, std::string_view devicePath, Sync sync) {
    return fileOnDevice(devicePath).replace(dictionary, sync, {KeepVersions::WhereFolderExists}).inPlace;
}

Update updateFile(std::string_view devicePath, const std::function<bool(MutableDictionary&)>& change,
                  Sync sync, const Versions& versions) {
    Update update = updateFileOfMachine(pathOnDevice(devicePath), change, sync, versions);
    if (update.error)
        reportUnsavedChange(update.error.message());
    return update;
}

Update updateExistingFile(std::string_view devicePath, const std::function<bool(MutableDictionary&)>& change,
                          Sync sync, const Versions& versions) {
    DocumentFile file = fileOnDevice(devicePath);
    Update update;
    if (!file.dictionary()) {
        update.error = file.readError();
        return update;
    }
    update = changed(file, change, sync, versions);
    if (update.error)
        reportUnsavedChange(update.error.message());
    return update;
}

Update updateFileOfMachine(const std::string& path, const std::function<bool(MutableDictionary&)>& change,
                           Sync sync, const Versions& versions) {
    DocumentFile file = fileOfMachine(path);
    return changed(file, change, sync, versions);
}

std::error_code replaceFileOfMachine(const std::string& path, std::string_view bytes, Sync sync) {
    return fileOfMachine(path).replaceBytes(bytes, sync, {KeepVersions::WhereFolderExists}).error;
}

void keepVersionOfFile(std::string_view devicePath) {
    fileOnDevice(devicePath).keepVersion();
}

} // namespace platform
