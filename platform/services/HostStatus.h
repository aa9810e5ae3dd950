#pragma once

/// What the product finds around it on this machine, for a person who diagnoses a fault. A query changes
/// nothing, creates nothing, and is bounded: seconds at most, whatever the desktop does.

#include "platform/base/Export.h"

#include <optional>
#include <string>

namespace platform {

/// The message bus that carries change notifications to other processes.
struct BusState {
    enum class Kind {
        Named,   ///< by DBUS_SESSION_BUS_ADDRESS
        User,    ///< the user's bus in XDG_RUNTIME_DIR
        Private, ///< a private bus, which the product starts itself
    };
    enum class Condition {
        Reachable,
        NotStarted,  ///< private: the first process that needs it starts it
        Unreachable, ///< no process listens, or it refuses the connection
        NoDaemon,    ///< private, and no dbus-daemon program is installed
        Distrusted,  ///< private, and its folder is open to others or cannot be created
    };
    Kind kind = Kind::Named;
    Condition condition = Condition::Unreachable;
    /// In D-Bus's form.
    std::string address;
    /// The folder of the private bus; empty for another bus.
    std::string privateFolder;
};
WARDLOCK_API BusState busState();

/// Returns the first way by which a mail would leave this machine now. A query starts the desktop's portal
/// where there is one.
enum class MailRouteKind { None, Portal, Program, Outbox };
WARDLOCK_API MailRouteKind firstMailRoute();

/// Returns whether the desktop's settings portal reports the contrast; none where no portal replies.
WARDLOCK_API std::optional<bool> portalReportsContrast();

/// Returns whether this user may write to a path of this machine.
WARDLOCK_API bool mayWrite(const std::string& path);

} // namespace platform
