import QtQuick
import Wardlock.Native

// The ground of one row: part of a card whose first and last rows have round corners.
Item {
    id: card
    property bool first: false
    property bool last: false
    property color color: Theme.card
    property real separatorInset: Theme.inset
    property bool separated: !last

    Rectangle {
        anchors.fill: parent
        color: card.color
        radius: card.first || card.last ? Theme.corner : 0
    }
    Rectangle {
        visible: card.first !== card.last
        color: card.color
        width: parent.width
        height: parent.height / 2
        y: card.first ? parent.height / 2 : 0
    }
    Hairline {
        visible: card.separated
        anchors.bottom: parent.bottom
        anchors.right: parent.right
        anchors.left: parent.left
        anchors.leftMargin: card.separatorInset
    }
}
