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
    readonly property int letters: Math.round(15 * Theme.textScale)
    readonly property real edge: Theme.inset
    readonly property bool below: bar.refusal !== "" || ok.width > width * 0.25
    /// Whether the buttons are below each other.
    readonly property bool stacked: bar.refusal !== "" && no.width + ok.width + 2 * edge + 28 > width

    implicitHeight: below ? words.implicitHeight + ok.height * (stacked ? 2 : 1) + 20 : Math.max(words.implicitHeight + 28, 60)

    Rectangle {
        anchors.fill: parent
        radius: 14
        color: "#3a3a3c"
    }
    WholeWords {
        id: words
        objectName: content.bar.objectName + ":words"
        anchors.left: parent.left
        anchors.leftMargin: content.edge
        anchors.right: content.below ? parent.right : ok.left
        anchors.rightMargin: content.below ? content.edge : 14
        y: content.below ? 14 : (parent.height - height) / 2
        //: "LTR", or "RTL" for a language that is read from right to left.
        readonly property bool fromRight: qsTr("LTR") === "RTL"
        // The sentence is read in the direction of its language, though it may begin with a name from another one.
        words: (fromRight ? "\u200f" : "\u200e") + content.bar.text
        horizontalAlignment: undefined
        color: "white"
        font.pixelSize: content.letters
        Accessible.role: Accessible.StaticText
        Accessible.name: content.bar.text
    }
    PlainButton {
        id: no
        objectName: content.bar.objectName + ":no"
        anchors.right: content.stacked ? parent.right : ok.left
        anchors.rightMargin: content.stacked ? content.edge : 28
        y: content.stacked ? ok.y - height : ok.y
        visible: content.bar.refusal !== ""
        text: content.bar.refusal
        size: content.letters
        available: content.bar.available
        color: "#6cb6ff"
        onDark: true
        ringInset: -8
        ringInsetAcross: 4
        Keys.onTabPressed: (event) => content.bar.tabbed(event, true)
        Keys.onBacktabPressed: (event) => content.bar.tabbed(event, false)
        onPressed: content.bar.refused()
    }
    PlainButton {
        id: ok
        objectName: content.bar.objectName + ":ok"
        anchors.right: parent.right
        anchors.rightMargin: content.edge
        y: content.below ? parent.height - height - 4 : (parent.height - height) / 2
        text: content.bar.button
        size: content.letters
        available: content.bar.available
        color: "#6cb6ff"
        strong: true
        onDark: true
        // Beside the text, not over it.
        ringInset: -8
        ringInsetAcross: 4
        Keys.onTabPressed: (event) => content.bar.tabbed(event, true)
        Keys.onBacktabPressed: (event) => content.bar.tabbed(event, false)
        onPressed: content.bar.pressed()
    }
}
