#include "linux/applist/KeyFile.h"

#include "platform/files/FileSystem.h"

namespace platform::applist {
namespace {

constexpr std::size_t largestIndex = 1u << 20;

} // namespace

KeyFilePointer readKeyFile(const std::string& path) {
    std::string text;
    KeyFilePointer file(g_key_file_new());
    if (FileSystem::current().readFile(path, largestIndex, text) ||
        !g_key_file_load_from_data(file.get(), text.data(), text.size(), G_KEY_FILE_NONE, nullptr))
        return nullptr;
    return file;
}

} // namespace platform::applist
