#pragma once

#include "cli/fullscreen/TerminalTraits.h"

#include <string_view>

namespace wardlock::cli {

/// What a terminal replies when it is asked for its background (OSC 11) and for its kind (DA1).
enum class Reply {
    None,
    /// The bytes may be the beginning of one.
    Begun,
    /// The bytes are the beginning of the background's, and cannot become a whole one.
    Broken,
    Background,
    Kind,
};

/// Returns what bytes are that begin with Escape.
Reply replyOf(std::string_view bytes);

/// Returns the ground that a reply of the kind Background gives; Unknown where its colour is of no known
/// form.
Ground groundOfReply(std::string_view reply);

} // namespace wardlock::cli
