#include "window/Graphics.h"

#include "platform/services/ProcessStart.h"

#include <QCoreApplication>

namespace wardlock::window {

void chooseGraphics(DrawnOn place) {
    if (place == DrawnOn::Memory) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qputenv("QT_QUICK_BACKEND", "software");
    }
    // The web engine would end the process: its sandbox does not work for the superuser.
    if (platform::isSuperuser())
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    // A web engine that is loaded later shares its pictures with the window.
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
}

QIcon programIcon() {
    QIcon icon;
    for (const char* file : {":/icons/wardlock-settings-48.png", ":/icons/wardlock-settings-128.png"})
        icon.addFile(QString::fromLatin1(file));
    return icon;
}

} // namespace wardlock::window
