#include "fuzz/PlannedValue.h"

#include "platform/values/MutableArray.h"
#include "platform/values/MutableDictionary.h"

#include <cstdint>

namespace wardlock::fuzz {

using platform::Value;

Value plannedValue(Plan& plan, int level) {
    constexpr int deepest = 24;
    constexpr std::size_t mostElements = 4;
    switch (plan.below(level < deepest ? 9 : 7)) {
    case 0:
        return plan.yes();
    case 1:
        return plan.number<std::int64_t>();
    case 2:
        return plan.number<std::uint64_t>();
    case 3:
        return plan.number<double>();
    case 4:
        return Value::data(plan.bytes());
    case 5:
        return Value::date(plan.number<double>());
    case 6:
        return plan.bytes();
    case 7: {
        platform::MutableArray array;
        for (std::size_t count = plan.below(mostElements); count > 0; --count)
            array.append(plannedValue(plan, level + 1));
        return array.copy();
    }
    default: {
        platform::MutableDictionary dictionary;
        for (std::size_t count = plan.below(mostElements); count > 0; --count) {
            const std::string key = plan.bytes();
            dictionary.set(key, plannedValue(plan, level + 1));
        }
        return dictionary.copy();
    }
    }
}

} // namespace wardlock::fuzz
