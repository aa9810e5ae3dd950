#pragma once

#include "cli/io/Json.h"
#include "shell/screen/Screen.h"

#include <cstddef>
#include <nlohmann/json.hpp>
#include <optional>

namespace wardlock::cli {

/// The rows of a table that a script asks for; a table may have very many.
struct TableExtent {
    std::size_t first = 0;
    std::optional<std::size_t> count;
};

/// Returns what the user sees, as docs/automation.md documents it. Members for absent things are left out.
Json screenJson(shell::Screen& screen, const TableExtent& extent);

} // namespace wardlock::cli
