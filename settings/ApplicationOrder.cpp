#include "settings/ApplicationOrder.h"

#include <algorithm>
#include <unordered_set>

namespace wardlock {

using platform::NameCollator;
using platform::Value;

void ApplicationOrder::addAll() {
    entries_.reserve(entries_.size() + names_.size());
    for (const auto& [identifier, name] : names_)
        entries_.push_back({identifier, &name});
}

void ApplicationOrder::add(const platform::Array& identifiers) {
    for (const Value& element : identifiers) {
        if (const auto identifier = platform::stringValue(&element))
            entries_.push_back({*identifier, names_.find(*identifier)});
    }
}

void ApplicationOrder::remove(const platform::Array& identifiers) {
    std::unordered_set<std::string_view> removed;
    for (const Value& element : identifiers) {
        if (const auto identifier = platform::stringValue(&element))
            removed.insert(*identifier);
    }
    std::erase_if(entries_, [&removed](const Entry& entry) { return removed.contains(entry.identifier); });
}

void ApplicationOrder::sort(NameCollator::Comparison comparison) {
    NameCollator order(comparison, entries_.size());
    for (const Entry& entry : entries_)
        order.add(platform::stringValue(entry.name));
    std::vector<Entry> sorted;
    sorted.reserve(entries_.size());
    for (const std::uint32_t position : order.sorted())
        sorted.push_back(entries_[position]);
    entries_ = std::move(sorted);
}

void ApplicationOrder::appendTo(platform::MutableArray& rows) const {
    for (const Entry& entry : entries_)
        rows.append(entry.identifier);
}

} // namespace wardlock
