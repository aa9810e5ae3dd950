import QtQuick
import Wardlock.Native

// A page of the web. The engine is loaded when the page opens; where there is none the page shows a message.
Rectangle {
    id: webPage
    required property var page
    readonly property QtObject web: page.web

    color: "white"

    // A Loader that is given the file would warn of a missing engine on standard error, though the page says it.
    function loadEngine() {
        if (web === null || web.missing !== "" || engine.sourceComponent)
            return
        const component = Qt.createComponent("WebEnginePage.qml")
        if (component.status === Component.Ready) {
            engine.sourceComponent = component
            return
        }
        if (!component.errorString().includes("is not installed"))
            console.warn(component.errorString())
        web.engineMissing()
    }
    onWebChanged: loadEngine()
    Component.onCompleted: loadEngine()

    Loader {
        id: engine
        anchors.fill: parent
        active: webPage.web !== null && webPage.web.missing === ""
        onLoaded: item.web = Qt.binding(() => webPage.web)
    }
    Column {
        visible: webPage.web !== null && webPage.web.missing !== ""
        anchors.centerIn: parent
        width: Math.min(parent.width - 2 * Theme.margin, 400)
        spacing: 8
        Label {
            objectName: "web:missing"
            width: parent.width
            text: webPage.web ? webPage.web.missing : ""
            color: "#6d6d72"
            wrapMode: Text.Wrap
            elide: Text.ElideNone
            horizontalAlignment: Text.AlignHCenter
        }
        PlainButton {
            objectName: "web:browser"
            width: parent.width
            text: qsTr("Open in Browser")
            color: "#007aff"
            onPressed: webPage.web.openInBrowser()
        }
    }
    Spinner {
        objectName: "spinner"
        anchors.centerIn: parent
        running: webPage.web !== null && webPage.web.loading
        color: webPage.web && webPage.web.spinnerIsBlack ? "black" : "white"
    }
}
