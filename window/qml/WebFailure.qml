import QtQuick
import Wardlock.Native

// Why a web page could not be loaded, and another try. In the middle of an empty page, else below the text that is
// still shown.
Rectangle {
    id: failure
    required property QtObject web
    property bool shown: false
    readonly property alias button: again

    /// The keyboard focus leaves the button.
    signal tabbed(bool forward)

    readonly property bool alone: web === null || !web.loaded

    objectName: "web:failure"
    visible: shown
    width: Math.min(parent.width - 2 * Theme.margin, 400)
    height: column.height + 2 * column.y
    anchors.horizontalCenter: parent.horizontalCenter
    y: alone ? Math.round((parent.height - height) / 2) : parent.height - height - Theme.margin
    radius: Theme.corner
    color: alone ? "transparent" : Theme.sheet
    border.width: alone ? 0 : 1
    border.color: Theme.separator
    Accessible.role: Accessible.AlertMessage
    Accessible.name: title.text + " " + reason.text

    Column {
        id: column
        x: Theme.inset
        y: failure.alone ? 0 : 12
        width: parent.width - 2 * x
        spacing: 6

        Label {
            id: title
            width: parent.width
            text: qsTr("The page could not be loaded.")
            font.weight: Font.DemiBold
            wrapMode: Text.Wrap
            elide: Text.ElideNone
            horizontalAlignment: Text.AlignHCenter
            Accessible.ignored: true
        }
        Label {
            id: reason
            objectName: "web:reason"
            width: parent.width
            text: failure.web ? failure.web.error : ""
            color: Theme.secondary
            font.pixelSize: Math.round(15 * Theme.textScale)
            wrapMode: Text.Wrap
            elide: Text.ElideNone
            horizontalAlignment: Text.AlignHCenter
            Accessible.ignored: true
        }
        PlainButton {
            id: again
            objectName: "web:again"
            width: parent.width
            text: qsTr("Try Again")
            // The page moves the keyboard focus, in the order of what is shown.
            activeFocusOnTab: false
            onPressed: failure.web.reload()
            Keys.onTabPressed: failure.tabbed(true)
            Keys.onBacktabPressed: failure.tabbed(false)
        }
    }
}
