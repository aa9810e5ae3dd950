#pragma once

#include "platform/text/NameCollator.h"
#include "platform/values/Value.h"

#include <string_view>
#include <vector>

namespace wardlock {

/// Identifiers to be put in the order of the applications' display names. Each name is looked up once.
/// Identifiers without a name come after all named ones; equals keep their order. The views point into the
/// dictionary and into the arrays added, which must outlive this object.
class ApplicationOrder {
public:
    explicit ApplicationOrder(const platform::Dictionary& names) : names_(names) {}

    /// Every identifier that has an entry.
    void addAll();
    /// The strings of the array.
    void add(const platform::Array& identifiers);
    /// Every occurrence of the array's strings.
    void remove(const platform::Array& identifiers);

    /// By display name.
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
