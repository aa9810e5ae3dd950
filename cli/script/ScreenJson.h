#pragma once

#include "cli/io/Json.h"
#include "shell/screen/Screen.h"

#include <cstddef>
#include <nlohmann/json.hpp>
#include <optional>

namespace wardlock::cli {

/// Which rows of a table a script wants to see; a table may have very many.
struct TableExtent {
    std::size_t first = 0;
    std::optional<std::size_t> count;
};

/// What a person sees now, as docs/automation.md tells it. What is not there is left out.
Json screenJson(shell::Screen& screen, const TableExtent& extent);

} // namespace wardlock::cli
