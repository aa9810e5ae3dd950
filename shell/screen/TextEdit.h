#pragma once

#include "platform/preferences/PSSpecifier.h"

#include <memory>
#include <string>

namespace wardlock::shell {

/// The editing of one text row: from the tap on it to its end, when what was typed is stored.
struct TextEdit {
    std::shared_ptr<platform::PSSpecifier> specifier;
    std::string text;
    /// A field in which nothing was typed stores nothing.
    bool typed = false;
};

} // namespace wardlock::shell
