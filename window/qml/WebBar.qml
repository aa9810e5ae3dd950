import QtQuick
import Wardlock.Native

// The bar under a web page: the way back to the web page before, and the way to the browser.
Rectangle {
    id: bar
    property bool canGoBack: false
    readonly property alias back: back
    readonly property alias browser: browser

    signal backPressed()
    signal browserPressed()
    /// The keyboard focus leaves a button.
    signal tabbed(Item button, bool forward)

    height: Theme.barHeight
    color: Theme.bar

    Pressable {
        id: back
        objectName: "web:back"
        anchors.left: parent.left
        width: 56
        height: parent.height
        enabled: bar.canGoBack
        opacity: tap.pressed ? 0.4 : hover.hovered ? 0.7 : 1
        Accessible.role: Accessible.Button
        Accessible.name: qsTr("Previous web page")
        Accessible.focusable: enabled
        Accessible.onPressAction: pressed()
        onPressed: bar.backPressed()
        Keys.onTabPressed: bar.tabbed(back, true)
        Keys.onBacktabPressed: bar.tabbed(back, false)
        // The keys go on to the next button, not nowhere.
        onEnabledChanged: if (!enabled && activeFocus) bar.tabbed(back, true)

        Chevron {
            back: true
            anchors.centerIn: parent
            growth: Theme.barScale
            width: Math.round(12 * growth)
            height: Math.round(20 * growth)
            thickness: 2.5
            color: back.enabled ? Theme.tint : Theme.placeholder
        }
        FocusRing {}
        Hover { id: hover }
        TapHandler {
            id: tap
            gesturePolicy: TapHandler.ReleaseWithinBounds
            onTapped: back.pressed()
        }
    }
    PlainButton {
        id: browser
        objectName: "web:browser"
        anchors.right: parent.right
        anchors.rightMargin: 4
        anchors.verticalCenter: parent.verticalCenter
        width: Math.min(implicitWidth + 24, parent.width - back.width - 8)
        size: Theme.barText
        shrinks: true
        text: qsTr("Open in Browser")
        // The page moves the keyboard focus, in the order of what is shown.
        activeFocusOnTab: false
        onPressed: bar.browserPressed()
        Keys.onTabPressed: bar.tabbed(browser, true)
        Keys.onBacktabPressed: bar.tabbed(browser, false)
    }
    Hairline {
        anchors.top: parent.top
        anchors.left: parent.left
        anchors.right: parent.right
    }
}
