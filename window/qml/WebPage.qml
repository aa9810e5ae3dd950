import QtQuick
import Wardlock.Native

// A page of the web. The engine is loaded when the page opens; where there is none the page shows the text.
FocusScope {
    id: webPage
    required property var page
    readonly property QtObject web: page.web
    readonly property bool showsText: web !== null && web.showsText
    readonly property bool canGoBack: engine.item ? engine.item.canGoBack : web !== null && web.canGoBack
    readonly property Item view: engine.item ? engine.item : reader.item

    /// How much of the lower end is covered by notices, and the height of the bar that they leave free.
    property real covered: 0
    readonly property real barBelow: bar.height

    focus: true

    /// The keyboard focus leaves the page at its end or its beginning.
    signal tabbedOut(bool forward)

    /// Returns to the web page before a followed link. Returns false where there is none.
    function goBack() {
        if (!canGoBack)
            return false;
        if (engine.item)
            engine.item.goBack();
        else
            reader.item.goBack();
        return true;
    }

    // A Loader that is given the file would warn of a missing engine on standard error, though the page says it.
    function loadEngine() {
        if (web === null || web.showsText || engine.sourceComponent)
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

    function takeFocus(forward) {
        if (!forward)
            tabFrom(null, false);
        else if (showsText && reader.item)
            reader.item.takeFocus(true);
        else if (view)
            view.forceActiveFocus(Qt.TabFocusReason);
    }
    /// Moves the keyboard focus from one of the buttons to the next; from null to the first or the last.
    function tabFrom(button, forward) {
        const buttons = [failure.button, bar.back, bar.browser].filter((item) => item.visible && item.enabled);
        const last = buttons.length;
        const next = button ? buttons.indexOf(button) + (forward ? 1 : -1) : forward ? 0 : last - 1;
        if (next >= 0 && next < last)
            buttons[next].forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason);
        else if (!forward && button && showsText && reader.item)
            reader.item.takeFocus(false);
        else
            tabbedOut(forward);
    }
    Keys.onPressed: (event) => {
        if (event.key === Qt.Key_Backspace)
            event.accepted = goBack();
    }

    Rectangle {
        anchors.fill: parent
        color: webPage.showsText ? Theme.ground : "white"
    }
    Item {
        id: shown
        anchors.top: parent.top
        anchors.bottom: bar.top
        width: parent.width

        Loader {
            id: engine
            anchors.fill: parent
            active: webPage.web !== null && !webPage.showsText
            focus: active
            onLoaded: item.web = Qt.binding(() => webPage.web)
        }
        Loader {
            id: reader
            anchors.fill: parent
            active: webPage.showsText
            focus: active
            sourceComponent: WebText {
                web: webPage.web
                covered: Math.max(0, webPage.covered - bar.height)
            }
        }
        Connections {
            target: reader.item
            function onTabbedOut(forward) {
                if (forward)
                    webPage.tabFrom(null, true);
                else
                    webPage.tabbedOut(false);
            }
        }
        Rectangle {
            anchors.fill: parent
            visible: webPage.showsText && webPage.web.loading
            color: Theme.ground
            opacity: 0.65
        }
        Label {
            objectName: "web:empty"
            anchors.centerIn: parent
            visible: webPage.showsText && webPage.web.loaded && webPage.web.error === "" && !webPage.web.loading
                     && reader.item !== null && reader.item.count === 0
            text: qsTr("This page has no text.")
            color: Theme.secondary
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        WebFailure {
            id: failure
            web: webPage.web
            shown: webPage.showsText && webPage.web.error !== "" && !webPage.web.loading
            onTabbed: (forward) => webPage.tabFrom(button, forward)
        }
        Spinner {
            objectName: "spinner"
            anchors.centerIn: parent
            running: webPage.web !== null && webPage.web.loading
            color: webPage.showsText ? Theme.label : webPage.web && webPage.web.spinnerIsBlack ? "black" : "white"
        }
    }
    WebBar {
        id: bar
        anchors.bottom: parent.bottom
        width: parent.width
        canGoBack: webPage.canGoBack
        onBackPressed: webPage.goBack()
        onBrowserPressed: webPage.web.openInBrowser(engine.item ? engine.item.url : "")
        onTabbed: (button, forward) => webPage.tabFrom(button, forward)
    }
}
