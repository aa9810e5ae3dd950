import QtQuick
import Wardlock.Native

// One row of a list page, of any kind.
Pressable {
    id: row
    required property var page
    required property var entry
    /// Whether a search has just led to it.
    property bool found: false
    property bool hovered: false

    readonly property string kind: entry.kind
    readonly property bool isField: kind === "editText" || kind === "secureEditText"
    readonly property bool selects: kind === "link" || kind === "linkList" || kind === "button"
                                    || kind === "staticText"
    takesKeys: selects && (kind !== "staticText" || entry.choice)
    readonly property bool leadsOn: kind === "link" || kind === "linkList"
    readonly property string spokenDetails: [entry.value, entry.place].filter((words) => words !== "").join(", ")

    /// The item that takes the keyboard focus of this row; null for none.
    readonly property Item focusTarget: !entry.enabled ? null
        : selects ? (takesKeys ? row : null)
        : kind === "switch" ? toggle.item : kind === "slider" ? (slider.item ? slider.item.control : null) : field.item
    readonly property bool holdsFocus: focusTarget !== null && focusTarget.activeFocus

    objectName: "row:" + (entry.label !== "" ? entry.label : entry.placeholder)
    implicitHeight: Math.max(Theme.rowHeight, label.visible ? label.height + 20 : 0)
    enabled: entry.enabled

    // A row that can be pressed. A text alone is its label: a row would offer to be pressed, too.
    Accessible.role: leadsOn ? Accessible.Link : entry.choice ? Accessible.RadioButton : Accessible.Button
    Accessible.name: entry.label
    Accessible.description: spokenDetails
    Accessible.focusable: true
    Accessible.ignored: !takesKeys
    Accessible.checkable: entry.choice
    Accessible.checked: entry.marked
    Accessible.onPressAction: pressed()
    onPressed: page.tapRow(entry.section, entry.row)

    Card {
        anchors.fill: parent
        first: row.entry.first
        last: row.entry.last
        color: row.found || (row.takesKeys && press.pressed) ? Theme.pressed
             : row.takesKeys && row.hovered ? Theme.hovered : Theme.card
        separatorInset: label.visible ? label.anchors.leftMargin : Theme.inset
    }
    RowIcon {
        id: icon
        source: row.entry.icon
        anchors.left: parent.left
        anchors.leftMargin: Theme.inset
        anchors.verticalCenter: parent.verticalCenter
    }
    Label {
        id: label
        visible: row.entry.label !== ""
        anchors.left: parent.left
        anchors.leftMargin: icon.visible ? Theme.besideIcon : Theme.inset
        anchors.verticalCenter: parent.verticalCenter
        readonly property real room: row.width - anchors.leftMargin - rightSide.width - Theme.inset - 12
        // Large letters take another line, or become smaller, rather than lose the end.
        readonly property var fitted: Theme.wrapsRows ? Theme.fitted(row.entry.label, room) : null
        width: Math.min(implicitWidth, room)
        text: fitted !== null ? fitted.text : row.entry.label
        font.pixelSize: fitted !== null ? fitted.size : Theme.body
        wrapMode: fitted !== null ? Text.WordWrap : Text.NoWrap
        maximumLineCount: fitted !== null ? 3 : 1
        color: !row.entry.enabled ? Theme.placeholder : row.kind === "button" ? Theme.tint : Theme.label
        /// The text before it was fitted, which may have elided it.
        readonly property string wholeText: row.entry.label
        Accessible.role: Accessible.StaticText
        Accessible.name: wholeText
        Accessible.description: row.spokenDetails
        Accessible.ignored: !row.selects || row.takesKeys
    }

    Row {
        id: rightSide
        anchors.right: parent.right
        anchors.rightMargin: Theme.inset
        anchors.verticalCenter: parent.verticalCenter
        spacing: 8

        Label {
            readonly property bool used: row.leadsOn && row.entry.value !== ""
            visible: used
            text: row.entry.value
            color: Theme.value
            // The end may be what makes the difference, as in the way to a setting that was found.
            elide: Text.ElideMiddle
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: 17
            // At least half of the row, and all that the label leaves.
            readonly property real room: used ? Math.max(row.width / 2, row.width - label.anchors.leftMargin
                - Math.ceil(Theme.widthOf(row.entry.label)) - chevron.width - Theme.inset - 24) : 0
            // Its implicit width depends on the letters, which are fitted to the width.
            width: used ? Math.min(Math.ceil(Theme.widthOf(row.entry.value)) + 1, room) : 0
            anchors.verticalCenter: parent.verticalCenter
            Accessible.ignored: true
        }
        Loader {
            id: chevron
            active: row.leadsOn
            visible: active
            anchors.verticalCenter: parent.verticalCenter
            sourceComponent: Chevron {
                color: Theme.chevron
                growth: Theme.signScale
            }
        }
        Loader {
            active: row.entry.marked
            visible: active
            anchors.verticalCenter: parent.verticalCenter
            source: "CheckMark.qml"
        }
        Loader {
            id: toggle
            active: row.kind === "switch"
            visible: active
            sourceComponent: Toggle {
                objectName: "switch:" + row.entry.label
                label: row.entry.label
                placeInList: Qt.point(row.entry.number, row.entry.count)
                available: row.entry.enabled
                on: row.entry.on
                onAsked: (on) => row.page.setSwitch(row.entry.section, row.entry.row, on)
            }
        }
    }

    Loader {
        id: slider
        active: row.kind === "slider"
        anchors.left: label.visible ? label.right : parent.left
        anchors.leftMargin: label.visible ? 12 : Theme.inset
        anchors.right: parent.right
        anchors.rightMargin: Theme.inset
        anchors.verticalCenter: parent.verticalCenter
        sourceComponent: SliderRow { entry: row.entry; page: row.page }
    }
    Loader {
        id: field
        active: row.isField
        anchors.left: label.visible ? label.right : parent.left
        anchors.leftMargin: label.visible ? 16 : Theme.inset
        anchors.right: parent.right
        anchors.rightMargin: Theme.inset
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        sourceComponent: RowField {
            objectName: "field:" + (row.entry.label !== "" ? row.entry.label : row.entry.placeholder)
            entry: row.entry
            page: row.page
        }
    }
    TapHandler {
        id: press
        enabled: row.selects
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: row.pressed()
    }
}
