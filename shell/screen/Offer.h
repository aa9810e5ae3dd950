#pragma once

#include <string>

namespace wardlock::shell {

/// Something that the application itself offers to do for the user, beside what the pages offer.
struct Offer {
    enum class Kind {
        /// To take back a deletion. It goes by itself after some seconds.
        Undo,
        /// To restore the last good version of damaged settings. It stays until it is refused.
        Restore
    };

    Kind kind;
    /// What has happened, as a sentence: "Ann was deleted".
    std::string text;
};

} // namespace wardlock::shell
