#pragma once

#include "cli/io/Json.h"
#include "shell/screen/Row.h"
#include "shell/screen/TableRow.h"

#include <nlohmann/json.hpp>

namespace wardlock::cli {

/// Returns a row of a list page, or of a table, as docs/automation.md documents them.
Json rowJson(const shell::Row& row);
Json rowJson(const shell::TableRow& row);

} // namespace wardlock::cli
