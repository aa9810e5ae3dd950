#pragma once

namespace platform {

/// How far a write is forced to the disk before it counts: not at all, the file's data, or the data and the
/// folder entry.
enum class Sync { None, Data, Full };

} // namespace platform
