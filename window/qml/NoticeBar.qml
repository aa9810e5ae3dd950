import QtQuick
import Wardlock.Native

// A sentence of the application itself, and a button beside it. Two buttons are below it, and so is one that would leave it
// little room.
Announcement {
    id: bar
    property string button
    /// Refuses what the button does; empty for none.
    property string refusal
    /// Whether the buttons can be pressed.
    property bool available: true
    signal pressed()
    signal refused()
    /// The key that moves the keyboard focus on was pressed in the notice.
    signal tabbed(var event, bool forward)

    /// What takes the keyboard focus.
    function stops() {
        return visible && available && content.item ? content.item.stops() : [];
    }

    /// Whether there is room for it in the window.
    property bool fits: true

    visible: text !== "" && fits
    height: content.item ? content.item.implicitHeight : 0
    Accessible.role: Accessible.Notification
    Accessible.name: text

    OnDemand {
        id: content
        anchors.fill: parent
        needed: bar.text !== ""
        file: "NoticeContent.qml"
        properties: ({ bar: bar })
    }
}
