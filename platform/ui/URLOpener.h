#pragma once

#include "platform/base/Export.h"

#include <string_view>

namespace platform {

/// Opens URLs with the programs that are registered for them. Main thread only.
class WARDLOCK_API URLOpener {
public:
    virtual ~URLOpener();

    /// Returns whether the URL is being opened. That no program can open it may turn out later.
    virtual bool openURL(std::string_view url) = 0;

    /// Returns the process's opener: the one that was set, else the operating system's own.
    static URLOpener& current();
    /// Null restores the operating system's own. The caller keeps ownership.
    static void setCurrent(URLOpener* opener);
    /// Returns the operating system's own. It does not wait for the desktop.
    static URLOpener& native();
};

} // namespace platform
