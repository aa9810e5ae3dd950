import QtQuick

// Creates what a file describes while it is needed. The file, and the types that only it uses, are loaded at the first use
// instead of with the window.
Loader {
    property bool needed: false
    required property string file
    /// The initial properties of the item, or bindings of them.
    property var properties: ({})

    // Not before the properties are known.
    property bool complete: false
    readonly property bool shown: complete && needed
    onShownChanged: {
        if (shown)
            setSource(file, properties);
        else
            source = "";
    }
    Component.onCompleted: complete = true
}
