import QtQuick
import Wardlock.Native

// The beginning of a text that does not fit into its field, ending in "…", while the field is not edited. The field itself is
// transparent meanwhile.
Loader {
    id: elided
    required property TextInput target
    property color letters: Theme.label

    anchors.fill: parent
    active: !target.activeFocus && target.echoMode === TextInput.Normal && target.contentWidth > target.width
    sourceComponent: Label {
        verticalAlignment: Text.AlignVCenter
        text: elided.target.text
        color: elided.letters
        font: elided.target.font
        Accessible.ignored: true
    }
}
