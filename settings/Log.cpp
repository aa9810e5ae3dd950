#include "settings/Log.h"

#include "platform/base/Utf8.h"
#include "platform/files/AtomicWriter.h"
#include "platform/files/DeviceRoot.h"
#include "platform/files/FileSystem.h"
#include "platform/runtime/NSOperationQueue.h"
#include "settings/Constants.h"

#include <cstddef>
#include <system_error>
#include <utility>

namespace wardlock {

namespace {

constexpr std::string_view entryFormat = "\n%@";
constexpr std::string_view replacementCharacter = "\xef\xbf\xbd";
// A log beyond this size is not read, and is kept.
constexpr std::size_t longestLogRead = std::size_t{16} << 20;

/// Bytes that are not UTF-8 would cost the whole log at the next entry.
std::string asUtf8(std::string_view text) {
    if (platform::isValidUtf8(text))
        return std::string(text);
    std::string out;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = platform::decodeUtf8(text, at).length;
        out += length > 0 ? text.substr(at, length) : replacementCharacter;
        at += length > 0 ? length : 1;
    }
    return out;
}

/// Reading serves only to find out whether there is a log in UTF-8; else an empty one replaces it. A later
/// failure costs the entry.
void writeEntry(const std::string& entry) {
    platform::FileSystem& files = platform::FileSystem::current();
    const std::string path =
        platform::pathOnDevice(platform::stringWithFormat(LogPathFormat, BundleIdentifier));
    std::string text;
    const std::error_code unread =
        platform::uninterrupted([&] { return files.readFile(path, longestLogRead, text); });
    // The mode that made the old log unreadable would make the new one unreadable too, at each entry again.
    if (unread && unread != std::errc::file_too_large)
        platform::AtomicWriter(files).write(path, "", platform::Sync::None, platform::Attributes::Private);
    else if (!unread && !platform::isValidUtf8(text))
        platform::AtomicWriter(files).write(path, "", platform::Sync::None);
    platform::appendToFile(files, path, entry);
}

} // namespace

void appendToLog(std::string_view message) {
    platform::NSOperationQueue::mainQueue().addOperation(
        [entry = platform::stringWithFormat(entryFormat, asUtf8(message))] { writeEntry(entry); });
}

} // namespace wardlock
