#include "bench/SyncMode.h"

namespace wardlock::bench {

platform::Sync syncOf(std::string_view mode) {
    return mode == "full"        ? platform::Sync::Full
           : mode == "fdatasync" ? platform::Sync::Data
                                 : platform::Sync::None;
}

} // namespace wardlock::bench
