import QtQuick
import Wardlock.Native

// The text field of a row. What is typed is passed on at once and stored when the editing ends.
UndoField {
    id: field
    required property var page
    required property var entry
    /// The last value of the entry's `editing`.
    property bool editing: false
    readonly property bool secure: entry.kind === "secureEditText"

    /// Whether the end of the text is hidden, and replaced by "…".
    readonly property alias elided: beginning.active
    readonly property color letters: entry.enabled ? Theme.label : Theme.placeholder
    color: elided ? "transparent" : letters
    selectionColor: Theme.tint
    selectedTextColor: "white"
    font.family: Theme.family
    font.pixelSize: Theme.body
    horizontalAlignment: TextInput.AlignLeft
    verticalAlignment: TextInput.AlignVCenter
    clip: true
    // A long text shows its beginning until it is edited.
    autoScroll: activeFocus
    selectByMouse: true
    echoMode: secure ? TextInput.Password : TextInput.Normal
    inputMethodHints: entry.numberPad ? Qt.ImhDigitsOnly : Qt.ImhNone
    Accessible.role: Accessible.EditableText
    readonly property string spokenName: entry.label !== "" ? entry.label : entry.placeholder
    Accessible.name: spokenName
    Accessible.description: entry.place
    Accessible.passwordEdit: secure

    Component.onCompleted: text = entry.value
    onEntryChanged: {
        // The page has ended the editing, for example because its list is dragged.
        if (activeFocus && editing && !entry.editing)
            focus = false;
        else if (!activeFocus && text !== entry.value)
            text = entry.value;
        editing = entry.editing;
    }
    onActiveFocusChanged: {
        if (activeFocus) {
            // A text that cannot be shown whole is not edited but replaced; where nothing is typed, it stays.
            if (secure || entry.cut)
                text = "";
            page.beginEditing(entry.section, entry.row);
        } else {
            page.endEditing();
            // Assigning another text forgets the typing, which can no longer be taken back.
            text = "";
            text = entry.value;
        }
    }
    onChanged: (text) => page.typeText(text)
    onAccepted: focus = false
    TextMenuOpener {}

    ElidedText {
        id: beginning
        target: field
        letters: field.letters
    }
    Label {
        anchors.fill: parent
        verticalAlignment: Text.AlignVCenter
        visible: field.text === "" && field.preeditText === ""
        text: field.entry.placeholder
        color: Theme.placeholder
        Accessible.ignored: true
    }
}
