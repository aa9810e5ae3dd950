// What a device consists of here: the class behind each service of the platform that a program may replace
// (`setCurrent`), and behind each that it creates. Services that nothing replaces are functions, defined
// where their work is done. Installed applications are a module of their own, linux/applist, which pages find
// by its class's name. The clock, the display and the web engine come from the front end.

#include "linux/mail/LinuxMailService.h"
#include "linux/mail/MailOutbox.h"
#include "linux/mail/MailPortal.h"
#include "linux/mail/MailProgram.h"
#include "linux/notifications/DistributedCenter.h"
#include "linux/posix/PosixFileSystem.h"
#include "linux/system/AppearancePortal.h"
#include "linux/system/LinuxDeviceInformation.h"
#include "linux/web/CurlWebEngine.h"
#include "linux/web/DesktopURLOpener.h"

#include <memory>
#include <utility>

namespace platform {

FileSystem& FileSystem::native() {
    // Never destroyed: the log may be written until the process has ended.
    static FileSystem* const files = new posix::PosixFileSystem;
    return *files;
}

CFNotificationCenter& CFNotificationCenter::native() {
    // Never destroyed: a post while the process ends must still find it.
    static auto* const center = new notifications::DistributedCenter;
    return *center;
}

system::LinuxDeviceInformation& system::machineInformation() {
    static LinuxDeviceInformation information;
    return information;
}

DeviceInformation& DeviceInformation::native() {
    return system::machineInformation();
}

URLOpener& URLOpener::native() {
    static web::DesktopURLOpener opener;
    return opener;
}

MailService& MailService::native() {
    static mail::LinuxMailService service({std::make_shared<mail::MailPortal>(),
                                           std::make_shared<mail::MailProgram>(),
                                           std::make_shared<mail::MailOutbox>()});
    return service;
}

std::shared_ptr<WebEngine> makeTextWebEngine(const TextWebEngineOptions& options) {
    return std::make_shared<web::CurlWebEngine>(options);
}

std::unique_ptr<DesktopAppearanceMonitor> monitorDesktopAppearance(std::function<void()> changed) {
    return std::make_unique<system::AppearancePortal>(std::move(changed));
}

} // namespace platform
