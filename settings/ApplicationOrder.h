#pragma once

#include "platform/text/NameCollator.h"
#include "platform/values/Value.h"

#include <string_view>
#include <vector>

namespace wardlock {

/// Identifiers to be sorted by the display names of their applications. Each name is looked up once.
/// Identifiers without a name come after all named ones; equal ones keep their order. The views point into
/// the dictionary and into the added arrays, which must outlive this object.
class ApplicationOrder {
public:
    explicit ApplicationOrder(const platform::Dictionary& names) : names_(names) {}

    /// Adds every identifier that has an entry in the dictionary of names.
    void addAll();
    /// Adds the strings of the array.
    void add(const platform::Array& identifiers);
    /// Removes every occurrence of the array's strings.
    void remove(const platform::Array& identifiers);

    /// Sorts by display name.
    void sort(platform::NameCollator::Comparison comparison);

    void appendTo(platform::MutableArray& rows) const;

private:
    struct Entry {
        std::string_view identifier;
        /// Null when the application has none.
        const platform::Value* name;
    };

    const platform::Dictionary& names_;
    std::vector<Entry> entries_;
};

} // namespace wardlock
