#pragma once

/// Taking back changes of the preferences document. It is a change like any other: written in one step,
/// announced key by key as the writer of each key announces it, and it can be taken back itself. Main thread
/// only.

#include "platform/base/Export.h"
#include "platform/versions/Version.h"
#include "settings/Constants.h"
#include "settings/history/Difference.h"
#include "settings/history/TakingBack.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace wardlock {

/// Whose changes are taken back.
enum class Whose {
    Anyones,
    /// Those of this process.
    Own
};

/// What undo() or redo() would do.
struct UndoStep {
    /// The version whose change is taken back.
    std::uint64_t number = 0;
    /// The change as it was made: "Ann deleted" is undone by adding Ann again. For redo() the change that is
    /// made again.
    std::vector<Change> changes;
};

/// What has become of a request.
struct UndoResult {
    enum class Outcome {
        Done,
        /// There is no such change or version.
        Nothing,
        /// It would lose later changes, which `reasons` names.
        Refused,
        /// The settings are missing or damaged, or cannot be read, as `reasons` says. They stay as they are.
        NoDocument,
        /// The document could not be written: `error`. An error after Done means that the change is in place,
        /// and that a power cut may take it back.
        Failed
    };

    Outcome outcome = Outcome::Nothing;
    /// The version that was taken back, made again or restored.
    std::uint64_t number = 0;
    /// What was changed in the document.
    std::vector<Change> changes;
    std::vector<std::string> reasons;
    std::error_code error;
};

WARDLOCK_API std::optional<UndoStep> undoStep(Whose whose, std::string_view identifier = BundleIdentifier);
WARDLOCK_API std::optional<UndoStep> redoStep(Whose whose, std::string_view identifier = BundleIdentifier);

/// Takes back the last change that has not been taken back yet. A restoring of damaged or missing settings
/// cannot be taken back, nor any change before it. Without a document there is nothing to take it back in;
/// restoreVersion() replaces damaged or missing settings.
WARDLOCK_API UndoResult undo(Whose whose, LaterChanges later = LaterChanges::Keep,
                             std::string_view identifier = BundleIdentifier);
/// Applies the last undone change again, unless other changes were made since.
WARDLOCK_API UndoResult redo(Whose whose, LaterChanges later = LaterChanges::Keep,
                             std::string_view identifier = BundleIdentifier);

/// Replaces the document by a version. Nothing is refused: every later change is meant to go. Of several
/// versions with one number, the number means the youngest.
WARDLOCK_API UndoResult restoreVersion(const platform::Version& version,
                                       std::string_view identifier = BundleIdentifier);
WARDLOCK_API UndoResult restoreVersion(std::uint64_t number, std::string_view identifier = BundleIdentifier);

} // namespace wardlock
