#include "tests/unit/plist/PropertyListReading.h"

#include "platform/plist/PropertyList.h"
#include "tests/support/ValueText.h"

namespace wardlock::test {

std::string reading(std::string_view document) {
    const auto value = platform::propertyListWithData(document);
    return value ? text(*value) : "no document";
}

std::string readingOfXml(std::string_view value) {
    return reading("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">" +
                   std::string(value) + "</plist>\n");
}

} // namespace wardlock::test
