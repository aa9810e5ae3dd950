#pragma once

/// What a write records about the versions of a document, which are kept in a folder beside it
/// (VersionFolder.h).

#include "../base/Export.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace platform {

enum class KeepVersions {
    Never,
    /// Only where the document has a folder of versions already: for a file that any program may name.
    WhereFolderExists,
    Always
};

/// What a change does to earlier ones.
enum class VersionAction { Change, Undo, Redo, Restore };

/// How a write keeps versions.
struct Versions {
    KeepVersions keep = KeepVersions::Always;
    VersionAction action = VersionAction::Change;
    /// The number of the version that was taken back, set again or restored; 0 for a plain change.
    std::uint64_t of = 0;
};

/// Who wrote a version.
struct VersionOrigin {
    /// The kind of program: 1 to 16 lower-case letters.
    std::string place;
    /// A number that each process draws at its first write; 0 where the writer is not known.
    std::uint32_t process = 0;
    VersionAction action = VersionAction::Change;
    std::uint64_t of = 0;

    bool operator==(const VersionOrigin&) const = default;
};

/// The place of a program that has not set one.
inline constexpr std::string_view programPlace = "program";
/// The place of a version that was found, written by a program without this library.
inline constexpr std::string_view unknownPlace = "unknown";

/// Sets the place of this process's writes. A text that is not a place is ignored. Main thread only.
WARDLOCK_API void setVersionPlace(std::string_view place);

/// Returns the origin of this process's writes.
WARDLOCK_API VersionOrigin ownVersionOrigin(const Versions& versions = {});

/// Returns milliseconds since 1970 by the machine's clock.
using VersionClock = std::int64_t (*)();
/// Replaces the clock that dates versions; null restores the machine's.
WARDLOCK_API void setVersionClock(VersionClock clock);
WARDLOCK_API std::int64_t versionTime();

} // namespace platform
