#pragma once

#include "platform/base/Export.h"
#include "platform/values/Value.h"

#include <functional>
#include <string>
#include <string_view>
#include <unordered_set>

namespace wardlock {

/// The restricted applications of an account in their stored order, with a fast membership test: every cell
/// of the picker calls it. Elements that are not strings keep their places, so that saving does not lose
/// them, but match no application.
class WARDLOCK_API RestrictedApplications {
public:
    explicit RestrictedApplications(const platform::Array& stored);

    const platform::MutableArray& elements() const { return elements_; }
    platform::Array copy() const { return elements_.copy(); }

    bool contains(std::string_view identifier) const;
    void append(std::string_view identifier);
    /// Removes every occurrence.
    void remove(std::string_view identifier);

private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
    };

    platform::MutableArray elements_;
    std::unordered_set<std::string, Hash, std::equal_to<>> present_;
};

} // namespace wardlock
