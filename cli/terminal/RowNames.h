#pragma once

#include "platform/ui/NSIndexPath.h"
#include "shell/screen/Page.h"

#include <string>
#include <vector>

namespace wardlock::cli {

struct NamedRow {
    platform::NSIndexPath path;
    std::string label;
};

/// Returns the rows of the page with that name, in any case; where none has it, those whose names begin so.
std::vector<NamedRow> rowsNamed(shell::Page& page, const std::string& name);

} // namespace wardlock::cli
