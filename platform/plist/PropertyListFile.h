#pragma once

#include "platform/base/Export.h"
#include "platform/files/Sync.h"
#include "platform/values/Value.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace platform {

/// The dictionary in the property list at a device path; none when the file is missing, unreadable, no
/// property list or its root is no dictionary.
WARDLOCK_API std::optional<Dictionary> dictionaryWithContentsOfFile(std::string_view devicePath);

/// Replaces the file at a device path by the dictionary's XML form, atomically; readers see the old bytes or
/// the new. A file there that is no document is kept beside as "<name>.damaged" first. Returns whether the
/// new content stands.
WARDLOCK_API bool writeToFileAtomically(const Dictionary& dictionary, std::string_view devicePath,
                                        Sync sync = Sync::Full);

/// What became of a read-modify-write.
struct Update {
    /// The entries after the change, whether or not they could be written.
    Dictionary dictionary;
    bool changed = false;
    bool written = false;
    /// Why a change was not written.
    std::error_code error;
};

/// The one read-modify-write: a new mutable dictionary receives all entries of the file as it now is on disk
/// (none when it is missing or no document), `change` is applied, and the whole is written back atomically.
/// When `change` answers false nothing is written. What `change` throws passes through; nothing is written
/// then.
WARDLOCK_API Update updateFile(std::string_view devicePath,
                               const std::function<bool(MutableDictionary&)>& change, Sync sync = Sync::Full);

/// The same for a file at a path of this machine.
WARDLOCK_API Update updateFileOfMachine(const std::string& path,
                                        const std::function<bool(MutableDictionary&)>& change,
                                        Sync sync = Sync::Full);

} // namespace platform
