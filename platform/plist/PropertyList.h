#pragma once

#include "platform/base/Export.h"
#include "platform/values/Value.h"

#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace platform {

/// Reads a property list, XML or binary, distinguished by its first bytes, in one pass. Nesting is bounded
/// (PropertyListBounds.h), and so is what shared objects of the binary form would take as XML. The caller
/// bounds the bytes. Returns nothing for anything else; never throws.
WARDLOCK_API std::optional<Value> propertyListWithData(std::string_view bytes);

/// Returns the XML form: declaration, DOCTYPE, <plist version="1.0">, tabs, one element a line, final
/// newline. Takes any value, also one that cannot be read again.
WARDLOCK_API std::string dataWithPropertyList(const Value& value);
WARDLOCK_API std::string dataWithPropertyList(const Dictionary& dictionary);

/// Writes the XML form into `document` within the bounds of a document, so that it can be read again. Returns
/// a PropertyListError where the value exceeds them.
WARDLOCK_API std::error_code documentWithPropertyList(const Value& value, std::string& document);

} // namespace platform
