#pragma once

#include <string>
#include <string_view>

namespace wardlock::test {

/// What a document reads as, in the form of text(Value); "no document" when it is not one.
std::string reading(std::string_view document);

/// The same of an XML property list with this for its value.
std::string readingOfXml(std::string_view value);

} // namespace wardlock::test
