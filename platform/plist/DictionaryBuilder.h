#pragma once

#include "platform/values/KeySet.h"
#include "platform/values/Value.h"

#include <array>
#include <span>
#include <string_view>

namespace platform {

/// Which value counts where a document names a key twice in one dictionary.
enum class Duplicates { KeepFirst, KeepLast };

/// Creates the dictionaries of one document. Those with the same keys in the same order share their key set.
class DictionaryBuilder {
public:
    explicit DictionaryBuilder(Duplicates duplicates) : duplicates_(duplicates) {}

    /// `values` has as many elements as `keys`; they are moved from.
    Dictionary make(std::span<const std::string_view> keys, Value* values);

private:
    IntrusivePointer<KeySet> recentSet(std::span<const std::string_view> keys);
    Dictionary withDuplicates(std::span<const std::string_view> keys, Value* values) const;

    Duplicates duplicates_;
    /// The latest key sets, the newest first. A document has few kinds of records; an older set is only worth
    /// its memory when it comes again.
    std::array<IntrusivePointer<KeySet>, 16> recent_;
};

} // namespace platform
