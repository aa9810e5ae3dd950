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

/// The ways a mail can leave this machine. Main thread only.
class WARDLOCK_API MailService {
public:
    virtual ~MailService();

    virtual bool canSendMail() = 0;
    /// Tries the routes in their order. Calls `done` on the main thread, possibly before this returns.
    virtual void send(const MailMessage& message, std::function<void(const MailOutcome&)> done) = 0;

    /// Returns the process's service; while none is set, one that cannot send.
    static MailService& current();
    /// Sets the process's service; null removes it. The caller keeps ownership.
    static void setCurrent(MailService* service);
};

} // namespace platform
