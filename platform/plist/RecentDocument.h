#pragma once

#include "platform/files/FileSystem.h"
#include "platform/values/Value.h"

#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// Returns the dictionary of a property list; nothing for other bytes and for another root.
std::optional<Dictionary> dictionaryWithData(std::string_view bytes);

/// The file that was read last. A page reads the whole document for each value that it shows, and so does
/// what watches the pages. As long as the bytes stay the same they are parsed once. Any thread.
class RecentDocument {
public:
    /// Returns the process's own.
    static RecentDocument& shared();

    struct File {
        std::string path;
        std::string bytes;
        Dictionary dictionary;
    };

    /// Returns the file at `path` where it was remembered last and still has the same bytes; else null.
    std::shared_ptr<const File> unchanged(FileSystem& files, const std::string& path);
    /// Remembers the file in place of the last one.
    void remember(std::shared_ptr<const File> file);

private:
    std::mutex mutex_;
    /// Null at first.
    std::shared_ptr<const File> file_;
};

} // namespace platform
