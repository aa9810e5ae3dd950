#pragma once

#include "platform/plist/DocumentShape.h"
#include "platform/values/Arena.h"

#include <array>
#include <span>
#include <string_view>

namespace platform {

/// Which value counts where a document names a key twice in one dictionary.
enum class Duplicates { KeepFirst, KeepLast };

/// Creates the dictionaries of one document. Those with the same keys in the same order share their key set.
class DictionaryBuilder {
public:
    /// Dictionaries with keys of `shape` share those as well. The arena must outlive the builder.
    DictionaryBuilder(Arena& arena, Duplicates duplicates, const DocumentShape& shape);

    /// `values` has as many elements as `keys`. Of equal keys it loses all values but one.
    ArenaValue make(std::span<const std::string_view> keys, ArenaValue* values);

private:
    KeySet* newSet(std::span<const std::string_view> keys, ArenaValue* values);

    Arena& arena_;
    Duplicates duplicates_;
    /// The latest key sets, the newest first. A document has few kinds of records.
    std::array<KeySet*, 16> recent_{};
};

} // namespace platform
