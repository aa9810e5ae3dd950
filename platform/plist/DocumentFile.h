#pragma once

#include "platform/files/FileSystem.h"
#include "platform/values/Dictionary.h"

#include <optional>
#include <string>

namespace platform {

/// A property-list dictionary in a file, by its path on this machine: what stands there at the moment of
/// making, and its replacement.
class DocumentFile {
public:
    DocumentFile(FileSystem& files, std::string path);

    /// The dictionary; none when the file is missing, unreadable or no document. An empty dictionary is a
    /// document.
    const std::optional<Dictionary>& dictionary() const { return dictionary_; }

    /// Writes the dictionary in the file's place, atomically; the error that kept it from being written, none
    /// when it stands. What could not be read again (PropertyListError) is not written; the log is told of
    /// it, since most callers do not look.
    ///
    /// Bytes that are no document are kept beside the file first, as "NAME.damaged" with mode 0600, and
    /// "NAME.damaged.2" up to 9 when that holds other bytes already; only the last of them is ever replaced.
    /// A file that cannot be read (or is too large to be a document) is given such a name instead of a copy.
    /// Where nothing can be kept, nothing is written; nor where this process was short of descriptors or
    /// memory when it looked: the document may be as good as ever.
    std::error_code replace(const Dictionary& dictionary, Sync sync);

private:
    enum class State { Missing, Document, Damaged, Unreadable, Unknown };

    static State stateAfter(std::error_code error);
    std::error_code encode(const Dictionary& dictionary, std::string& bytes) const;
    std::error_code keepOld(Sync sync);
    std::error_code copyAside(Sync sync);
    std::error_code linkAside();

    FileSystem& files_;
    std::string path_;
    State state_ = State::Missing;
    /// Why it could not be read.
    std::error_code readError_;
    std::optional<Dictionary> dictionary_;
    std::string damaged_;
};

} // namespace platform
