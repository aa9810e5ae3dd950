#include "window/models/ComposedText.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>

namespace wardlock::window {

void commitComposedText() {
    QGuiApplication::inputMethod()->commit();
    // Not every input method has done so by now.
    auto* field = QGuiApplication::focusObject();
    const QString composed = field ? field->property("preeditText").toString() : QString();
    if (composed.isEmpty())
        return;
    QInputMethodEvent commit;
    commit.setCommitString(composed);
    QCoreApplication::sendEvent(field, &commit);
    QGuiApplication::inputMethod()->reset();
}

} // namespace wardlock::window
