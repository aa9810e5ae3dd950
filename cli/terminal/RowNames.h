#pragma once

#include "platform/ui/NSIndexPath.h"
#include "shell/screen/Page.h"

#include <string>
#include <vector>

namespace wardlock::cli {

struct NamedRow {
    platform::NSIndexPath path;
    std::string label;
    /// Whether a tap changes a setting.
    bool changes = false;
};

/// Returns the rows of the page with that name, in any case. Where none has it, returns those whose names
/// begin so, but none that changes a setting: a mistyped command must not flip a switch.
std::vector<NamedRow> rowsNamed(shell::Page& page, const std::string& name);

} // namespace wardlock::cli
