import QtQuick
import Wardlock.Native

// A block of a web page that is one link, as a row.
Item {
    id: row
    required property var entry
    readonly property int linkCount: 1

    signal followed(int link)
    /// The keyboard focus came to the link of that place.
    signal entered(int link)

    function linkAt(number) { return row; }
    function follow() { followed(entry.runs[0].link); }

    objectName: "link:" + entry.words
    implicitHeight: Math.max(Theme.rowHeight, label.height + 20)
    Accessible.role: Accessible.Link
    Accessible.name: entry.words
    Accessible.focusable: true
    Accessible.onPressAction: follow()
    Keys.onReturnPressed: follow()
    Keys.onEnterPressed: follow()
    onActiveFocusChanged: if (activeFocus) entered(0)

    Card {
        anchors.fill: parent
        first: row.entry.first
        last: row.entry.last
        color: tap.pressed ? Theme.pressed : Theme.card
    }
    Label {
        id: label
        anchors.left: parent.left
        anchors.leftMargin: Theme.inset
        anchors.right: arrow.left
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        text: row.entry.words
        wrapMode: Text.Wrap
        elide: Text.ElideNone
        Accessible.ignored: true
    }
    Chevron {
        id: arrow
        anchors.right: parent.right
        anchors.rightMargin: Theme.inset
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.chevron
        growth: Theme.signScale
    }
    FocusRing {}
    TapHandler {
        id: tap
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: row.follow()
    }
}
