import QtQuick
import Wardlock.Native

// What is seen of a notice.
Item {
    id: content
    required property Item bar

    /// What takes the keyboard focus, in order.
    function stops() {
        return bar.refusal === "" ? [ok] : [no, ok];
    }
    implicitHeight: bar.refusal === "" ? Math.max(words.implicitHeight + 28, 60) : words.implicitHeight + ok.height + 24

    Rectangle {
        anchors.fill: parent
        radius: 14
        color: "#3a3a3c"
    }
    WholeWords {
        id: words
        objectName: content.bar.objectName + ":words"
        anchors.left: parent.left
        anchors.leftMargin: 16
        anchors.right: content.bar.refusal === "" ? ok.left : parent.right
        anchors.rightMargin: content.bar.refusal === "" ? 12 : 16
        y: content.bar.refusal === "" ? (parent.height - height) / 2 : 14
        //: "LTR", or "RTL" for a language that is read from right to left.
        readonly property bool fromRight: qsTr("LTR") === "RTL"
        // The sentence is read in the direction of its language, though it may begin with a name from another one.
        words: (fromRight ? "\u200f" : "\u200e") + content.bar.text
        horizontalAlignment: undefined
        color: "white"
        font.pixelSize: Math.round(15 * Theme.textScale)
        Accessible.role: Accessible.StaticText
        Accessible.name: content.bar.text
    }
    PlainButton {
        id: no
        objectName: content.bar.objectName + ":no"
        anchors.right: ok.left
        anchors.rightMargin: 28
        anchors.verticalCenter: ok.verticalCenter
        visible: content.bar.refusal !== ""
        text: content.bar.refusal
        color: "#6cb6ff"
        onDark: true
        ringInset: -9
        Keys.onTabPressed: (event) => content.bar.tabbed(event, true)
        Keys.onBacktabPressed: (event) => content.bar.tabbed(event, false)
        onPressed: content.bar.refused()
    }
    PlainButton {
        id: ok
        objectName: content.bar.objectName + ":ok"
        anchors.right: parent.right
        anchors.rightMargin: 18
        y: content.bar.refusal === "" ? (parent.height - height) / 2 : parent.height - height - 5
        text: content.bar.button
        color: "#6cb6ff"
        strong: true
        onDark: true
        // Beside the text, not over it.
        ringInset: -9
        Keys.onTabPressed: (event) => content.bar.tabbed(event, true)
        Keys.onBacktabPressed: (event) => content.bar.tabbed(event, false)
        onPressed: content.bar.pressed()
    }
}
