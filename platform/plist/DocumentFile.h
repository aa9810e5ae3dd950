#pragma once

#include "platform/files/FileSystem.h"
#include "platform/plist/RecentDocument.h"
#include "platform/values/Dictionary.h"
#include "platform/versions/Versions.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// What has become of a write.
struct WriteResult {
    /// Why the new content is not in place or, where it is, why a power cut may bring the old one back.
    std::error_code error;
    bool inPlace = false;
};

/// A property-list dictionary in a file, by its path on this machine: its content at construction, and its
/// replacement.
class DocumentFile {
public:
    /// Where `recent` is given, a file with the bytes that it remembers is not parsed again.
    DocumentFile(FileSystem& files, std::string path, RecentDocument* recent = nullptr);

    /// Returns the dictionary; nothing when the file is missing, unreadable or not a document. An empty
    /// dictionary is a document.
    const std::optional<Dictionary>& dictionary() const { return dictionary_; }
    /// Returns why an existing file could not be read; no error when it was read or is missing.
    std::error_code readError() const { return state_ == State::Missing ? std::error_code() : readError_; }

    /// Replaces the file by `dictionary`, atomically. A dictionary that could not be read again
    /// (PropertyListError) is not written; the log reports it too, since most callers ignore the error.
    ///
    /// What the file contained is kept beside it first:
    /// - Bytes that are not a document become "NAME.damaged" with mode 0600. When that already has other
    ///   bytes, "NAME.damaged.2" up to 9 follow; only the last of them is ever replaced.
    /// - A file that cannot be read (or is too large to be a document) gets the first such name that is free
    ///   instead of a copy, or replaces the last of them.
    ///
    /// Where nothing can be kept, nothing is written. Nor is it where this process was short of descriptors
    /// or memory when it read the file: the document may be intact.
    ///
    /// A document is kept as a version (versions/VersionKeeper.h). Where that fails, it is written all the
    /// same.
    WriteResult replace(const Dictionary& dictionary, Sync sync, const Versions& versions = {});

    /// Replaces whatever the file contains by the bytes of a property list, which nothing is kept of but a
    /// document, as a version. Nothing is written where replace() would refuse for want of means.
    WriteResult replaceBytes(std::string_view bytes, Sync sync, const Versions& versions);

    /// Keeps the document as a version, unless it is the youngest one anyway: another program wrote it.
    void keepVersion();

private:
    enum class State { Missing, Document, Damaged, Unreadable, Unknown };

    static State stateAfter(std::error_code error);
    std::optional<std::string_view> document() const;
    WriteResult write(std::string_view bytes, Sync sync, const Versions& versions);
    std::error_code encode(const Dictionary& dictionary, std::string& bytes) const;
    std::error_code keepOldContent(Sync sync);
    std::error_code copyAside(Sync sync);
    std::error_code linkAside();
    std::error_code linkAs(const std::string& name, const std::string& file, const FileStatus& status);

    const std::string& path() const { return file_->path; }

    FileSystem& files_;
    State state_ = State::Missing;
    /// The error of reading the file.
    std::error_code readError_;
    std::optional<Dictionary> dictionary_;
    /// The path, and what was read: the bytes of a document or of damage.
    std::shared_ptr<const RecentDocument::File> file_;
};

} // namespace platform
