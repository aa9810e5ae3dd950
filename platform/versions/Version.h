#pragma once

#include "platform/base/Export.h"
#include "platform/versions/Versions.h"

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// One version of a document, as the name of its file describes it:
///
///     0000000042-1763787685123-settings-1a2b3c4d-change-0123456789abcdef.plist
///
/// The parts are the number, milliseconds since 1970, the origin's place and process, the action ("undo41"
/// for the undoing of version 41), and the digest of the content. Everything is in the name: no second file
/// can get lost or disagree.
struct WARDLOCK_API Version {
    /// Counts the versions of a document, from 1. Numbers give the order, whatever the clock says. Two
    /// processes that write at the same moment can choose the same number; then time and name give the order.
    std::uint64_t number = 0;
    /// When it was written, or found.
    std::int64_t time = 0;
    VersionOrigin origin;
    std::uint64_t digest = 0;

    std::string name() const;
    static std::optional<Version> ofName(std::string_view name);

    /// Returns whether a text has the number, the time and the ending of a name: a quick selection for every
    /// write. ofName() checks the rest.
    static bool isLikeName(std::string_view text);
    /// Returns the time in a name. Names are ordered as texts as their versions are, by number and time.
    static std::string_view timeOfName(std::string_view name);

    bool operator==(const Version&) const = default;
};

inline constexpr std::uint64_t largestVersionNumber = 9'999'999'999;

/// Orders versions from the oldest to the youngest.
WARDLOCK_API bool isOlder(const Version& one, const Version& other);

/// Recognises a content, not proof against forgery: who may write into the folder may write the document.
WARDLOCK_API std::uint64_t versionDigest(std::string_view bytes);

/// Returns whether a text is 1 to 16 lower-case letters.
WARDLOCK_API bool isVersionPlace(std::string_view text);

} // namespace platform
