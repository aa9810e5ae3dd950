#pragma once

#include "platform/base/Export.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// Puts many names in order with one key prepared per name. Names that are missing come after all others;
/// equals keep the order in which they were added.
class WARDLOCK_API NameCollator {
public:
    enum class Comparison {
        /// appendCaseFolded
        CaseInsensitive,
        /// appendLocalizedKey
        LocalizedCaseInsensitive
    };

    /// `expected`: how many names will be added, for room.
    NameCollator(Comparison comparison, std::size_t expected);

    void add(std::optional<std::string_view> name);
    /// The positions of the names, as they were added, in order.
    std::vector<std::uint32_t> sorted() const;

private:
    struct Entry {
        /// The key's first bytes as a number that orders as they do: it decides nearly every comparison.
        std::uint64_t prefix;
        std::uint32_t position;
        bool missing;
    };

    std::string_view key(std::uint32_t position) const;
    bool before(const Entry& a, const Entry& b) const;

    Comparison comparison_;
    /// All keys, one after another, and where each ends.
    std::string keys_;
    std::vector<std::size_t> ends_;
    std::vector<Entry> entries_;
};

} // namespace platform
