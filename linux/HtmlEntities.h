#pragma once

#include <string>
#include <string_view>

namespace platform {

/// The text with its character references replaced: numeric ones and the names in common use. What is no
/// reference stays as it is.
std::string withoutEntities(std::string_view text);

} // namespace platform
