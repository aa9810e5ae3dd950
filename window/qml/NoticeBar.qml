import QtQuick
import Wardlock.Native

// A sentence of the application itself, which can be dismissed.
Rectangle {
    id: notice
    property string text
    /// The key that moves the keyboard focus on was pressed in the notice.
    signal tabbed(var event, bool forward)

    /// What takes the keyboard focus.
    function stops() {
        return visible ? [ok] : [];
    }

    objectName: "notice"
    visible: text !== ""
    width: Math.min(parent.width - 2 * Theme.margin, 520)
    height: Math.max(words.implicitHeight + 28, 60)
    anchors.horizontalCenter: parent.horizontalCenter
    anchors.bottom: parent.bottom
    anchors.bottomMargin: 24
    radius: 14
    color: Theme.dark ? "#3a3a3c" : "#3a3a3c"
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text

    Label {
        id: words
        anchors.left: parent.left
        anchors.leftMargin: 16
        anchors.right: ok.left
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        text: notice.text
        color: "white"
        font.pixelSize: Math.round(15 * Theme.textScale)
        wrapMode: Text.Wrap
        elide: Text.ElideNone
        Accessible.ignored: true
    }
    PlainButton {
        id: ok
        objectName: "notice:ok"
        anchors.right: parent.right
        anchors.rightMargin: 18
        anchors.verticalCenter: parent.verticalCenter
        text: qsTr("OK")
        color: "#6cb6ff"
        strong: true
        onDark: true
        // Beside the text, not over it.
        ringInset: -9
        Keys.onTabPressed: (event) => notice.tabbed(event, true)
        Keys.onBacktabPressed: (event) => notice.tabbed(event, false)
        onPressed: settings.dismissNotice()
    }
}
