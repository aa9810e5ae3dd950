#pragma once

#include "platform/plist/BinaryObjectTable.h"

#include <string>
#include <string_view>

namespace platform {

/// The keys of a dictionary of the binary form whose objects are numbered and stored in a row, as writers do.
/// A process reads the same document again and again. Where another one has the same bytes in the same place,
/// its keys are the same ones. Nothing in them has to be looked at, which takes a third off the time of a
/// short document.
struct BinaryKeyRun {
    /// What names the objects in the dictionary; empty where they are not in a row.
    std::string references;
    /// Their entries in the table of offsets.
    std::string offsets;
    /// The objects, one after the other.
    std::string objects;

    /// Returns the run of the keys that `references` name, all of them objects of the table.
    static BinaryKeyRun of(const BinaryObjectTable& table, std::string_view references);

    /// Returns whether the same number of `references` name the same keys in this table.
    bool isIn(const BinaryObjectTable& table, std::string_view references) const;

    bool operator==(const BinaryKeyRun&) const = default;
};

} // namespace platform
