#pragma once

#include "../base/Export.h"
#include "../files/Sync.h"
#include "../values/Value.h"
#include "../versions/Versions.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace platform {

/// Reads the dictionary of the property list at a device path. Returns nothing when the file is missing,
/// unreadable or not a property list, and when its root is not a dictionary.
WARDLOCK_API std::optional<Dictionary> dictionaryWithContentsOfFile(std::string_view devicePath);

/// The same. Sets `error` to why an existing file could not be read: without a dictionary and without an
/// error, the file is missing or damaged.
WARDLOCK_API std::optional<Dictionary> dictionaryWithContentsOfFile(std::string_view devicePath,
                                                                    std::error_code& error);

/// Replaces the file at a device path by the dictionary's XML form, atomically; readers see the old bytes or
/// the new. A file that is not a document is kept as "<name>.damaged" first. Returns whether the new content
/// is in place. Versions are kept where the file has a folder of versions already.
WARDLOCK_API bool writeToFileAtomically(const Dictionary& dictionary, std::string_view devicePath,
                                        Sync sync = Sync::Full);

/// The result of a read-modify-write.
struct Update {
    /// The entries after the change, whether or not they could be written.
    Dictionary dictionary;
    /// Whether there was a document, whose entries the change received.
    bool read = false;
    bool changed = false;
    /// Whether the change is in place: every reader gets it.
    bool written = false;
    /// Why a change was not written or, where it was, why a power cut may take it back. Without a change, why
    /// an existing file could not be read.
    std::error_code error;
};

/// The read-modify-write that every writer uses. A new mutable dictionary receives all entries of the file as
/// it is on disk (none when it is missing or not a document). Then `change` is applied and the whole is
/// written back atomically.
///
/// When `change` returns false, nothing is written. An exception of `change` passes through, and nothing is
/// written either. An error is also reported to the host that shows pages, since most callers ignore it.
WARDLOCK_API Update updateFile(std::string_view devicePath,
                               const std::function<bool(MutableDictionary&)>& change, Sync sync = Sync::Full,
                               const Versions& versions = {});

/// The same for a change that means nothing without the entries of the file. Where no document is read,
/// `change` is not called and the file stays as it is. An error of reading is only returned.
WARDLOCK_API Update updateExistingFile(std::string_view devicePath,
                                       const std::function<bool(MutableDictionary&)>& change,
                                       Sync sync = Sync::Full, const Versions& versions = {});

/// The same as updateFile() for a file at a path of this machine, whose error is only returned. Any file can
/// be named, so none gets a folder of versions; one that is there is used.
WARDLOCK_API Update updateFileOfMachine(const std::string& path,
                                        const std::function<bool(MutableDictionary&)>& change,
                                        Sync sync = Sync::Full,
                                        const Versions& versions = {KeepVersions::WhereFolderExists});

/// Replaces a file at a path of this machine by these bytes of a property list, atomically, whatever it
/// contains. A document that has a folder of versions is kept there. An error after the last step, the
/// syncing of the folder, leaves the new bytes in place.
WARDLOCK_API std::error_code replaceFileOfMachine(const std::string& path, std::string_view bytes,
                                                  Sync sync = Sync::Full);

/// Keeps the document at a device path as a version where another program wrote it: it differs from the
/// youngest version. Called whenever a program meets the document, so that the next program to replace it
/// does not destroy it.
WARDLOCK_API void keepVersionOfFile(std::string_view devicePath);

} // namespace platform
