#pragma once

#include "platform/base/Export.h"
#include "platform/versions/VersionFolder.h"
#include "settings/Constants.h"
#include "settings/history/Difference.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace wardlock {

/// Places of versions' origins, beside platform::programPlace and platform::unknownPlace.
inline constexpr std::string_view SettingsPlace = "settings";
inline constexpr std::string_view CommandPlace = "command";

/// The kept versions of the preferences document, as they are at construction. A version that another program
/// wrote, and that is not kept yet, is kept first. Reads the versions' content only where it is asked for.
/// Main thread only.
class WARDLOCK_API History {
public:
    explicit History(std::string_view identifier = BundleIdentifier);

    /// From the oldest to the youngest. The youngest is the document, unless that is missing or damaged, or
    /// no versions can be kept.
    const std::vector<platform::Version>& versions() const { return versions_; }
    /// Whether versions are kept here, and if not, why, is its state.
    const platform::VersionFolder& folder() const { return folder_; }

    /// Returns the version of a number, the youngest where two have it.
    const platform::Version* find(std::uint64_t number) const;
    /// Returns the readable version before this one; null for the oldest, and for one that is not kept.
    const platform::Version* previous(const platform::Version& version) const;
    /// Reads a version; nothing where it is gone, damaged or was changed in place.
    std::optional<platform::Dictionary> document(const platform::Version& version) const;
    /// Returns the youngest version that can be read.
    const platform::Version* lastReadable() const;

    /// What a version changed of the one before; nothing where either cannot be read.
    std::optional<std::vector<Change>> changes(const platform::Version& version) const;

private:
    platform::VersionFolder folder_;
    std::vector<platform::Version> versions_;
};

/// Keeps the document as a version where another program wrote it. Settings and the command call it whenever
/// they meet the document: what another program writes next then destroys nothing.
WARDLOCK_API void keepForeignVersion(std::string_view identifier = BundleIdentifier);

} // namespace wardlock
