// A value built from the plan, in both forms of a property list: reading returns the value without loss. (A
// reader that always loses something would do so again with what was written of the rest.)
#include "fuzz/BinaryEncoding.h"
#include "fuzz/Check.h"
#include "fuzz/Plan.h"
#include "fuzz/PlannedValue.h"
#include "fuzz/SecondReading.h"
#include "platform/base/Utf8.h"
#include "platform/plist/PropertyList.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace {

using platform::Value;

/// Returns whether all its texts can be written: bytes that are not UTF-8 cannot.
bool isText(const Value& value) {
    switch (value.kind()) {
    case Value::Kind::String:
        return platform::isValidUtf8(value.string());
    case Value::Kind::Array:
        return std::ranges::all_of(value.array(), isText);
    case Value::Kind::Dictionary:
        for (const auto& [key, element] : value.dictionary())
            if (!platform::isValidUtf8(key) || !isText(element))
                return false;
        return true;
    default:
        return true;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    wardlock::fuzz::Plan plan({reinterpret_cast<const char*>(data), size});
    const Value value = wardlock::fuzz::plannedValue(plan);
    const std::string written = platform::dataWithPropertyList(value);
    if (!isText(value)) {
        wardlock::fuzz::check(platform::propertyListWithData(written).has_value(),
                              "what was written can be read");
        return 0;
    }
    wardlock::fuzz::expectSameValueAgain(value);
    const auto read = platform::propertyListWithData(wardlock::fuzz::binaryPropertyList(value));
    wardlock::fuzz::check(read && *read == value, "the binary form reads as the value");
    return 0;
}
