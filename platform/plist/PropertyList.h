#pragma once

#include "platform/base/Export.h"
#include "platform/values/Value.h"

#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace platform {

/// Reads a property list, XML or binary, told apart by its first bytes. One pass; nesting and the number of
/// values are bounded (PropertyListBounds.h). Anything that is not a property list gives none, never an
/// exception.
WARDLOCK_API std::optional<Value> propertyListWithData(std::string_view bytes);

/// The XML form: declaration, DOCTYPE, <plist version="1.0">, tabs, one element a line, final newline. Of any
/// value, whether or not it can be read again.
WARDLOCK_API std::string dataWithPropertyList(const Value& value);
WARDLOCK_API std::string dataWithPropertyList(const Dictionary& dictionary);

/// The XML form within the bounds of a document, so that it can be read again; a PropertyListError where the
/// value exceeds them.
WARDLOCK_API std::error_code documentWithPropertyList(const Value& value, std::string& document);

} // namespace platform
