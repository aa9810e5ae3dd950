#include "platform/plist/PropertyListFile.h"

#include "platform/files/DeviceRoot.h"
#include "platform/plist/DocumentFile.h"

namespace platform {

namespace {

DocumentFile fileOnDevice(std::string_view devicePath) {
    return DocumentFile(FileSystem::current(), pathOnDevice(devicePath));
}

} // namespace

std::optional<Dictionary> dictionaryWithContentsOfFile(std::string_view devicePath) {
    return fileOnDevice(devicePath).dictionary();
}

bool writeToFileAtomically(const Dictionary& dictionary, std::string_view devicePath, Sync sync) {
    return !fileOnDevice(devicePath).replace(dictionary, sync);
}

Update updateFile(std::string_view devicePath, const std::function<bool(MutableDictionary&)>& change,
                  Sync sync) {
    return updateFileOfMachine(pathOnDevice(devicePath), change, sync);
}

Update updateFileOfMachine(const std::string& path, const std::function<bool(MutableDictionary&)>& change,
                           Sync sync) {
    DocumentFile file(FileSystem::current(), path);
    MutableDictionary entries;
    if (file.dictionary())
        entries = MutableDictionary(*file.dictionary());
    Update update;
    update.changed = change(entries);
    update.dictionary = entries.copy();
    if (update.changed)
        update.error = file.replace(update.dictionary, sync);
    update.written = update.changed && !update.error;
    return update;
}

} // namespace platform
