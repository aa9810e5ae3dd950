#pragma once

#include "platform/base/Export.h"
#include "platform/services/MailMessage.h"

#include <functional>
#include <string>

namespace platform {

/// What became of a mail that was sent off.
struct MailOutcome {
    enum class Kind { HandedOver, SavedToOutbox, Failed };
    Kind kind = Kind::Failed;
    /// One sentence for the person: which program has the mail, where it lies, or why it could not be sent.
    std::string message;
};

/// The ways a mail can leave this machine. Main thread only.
class WARDLOCK_API MailService {
public:
    virtual ~MailService();

    virtual bool canSendMail() = 0;
    /// Tries the routes in their order; `done` is called on the main thread, possibly before this returns.
    virtual void send(const MailMessage& message, std::function<void(const MailOutcome&)> done) = 0;

    /// The process's service; one that can send nothing while none is set.
    static MailService& current();
    /// Null takes it back. Not owned.
    static void setCurrent(MailService* service);
};

} // namespace platform
