import QtQuick
import Wardlock.Native

// An attachment of a mail.
Pressable {
    id: row
    property string name
    property real size: 0
    property bool removable: true
    signal removed()

    width: parent ? parent.width : 0
    height: Math.max(52, Math.round(52 * Theme.textScale), label.implicitHeight + 28)
    objectName: "mail:attachment:" + name
    activeFocusOnTab: true
    Accessible.role: Accessible.Button
    Accessible.name: name + ", " + readable(size)
    Accessible.description: qsTr("Shows the attachment")
    Accessible.focusable: true
    Accessible.onPressAction: pressed()

    function readable(bytes) {
        return bytes === 1 ? qsTr("1 byte")
             : bytes < 1024 ? qsTr("%1 bytes").arg(bytes)
             : bytes < 1048576 ? qsTr("%1 KB").arg(Math.round(bytes / 1024))
             : qsTr("%1 MB").arg((bytes / 1048576).toLocaleString(Qt.locale(), "f", 1));
    }

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: Theme.inset
        anchors.rightMargin: Theme.inset
        anchors.bottomMargin: 8
        radius: 8
        color: tap.pressed ? Theme.pressed : hover.hovered ? Theme.hovered : Theme.ground

        FocusRing { target: row }
        Hover { id: hover }
        TapHandler {
            id: tap
            gesturePolicy: TapHandler.ReleaseWithinBounds
            onTapped: row.pressed()
        }
        Label {
            id: label
            anchors.left: parent.left
            anchors.leftMargin: 12
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width - remove.width - 36
            text: oneLine.width <= width ? oneLine.text : row.name + "\n" + row.readable(row.size)
            font.pixelSize: Math.round(15 * Theme.textScale)
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: 15
            TextMetrics {
                id: oneLine
                font: label.font
                text: row.name + " · " + row.readable(row.size)
            }
            Accessible.ignored: true
        }
        PlainButton {
            id: remove
            objectName: "mail:remove:" + row.name
            anchors.right: parent.right
            anchors.rightMargin: 12
            height: parent.height
            size: Math.round(15 * Theme.barScale)
            text: qsTr("Remove")
            available: row.removable
            Accessible.name: qsTr("Remove %1").arg(row.name)
            onPressed: row.removed()
        }
    }
}
