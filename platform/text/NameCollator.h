#pragma once

#include "platform/base/Export.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// Sorts many names with one key prepared per name. Missing names come after all others; equal names keep the
/// order in which they were added.
class WARDLOCK_API NameCollator {
public:
    enum class Comparison {
        /// By appendCaseFolded.
        CaseInsensitive,
        /// By appendLocalizedKey.
        LocalizedCaseInsensitive
    };

    /// `expected` is the number of names that will be added; more may be.
    NameCollator(Comparison comparison, std::size_t expected);

    void add(std::optional<std::string_view> name);
    /// Returns the indexes of the names, in the order they were added, sorted by name.
    std::vector<std::uint32_t> sorted() const;

private:
    struct Entry {
        /// The key's first bytes as a number that sorts as they do: it decides nearly every comparison.
        std::uint64_t prefix;
        std::uint32_t position;
        bool missing;
    };

    std::string_view key(std::uint32_t position) const;
    bool before(const Entry& a, const Entry& b) const;

    Comparison comparison_;
    /// All keys, one after another; each entry has the end of its own.
    std::string keys_;
    std::vector<std::size_t> ends_;
    std::vector<Entry> entries_;
};

} // namespace platform
