#pragma once

#include "platform/values/Arena.h"

#include <memory_resource>
#include <string_view>
#include <vector>

namespace platform {

/// Creates the strings of one document. Short ones that recur, such as identifiers in a list of each record,
/// share their bytes. The pool remembers a bounded number of them.
class StringPool {
public:
    /// `documentSize`, in bytes, bounds how much remembering is worth. The arena and the scratch memory must
    /// outlive the pool.
    StringPool(Arena& arena, std::size_t documentSize, std::pmr::memory_resource* scratch);

    ArenaValue string(std::string_view text);

private:
    Arena& arena_;
    /// Pairs of slots. Two strings for one pair, which take turns in a document, are both remembered.
    std::pmr::vector<ByteBlock*> slots_;
};

} // namespace platform
