#pragma once

#include "cli/io/Json.h"
#include "shell/screen/Row.h"
#include "shell/screen/TableRow.h"

#include <nlohmann/json.hpp>

namespace wardlock::cli {

/// A row of a list page, and one of a table, as docs/automation.md tells them.
Json rowJson(const shell::Row& row);
Json rowJson(const shell::TableRow& row);

} // namespace wardlock::cli
