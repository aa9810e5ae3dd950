#pragma once

#include "platform/services/MailService.h"

namespace platform {

/// Returns the service that tries these ways in order:
/// - the desktop's email portal, where there is a bus with a portal;
/// - xdg-email, where there are a registered mail program and a display;
/// - the device root's outbox folder, where it exists: a complete message is saved there.
///
/// canSendMail() returns within seconds whatever the desktop does. Sending runs beside the main thread and is
/// reported on it.
WARDLOCK_API MailService& systemMailService();

/// The device path of the outbox folder.
inline constexpr const char* mailOutboxPath = "/var/mobile/Library/Mail/Outbox";

} // namespace platform
