import QtQuick
import Wardlock.Native

// The user guide.
TextSheet {
    paper.objectName: "guide"
    title: qsTr("User Guide")
    text: settings.userGuide()
    format: Text.MarkdownText
}
