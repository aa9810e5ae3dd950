import QtQuick
import Wardlock.Native

// A sentence of the application itself, and a button beside it; two buttons are below it.
Announcement {
    id: bar
    property string button
    /// Refuses what the button does; empty for none.
    property string refusal
    signal pressed()
    signal refused()
    /// The key that moves the keyboard focus on was pressed in the notice.
    signal tabbed(var event, bool forward)

    /// What takes the keyboard focus.
    function stops() {
        return !visible ? [] : refusal === "" ? [ok] : [no, ok];
    }

    visible: text !== ""
    height: refusal === "" ? Math.max(words.implicitHeight + 28, 60) : words.implicitHeight + ok.height + 24
    Accessible.role: Accessible.Notification
    Accessible.name: text

    Rectangle {
        anchors.fill: parent
        radius: 14
        color: "#3a3a3c"
    }
    WholeWords {
        id: words
        objectName: bar.objectName + ":words"
        anchors.left: parent.left
        anchors.leftMargin: 16
        anchors.right: bar.refusal === "" ? ok.left : parent.right
        anchors.rightMargin: bar.refusal === "" ? 12 : 16
        y: bar.refusal === "" ? (parent.height - height) / 2 : 14
        //: "LTR", or "RTL" for a language that is read from right to left.
        readonly property bool fromRight: qsTr("LTR") === "RTL"
        // The sentence is read in the direction of its language, though it may begin with a name from another one.
        words: (fromRight ? "\u200f" : "\u200e") + bar.text
        horizontalAlignment: undefined
        color: "white"
        font.pixelSize: Math.round(15 * Theme.textScale)
        Accessible.role: Accessible.StaticText
        Accessible.name: bar.text
    }
    PlainButton {
        id: no
        objectName: bar.objectName + ":no"
        anchors.right: ok.left
        anchors.rightMargin: 28
        anchors.verticalCenter: ok.verticalCenter
        visible: bar.refusal !== ""
        text: bar.refusal
        color: "#6cb6ff"
        onDark: true
        ringInset: -9
        Keys.onTabPressed: (event) => bar.tabbed(event, true)
        Keys.onBacktabPressed: (event) => bar.tabbed(event, false)
        onPressed: bar.refused()
    }
    PlainButton {
        id: ok
        objectName: bar.objectName + ":ok"
        anchors.right: parent.right
        anchors.rightMargin: 18
        y: bar.refusal === "" ? (parent.height - height) / 2 : parent.height - height - 5
        text: bar.button
        color: "#6cb6ff"
        strong: true
        onDark: true
        // Beside the text, not over it.
        ringInset: -9
        Keys.onTabPressed: (event) => bar.tabbed(event, true)
        Keys.onBacktabPressed: (event) => bar.tabbed(event, false)
        onPressed: bar.pressed()
    }
}
