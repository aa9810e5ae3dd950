#pragma once

#include "shell/screen/Row.h"
#include "shell/screen/TableRow.h"

#include <string>
#include <string_view>

namespace wardlock::cli {

/// Returns what names a row to the user: its label, else what it is.
std::string rowLabel(const shell::Row& row);
std::string rowLabel(const shell::TableRow& row);

/// Returns the text in a form that compares without regard to letter case.
std::string folded(std::string_view text);

} // namespace wardlock::cli
