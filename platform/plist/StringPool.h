#pragma once

#include "platform/values/Value.h"

#include <string_view>
#include <vector>

namespace platform {

/// Creates the strings of one document. Short ones that recur, such as identifiers in a list of each record,
/// share their bytes. The pool remembers a bounded number of them.
class StringPool {
public:
    /// `documentSize`, in bytes, bounds how much remembering is worth.
    explicit StringPool(std::size_t documentSize);

    Value string(std::string_view text);

private:
    /// One remembered string per slot, the latest.
    std::vector<IntrusivePointer<ByteBlock>> slots_;
};

} // namespace platform
