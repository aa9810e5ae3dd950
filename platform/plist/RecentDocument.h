#pragma once

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

    /// Returns the same as dictionaryWithData() for the bytes of the file at `path`, which it shares until
    /// the next file is read.
    std::optional<Dictionary> dictionaryOf(const std::string& path,
                                           const std::shared_ptr<const std::string>& bytes);

private:
    struct File {
        std::string path;
        std::shared_ptr<const std::string> bytes;
        Dictionary dictionary;
    };

    std::optional<Dictionary> known(const std::string& path, const std::string& bytes);
    void remember(File file);

    std::mutex mutex_;
    /// Without bytes at first.
    File file_;
};

} // namespace platform
