// Any bytes as an XML property list, in whatever encoding they declare.
#include "fuzz/SecondReading.h"
#include "platform/plist/PropertyList.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    if (const auto value = platform::propertyListWithData(bytes))
        wardlock::fuzz::expectSameValueAgain(*value);
    return 0;
}
