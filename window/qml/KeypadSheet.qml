import QtQuick
import Wardlock.Native

// The four-digit keypad over a dark blur of what is beneath it.
Modal {
    id: sheet
    required property var keypad
    required property Item backdrop

    anchors.fill: parent
    focus: true
    Component.onCompleted: forceActiveFocus()
    Accessible.role: Accessible.Dialog
    Accessible.name: keypad.statusText

    // The diameter of a key. In a low window the keys are beside the question rather than small below it.
    readonly property real unitBelow: Math.min(width / 5.2, height / 10.5)
    readonly property real unitBeside: Math.min(width / 9, height / 5.6)
    readonly property bool isBeside: unitBelow < 60 && unitBeside > unitBelow
    readonly property real unit: Math.min(75, Math.floor(isBeside ? unitBeside : unitBelow))
    readonly property real gap: Math.round(unit * 0.3)

    Keys.onPressed: (event) => {
        if (event.key >= Qt.Key_0 && event.key <= Qt.Key_9) {
            // A key that is held down is one digit: four repetitions would be a passcode.
            if (!event.isAutoRepeat)
                keypad.pressDigit(event.key - Qt.Key_0);
        } else if (event.key === Qt.Key_Backspace || event.key === Qt.Key_Delete)
            keypad.pressDelete();
        else if (event.key === Qt.Key_Escape)
            keypad.pressCancel();
        else
            return;
        event.accepted = true;
    }

    FrameAnimation {
        running: sheet.keypad.fading
        onTriggered: sheet.keypad.tick()
    }
    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        onWheel: (wheel) => wheel.accepted = true
    }
    BlurredBackdrop {
        anchors.fill: parent
        source: sheet.backdrop
        opacity: sheet.keypad.blurOpacity
    }

    Grid {
        id: pad
        objectName: "keypad"
        opacity: sheet.keypad.opacity
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.horizontalCenterOffset: shakeOffset
        y: Math.max(12, Math.round((parent.height - height) / 2))
        columns: sheet.isBeside ? 2 : 1
        layoutDirection: Qt.application.layoutDirection
        columnSpacing: sheet.unit
        rowSpacing: Math.round(sheet.unit * 0.55)
        horizontalItemAlignment: Grid.AlignHCenter
        verticalItemAlignment: Grid.AlignVCenter
        property real shakeOffset: 0

        Column {
            spacing: 0
            Label {
                objectName: "keypad:status"
                anchors.horizontalCenter: parent.horizontalCenter
                width: Math.min(implicitWidth, sheet.width - 32 - (sheet.isBeside ? grid.width + pad.columnSpacing : 0))
                text: sheet.keypad.statusText
                color: "white"
                font.pixelSize: Math.round(20 * Math.min(Theme.textScale, 1.4))
                fontSizeMode: Text.HorizontalFit
                minimumPixelSize: 8
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
            }
            Label {
                anchors.horizontalCenter: parent.horizontalCenter
                visible: sheet.keypad.subtitle !== ""
                text: sheet.keypad.subtitle
                color: "#ccffffff"
                font.pixelSize: Theme.small
            }
            Item { width: 1; height: sheet.gap }
            KeypadDots {
                id: dots
                objectName: "keypad:dots"
                anchors.horizontalCenter: parent.horizontalCenter
                spacing: Math.round(sheet.unit * 0.32)
                count: sheet.keypad.digitCount
            }
        }
        Grid {
            id: grid
            columns: 3
            spacing: sheet.gap
            LayoutMirroring.enabled: false
            Repeater {
                model: 9
                KeypadKey {
                    required property int index
                    digit: index + 1
                    width: sheet.unit
                    height: sheet.unit
                    onPressed: (digit) => sheet.keypad.pressDigit(digit)
                }
            }
            PlainButton {
                objectName: "keypad:emergency"
                width: sheet.unit
                height: sheet.unit
                available: sheet.keypad.showsEmergency
                opacity: sheet.keypad.showsEmergency ? 1 : 0
                Accessible.ignored: !sheet.keypad.showsEmergency
                text: qsTr("Emergency")
                size: Theme.small
                shrinks: true
                overhang: sheet.gap * 0.9
                ringInset: -sheet.gap * 0.6
                ringInsetAcross: sheet.gap * 0.3
                color: "white"
                onDark: true
                onPressed: sheet.keypad.pressEmergency()
            }
            KeypadKey {
                digit: 0
                width: sheet.unit
                height: sheet.unit
                onPressed: (digit) => sheet.keypad.pressDigit(digit)
            }
            PlainButton {
                objectName: sheet.keypad.digitCount > 0 ? "keypad:delete" : "keypad:cancel"
                width: sheet.unit
                height: sheet.unit
                text: sheet.keypad.digitCount > 0 ? qsTr("Delete") : qsTr("Cancel")
                size: Math.round(15 * Math.min(Theme.textScale, 1.2))
                shrinks: true
                overhang: sheet.gap * 0.9
                ringInset: -sheet.gap * 0.6
                ringInsetAcross: sheet.gap * 0.3
                color: "white"
                onDark: true
                onPressed: sheet.keypad.digitCount > 0 ? sheet.keypad.pressDelete() : sheet.keypad.pressCancel()
            }
        }
    }

    /// A passcode was wrong; the words are for those who do not see the keypad shake or close.
    signal refused(string words)

    readonly property int failures: keypad.failures
    property int failuresShown: 0
    /// Those since the keypad asks this question.
    property int failuresInRow: 0
    readonly property string question: keypad.statusText
    onQuestionChanged: failuresInRow = 0
    onFailuresChanged: {
        if (failures > failuresShown) {
            (Theme.reducedMotion ? blink : shake).restart();
            ++failuresInRow;
            Qt.callLater(reportRefusal);
        }
        failuresShown = failures;
    }
    // A page closes its keypad at the last failure without showing it; after the right entry it asks another question.
    readonly property bool closedByFailure: keypad.leaving && keypad.ofPage && keypad.digitCount === 4 && failuresInRow > 0
    onClosedByFailureChanged: if (closedByFailure) Qt.callLater(reportRefusal)
    function reportRefusal() {
        refused(keypad.leaving ? qsTr("Wrong passcode. The keypad is closed.") : qsTr("Wrong passcode"));
    }
    SequentialAnimation {
        id: shake
        NumberAnimation { target: pad; property: "shakeOffset"; to: -28; duration: 60; easing.type: Easing.OutQuad }
        NumberAnimation { target: pad; property: "shakeOffset"; to: 24; duration: 90 }
        NumberAnimation { target: pad; property: "shakeOffset"; to: -16; duration: 80 }
        NumberAnimation { target: pad; property: "shakeOffset"; to: 8; duration: 70 }
        NumberAnimation { target: pad; property: "shakeOffset"; to: 0; duration: 60; easing.type: Easing.OutQuad }
    }
    SequentialAnimation {
        id: blink
        loops: 2
        NumberAnimation { target: dots; property: "opacity"; to: 0; duration: 120 }
        NumberAnimation { target: dots; property: "opacity"; to: 1; duration: 120 }
    }
}
