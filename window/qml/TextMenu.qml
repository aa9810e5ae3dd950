import QtQuick
import QtQuick.Window
import Wardlock.Native

// Cut, Copy, Paste and Select All for the text field that has the keyboard focus, which it keeps.
Item {
    id: menu
    property Item field: null

    readonly property bool isSecret: field !== null && field.echoMode !== undefined && field.echoMode !== TextInput.Normal
    readonly property bool hasSelection: field !== null && field.selectedText !== "" && !isSecret
    readonly property var entries: [
        { name: qsTr("Cut"), available: hasSelection, choose: () => field.cut() },
        { name: qsTr("Copy"), available: hasSelection, choose: () => field.copy() },
        { name: qsTr("Paste"), available: field !== null && field.canPaste, choose: () => field.paste() },
        { name: qsTr("Select All"), available: field !== null && field.length > 0, choose: () => field.selectAll() }
    ]
    /// The entry that Return chooses; -1 for none.
    property int current: -1

    anchors.fill: parent
    visible: field !== null

    /// Opens beside the point of the field, within the window.
    function open(target, point) {
        target.forceActiveFocus(Qt.PopupFocusReason);
        field = target;
        current = -1;
        const place = target.mapToItem(menu, point);
        box.x = Math.max(8, Math.min(place.x, width - box.width - 8));
        box.y = place.y + box.height + 8 > height ? Math.max(8, place.y - box.height) : place.y;
    }
    /// Opens at the text cursor of the item, where it is a text field.
    function openAtCursor(target) {
        if (target && target.cursorRectangle !== undefined && target.canPaste !== undefined)
            open(target, Qt.point(target.cursorRectangle.x, target.cursorRectangle.y + target.cursorRectangle.height));
    }
    function close() {
        field = null;
    }
    function step(by) {
        for (let i = 1; i <= entries.length; ++i) {
            const next = (Math.max(current, by > 0 ? -1 : 0) + by * i + 2 * entries.length) % entries.length;
            if (entries[next].available)
                return current = next;
        }
    }
    function choose(index) {
        if (index < 0 || !entries[index].available)
            return;
        entries[index].choose();
        close();
    }

    Connections {
        target: menu.field
        function onActiveFocusChanged() {
            if (!menu.field.activeFocus)
                menu.close();
        }
    }
    Shortcut { sequences: ["Escape"]; enabled: menu.visible; onActivated: menu.close() }
    Shortcut { sequences: ["Down", "Tab"]; enabled: menu.visible; onActivated: menu.step(1) }
    Shortcut { sequences: ["Up", "Shift+Tab"]; enabled: menu.visible; onActivated: menu.step(-1) }
    Shortcut { sequences: ["Return", "Enter"]; enabled: menu.visible; onActivated: menu.choose(menu.current) }

    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.AllButtons
        hoverEnabled: true
        onPressed: menu.close()
        onWheel: (wheel) => wheel.accepted = true
    }
    Rectangle {
        id: box
        objectName: "menu"
        width: Math.round(180 * Math.min(Theme.textScale, 1.5))
        height: lines.height
        radius: Theme.corner
        color: Theme.sheet
        border.color: Theme.separator
        Accessible.role: Accessible.PopupMenu
        Accessible.name: qsTr("Text")

        // A tap on an entry that is not available does nothing.
        MouseArea { anchors.fill: parent }
        Column {
            id: lines
            width: parent.width
            Repeater {
                model: menu.entries.length
                Item {
                    id: line
                    required property int index
                    readonly property var entry: menu.entries[index]
                    objectName: "menu:" + entry.name
                    width: lines.width
                    height: Math.max(40, Math.round(40 * Theme.textScale))
                    enabled: entry.available
                    Accessible.role: Accessible.MenuItem
                    Accessible.name: entry.name
                    Accessible.onPressAction: menu.choose(index)

                    Rectangle {
                        anchors.fill: parent
                        anchors.margins: 4
                        radius: Theme.corner - 4
                        visible: (menu.current === line.index || hover.hovered) && line.entry.available
                        color: Theme.tint
                    }
                    Label {
                        anchors.verticalCenter: parent.verticalCenter
                        x: 16
                        width: parent.width - 32
                        text: line.entry.name
                        font.pixelSize: Math.round(15 * Theme.textScale)
                        color: !line.entry.available ? Theme.placeholder
                             : menu.current === line.index || hover.hovered ? "white" : Theme.label
                        Accessible.ignored: true
                    }
                    Hover { id: hover }
                    TapHandler {
                        gesturePolicy: TapHandler.ReleaseWithinBounds
                        onTapped: menu.choose(line.index)
                    }
                }
            }
        }
    }
}
