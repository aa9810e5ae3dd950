#include "platform/plist/XmlSize.h"

#include "platform/plist/ScratchMemory.h"
#include "platform/values/KeySet.h"

#include <algorithm>
#include <memory_resource>
#include <vector>

namespace platform {

namespace {

constexpr std::size_t containerTags = 18;
constexpr std::size_t keyTags = 12;
constexpr std::size_t stringTags = 18;
constexpr std::size_t otherElement = 10;
/// Runs that room is made for at first.
constexpr std::size_t typicalRuns = 16;

struct Pending {
    const Value* first;
    std::size_t count;
    std::size_t depth;
};
using PendingRuns = std::pmr::vector<Pending>;

/// Returns what the elements of a container add, except for their own indentation, which `pending` will
/// count.
std::size_t containerSize(const Value& value, std::size_t depth, PendingRuns& pending) {
    if (value.is(Value::Kind::Array)) {
        if (!value.array().empty())
            pending.push_back({value.array().begin(), value.array().size(), depth + 1});
        return containerTags + depth;
    }
    const Dictionary& dictionary = value.dictionary();
    if (dictionary.empty())
        return containerTags;
    const KeySet* const keys = dictionary.keys();
    pending.push_back({dictionary.values(), dictionary.size(), depth + 1});
    return containerTags + depth + keys->text().size() + keys->size() * (keyTags + depth + 1);
}

} // namespace

std::size_t xmlSizeEstimate(const Value& root, std::size_t most) {
    std::size_t size = 0;
    ScratchMemory scratch;
    PendingRuns pending(scratch.get());
    pending.reserve(typicalRuns);
    pending.push_back({&root, 1, 0});
    while (!pending.empty() && size < most) {
        const Pending run = pending.back();
        pending.pop_back();
        size += run.count * run.depth;
        for (const Value* value = run.first; value != run.first + run.count; ++value) {
            if (value->is(Value::Kind::String))
                size += stringTags + value->string().size();
            else if (value->is(Value::Kind::Array) || value->is(Value::Kind::Dictionary))
                size += containerSize(*value, run.depth, pending);
            else
                size += otherElement;
        }
    }
    return std::min(size, most);
}

} // namespace platform
