// Any bytes as a binary property list; the magic number is prepended, so that every input gets that far.
#include "fuzz/SecondReading.h"
#include "platform/plist/PropertyList.h"

#include <cstddef>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Beyond this, comparing takes the time that reading more inputs would.
    constexpr std::size_t longestWritten = 1 << 20;
    const std::string bytes = "bplist00" + std::string(reinterpret_cast<const char*>(data), size);
    const auto value = platform::propertyListWithData(bytes);
    if (value && platform::dataWithPropertyList(*value).size() <= longestWritten)
        wardlock::fuzz::expectSameValueAgain(*value);
    return 0;
}
