#pragma once

#include "platform/services/MailService.h"

namespace platform {

/// The ways mail leaves this machine, tried in this order: the desktop's email portal, where a bus and the
/// portal are; xdg-email, where a mail program is registered and a display is; the device root's outbox
/// folder, where there is one: a complete message is saved there. canSendMail() answers within seconds
/// whatever the desktop does; sending happens beside the main thread and is told on it.
WARDLOCK_API MailService& systemMailService();

/// The device path of the outbox folder.
inline constexpr const char* mailOutboxPath = "/var/mobile/Library/Mail/Outbox";

} // namespace platform
