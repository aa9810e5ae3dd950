#include "platform/plist/PropertyList.h"

#include "platform/plist/BinaryPropertyListReader.h"
#include "platform/plist/PropertyListBounds.h"
#include "platform/plist/TextDecoding.h"
#include "platform/plist/XmlPropertyListReader.h"
#include "platform/plist/XmlPropertyListWriter.h"

namespace platform {

std::optional<Value> propertyListWithData(std::string_view bytes) {
    if (bytes.starts_with(BinaryPropertyListReader::magic))
        return BinaryPropertyListReader(bytes).read();
    std::string storage;
    const auto text = xmlAsUtf8(bytes, storage);
    return text ? XmlPropertyListReader(*text).read() : std::nullopt;
}

std::string dataWithPropertyList(const Value& value) {
    XmlPropertyListWriter writer(value, {});
    writer.write();
    return writer.take();
}

std::string dataWithPropertyList(const Dictionary& dictionary) {
    return dataWithPropertyList(Value(dictionary));
}

std::error_code documentWithPropertyList(const Value& value, std::string& document) {
    XmlPropertyListWriter writer(value, {largestDocument, deepestPropertyList});
    if (std::error_code error = writer.write())
        return error;
    document = writer.take();
    return {};
}

} // namespace platform
