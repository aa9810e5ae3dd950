#include "fuzz/SecondReading.h"

#include "platform/plist/PropertyList.h"

#include <cstdlib>

namespace wardlock::fuzz {

using platform::Value;

namespace {

/// Returns the value as the written form keeps it: dates to the second, within the calendar.
Value asWritten(const Value& value) {
    switch (value.kind()) {
    case Value::Kind::Date:
        return *platform::propertyListWithData(platform::dataWithPropertyList(value));
    case Value::Kind::Array: {
        platform::MutableArray array;
        for (const Value& element : value.array())
            array.append(asWritten(element));
        return array.copy();
    }
    case Value::Kind::Dictionary: {
        platform::MutableDictionary dictionary;
        for (const auto& [key, element] : value.dictionary())
            dictionary.set(key, asWritten(element));
        return dictionary.copy();
    }
    default:
        return value;
    }
}

} // namespace

void expectSameValueAgain(const Value& value) {
    const std::string document = platform::dataWithPropertyList(value);
    const auto again = platform::propertyListWithData(document);
    if (!again || *again != asWritten(value) || platform::dataWithPropertyList(*again) != document)
        std::abort();
    // A value within the bounds gives the same document.
    std::string bounded;
    if (!platform::documentWithPropertyList(value, bounded) && bounded != document)
        std::abort();
}

} // namespace wardlock::fuzz
