import QtQuick
import Wardlock.Native

// The keys that users of a desktop know from other programs.
Item {
    id: keys
    /// Whether a sheet, an alert or the keypad covers the pages.
    property bool covered: false
    signal guideAsked()
    signal closeAsked()

    Shortcut { sequences: ["Ctrl+Q", "Ctrl+W"]; onActivated: keys.closeAsked() }
    Shortcut { sequences: ["F1"]; enabled: !keys.covered; onActivated: keys.guideAsked() }
    // On many keyboards, plus needs Shift, and the key beside it is taken for it.
    Shortcut { sequences: ["Ctrl++", "Ctrl+=", "Ctrl+Shift+="]; onActivated: appearance.enlargeText() }
    Shortcut { sequences: ["Ctrl+-"]; onActivated: appearance.reduceText() }
    Shortcut { sequences: ["Ctrl+0"]; onActivated: appearance.resetText() }
}
