#pragma once

#include "platform/base/Export.h"

#include <system_error>
#include <type_traits>

namespace platform {

/// Why a value is not written as a document: it could not be read again.
enum class PropertyListError : int { TooLarge = 1, TooDeep };

WARDLOCK_API std::error_code make_error_code(PropertyListError error);

} // namespace platform

template <>
struct std::is_error_code_enum<platform::PropertyListError> : std::true_type {};
