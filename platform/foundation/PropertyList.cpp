#include "platform/foundation/PropertyList.h"

#include "platform/foundation/BinaryPropertyListReader.h"
#include "platform/foundation/TextDecoding.h"
#include "platform/foundation/XmlPropertyListReader.h"
#include "platform/foundation/XmlPropertyListWriter.h"

namespace platform {

std::optional<Value> propertyListWithData(std::string_view bytes) {
    if (bytes.starts_with(BinaryPropertyListReader::magic))
        return BinaryPropertyListReader(bytes).read();
    std::string storage;
    const auto text = xmlAsUtf8(bytes, storage);
    return text ? XmlPropertyListReader(*text).read() : std::nullopt;
}

std::string dataWithPropertyList(const Value& value) {
    return XmlPropertyListWriter(value).write();
}

std::string dataWithPropertyList(const Dictionary& dictionary) {
    return dataWithPropertyList(Value(dictionary));
}

} // namespace platform
