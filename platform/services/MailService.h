#pragma once

#include "platform/base/Export.h"
#include "platform/services/MailMessage.h"

#include <functional>
#include <string>

namespace platform {

/// The result of sending a mail.
struct MailOutcome {
    enum class Kind { HandedOver, SavedToOutbox, Failed };
    Kind kind = Kind::Failed;
    /// One sentence for the person: which program has the mail, where it is saved, or why it could not be
    /// sent.
    std::string message;
};

/// The device path of the outbox folder.
inline constexpr const char* mailOutboxPath = "/var/mobile/Library/Mail/Outbox";

/// The ways a mail can leave this machine. Main thread only.
class WARDLOCK_API MailService {
public:
    virtual ~MailService();

    virtual bool canSendMail() = 0;
    /// Tries the routes in their order. Calls `done` on the main thread, possibly before this returns.
    virtual void send(const MailMessage& message, std::function<void(const MailOutcome&)> done) = 0;

    /// Returns the process's service: the one that was set, else the operating system's own.
    static MailService& current();
    /// Null restores the operating system's own. The caller keeps ownership.
    static void setCurrent(MailService* service);
    /// Returns the operating system's own, which tries these ways in order:
    /// - the desktop's email portal, where there is a bus with a portal;
    /// - xdg-email, where there are a registered mail program and a display;
    /// - the device root's outbox folder, where it exists: a complete message is saved there.
    ///
    /// canSendMail() returns within seconds whatever the desktop does. Sending runs beside the main thread
    /// and is reported on it.
    static MailService& native();
};

} // namespace platform
