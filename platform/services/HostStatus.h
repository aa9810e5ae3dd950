#pragma once

/// What the product finds around it on this machine, for a person who looks for what is wrong. Asking changes
/// nothing and creates nothing, and is bounded: seconds at most, whatever the desktop does.

#include "platform/base/Export.h"

#include <string>

namespace platform {

/// The message bus that carries change notifications to other processes.
struct BusState {
    enum class Kind {
        Named, ///< by DBUS_SESSION_BUS_ADDRESS
        User,  ///< the user's bus in XDG_RUNTIME_DIR
        Own,   ///< one that the product starts itself
    };
    enum class Condition {
        Answers,
        NotStarted,  ///< our own: the first process that needs it starts it
        Unreachable, ///< nobody listens, or whoever does lets nobody in
        NoDaemon,    ///< our own, and there is no dbus-daemon program to start
        Distrusted,  ///< our own, and its folder is open to others or cannot be made
    };
    Kind kind = Kind::Named;
    Condition condition = Condition::Unreachable;
    /// In D-Bus's form.
    std::string address;
    /// The folder of our own bus; empty for another's.
    std::string ownFolder;
};
WARDLOCK_API BusState busState();

/// The first way by which a mail would leave this machine now. Asking wakes the desktop's portal where there
/// is one.
enum class MailWay { None, Portal, Program, Outbox };
WARDLOCK_API MailWay mailWay();

/// Whether this user may write to what stands at a path of this machine.
WARDLOCK_API bool mayWrite(const std::string& path);

} // namespace platform
